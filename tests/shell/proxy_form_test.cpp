#include "shell/proxy_form.h"

#include <gtest/gtest.h>

#include <vector>

#include "session/proxy_dialog.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct ProxyForm : testing::Test {
  Text& file() { return platform.files.files["config.ini"]; }
  void Fill(bool use_proxy, const Text& address, const Text& port) {
    ProxyControls& controls = ProxyDialog(client);
    controls.use_proxy = use_proxy;
    controls.proxy_addr = address;
    controls.proxy_port = port;
  }
  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

TEST_F(ProxyForm, TheTwoCheckBoxesLockTheFields) {
  //                                addr   port   autent. login  pass
  const ProxyFormState all_locked{true, true, false, true, true};
  const ProxyFormState no_login{false, false, true, true, true};
  const ProxyFormState all_free{false, false, true, false, false};
  ProxyControls controls;
  EXPECT_EQ(StateOfProxyForm(controls), all_locked);
  controls.autentification = true;
  EXPECT_EQ(StateOfProxyForm(controls), all_locked);
  controls.use_proxy = true;
  EXPECT_EQ(StateOfProxyForm(controls), all_free);
  controls.autentification = false;
  EXPECT_EQ(StateOfProxyForm(controls), no_login);
}

TEST_F(ProxyForm, SwitchingTheProxyOnMovesToItsAddress) {
  EXPECT_TRUE(use_proxy_Click(client, true));
  EXPECT_TRUE(ProxyDialog(client).use_proxy);
  EXPECT_FALSE(use_proxy_Click(client, false));
  EXPECT_FALSE(ProxyDialog(client).use_proxy);
}

TEST_F(ProxyForm, TheLoginIsSwitchedByItself) {
  autentification_Click(client, true);
  EXPECT_TRUE(ProxyDialog(client).autentification);
  autentification_Click(client, false);
  EXPECT_FALSE(ProxyDialog(client).autentification);
}

TEST_F(ProxyForm, ApplyWritesTheSixKeysInTheirOrder) {
  Fill(true, "proxy.example", "3128");
  ProxyDialog(client).autentification = true;
  ProxyDialog(client).proxy_login = "user";
  ProxyDialog(client).proxy_pass = "word";
  EXPECT_TRUE(ApplyProxyForm(client));
  EXPECT_EQ(file(),
            "[ProxySettings]\r\nUse_proxy=1\r\nProxy_address=proxy.example\r\nProxy_port=3128\r\n"
            "Autentification=1\r\nProxy_login=user\r\nProxy_pass=word\r\n");
  EXPECT_TRUE(platform.desktop.boxes.empty());
}

TEST_F(ProxyForm, AfterApplyTheNextUseReadsTheFile) {
  Fill(true, " proxy.example ", "3128");
  EXPECT_TRUE(ApplyProxyForm(client));
  EXPECT_FALSE(client.app.sett_conn.loaded);
  EXPECT_TRUE(ProxyDialog(client).use_proxy);
  EXPECT_EQ(ProxyDialog(client).proxy_addr, "proxy.example");
}

TEST_F(ProxyForm, WithoutAnAddressOrAPortApplyAsks) {
  for (const auto& [address, port] :
       {std::pair{"", "3128"}, {"  ", "3128"}, {"proxy.example", ""}, {"proxy.example", " "}}) {
    Fill(true, address, port);
    EXPECT_FALSE(ApplyProxyForm(client));
    ASSERT_EQ(platform.desktop.boxes.size(), 1U);
    EXPECT_EQ(
        platform.desktop.boxes[0],
        (SimulatedDesktop::Box{"Некоторые поля остались незаполненными. Отключить прокси-сервер?"_w,
                               BoxIcon::kExclamation, true}));
    EXPECT_TRUE(ProxyDialog(client).use_proxy);
    EXPECT_EQ(ProxyDialog(client).proxy_addr, address);
    EXPECT_EQ(file(), "");
    platform.desktop.boxes.clear();
  }
}

TEST_F(ProxyForm, InEnglishTheQuestionIsShort) {
  client.app.Language = UiLanguage::kEnglish;
  Fill(true, "", "");
  ApplyProxyForm(client);
  EXPECT_EQ(platform.desktop.boxes[0].text, "Some fields are ...");
}

TEST_F(ProxyForm, YesSwitchesTheProxyOffAndSavesTheRest) {
  Fill(true, "", "3128");
  platform.desktop.answers = {true};
  EXPECT_TRUE(ApplyProxyForm(client));
  EXPECT_EQ(file(),
            "[ProxySettings]\r\nUse_proxy=0\r\nProxy_address=\r\nProxy_port=3128\r\n"
            "Autentification=0\r\nProxy_login=\r\nProxy_pass=\r\n");
}

TEST_F(ProxyForm, WithTheProxyOffNothingIsAsked) {
  Fill(false, "", "");
  EXPECT_TRUE(ApplyProxyForm(client));
  EXPECT_TRUE(platform.desktop.boxes.empty());
}

TEST_F(ProxyForm, APortThatIsNoneIsRefused) {
  for (const char* port : {"0", "65536", "99999", "100000", "4294967297", "00000000080", "8o8"}) {
    Fill(true, "proxy.example", port);
    EXPECT_TRUE(ProxyPortIsWrong(ProxyDialog(client))) << port;
    EXPECT_FALSE(ApplyProxyForm(client)) << port;
    ASSERT_EQ(platform.desktop.boxes.size(), 1U) << port;
    EXPECT_EQ(platform.desktop.boxes[0], (SimulatedDesktop::Box{"Порт - число от 1 до 65535"_w,
                                                                BoxIcon::kExclamation, false}));
    EXPECT_EQ(file(), "");
    platform.desktop.boxes.clear();
  }
  for (const char* port : {"1", " 80 ", "65535"}) {
    Fill(true, "proxy.example", port);
    EXPECT_TRUE(ApplyProxyForm(client)) << port;
  }
  EXPECT_TRUE(platform.desktop.boxes.empty());
}

TEST_F(ProxyForm, WithTheProxyOffThePortIsWhatItIs) {
  Fill(false, "proxy.example", "99999");
  EXPECT_FALSE(ProxyPortIsWrong(ProxyDialog(client)));
  EXPECT_TRUE(ApplyProxyForm(client));
}

TEST_F(ProxyForm, CancelForgetsWhatWasTyped) {
  file() = "[ProxySettings]\r\nProxy_address=saved\r\n";
  Fill(true, "typed", "1");
  CancelProxyForm(client);
  EXPECT_EQ(ProxyDialog(client).proxy_addr, "saved");
  EXPECT_FALSE(ProxyDialog(client).use_proxy);
}

TEST_F(ProxyForm, AnEventInsideTheWritesMayCloseTheForm) {
  Fill(true, "proxy.example", "3128");
  platform.desktop.on_yield = [&] { CancelProxyForm(client); };
  EXPECT_TRUE(ApplyProxyForm(client));
  EXPECT_EQ(ProxyDialog(client).proxy_addr, "proxy.example");
  EXPECT_EQ(ProxyDialog(client).proxy_port, "3128");
}

TEST(ProxyPort, TakesDigitsAndBackspaceOnly) {
  for (int code = 0; code < 256; ++code) {
    const bool taken = (code >= '0' && code <= '9') || code == 8;
    EXPECT_EQ(ProxyPortTakes(static_cast<char>(code)), taken) << code;
  }
}

TEST(ProxyFormTexts, StandInBothLanguages) {
  const std::vector<std::vector<Text>> expected = {
      {"window", "Дополнительные настройки подключения"_w, "Advanced connection settings"},
      {"frame", "Прокси-сервер"_w, "Proxy"},
      {"use_proxy", "Использовать прокси-сервер"_w, "Use proxy"},
      {"l_proxy_addr", "Адрес"_w, "Adress"},
      {"l_proxy_port", "Порт"_w, "Port"},
      {"autentification", "Аутентификация"_w, "Autentification"},
      {"l_proxy_login", "Логин"_w, "Login"},
      {"l_proxy_pass", "Пароль"_w, "Password"}};
  std::vector<std::vector<Text>> texts;
  for (const auto& [control, text] : kProxyFormTexts)
    texts.push_back(
        {Text(control), Text(text.In(UiLanguage::kRussian)), Text(text.In(UiLanguage::kEnglish))});
  EXPECT_EQ(texts, expected);
}

}  // namespace
}  // namespace parlorwire
