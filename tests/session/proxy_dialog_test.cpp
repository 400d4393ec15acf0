#include "session/proxy_dialog.h"

#include <gtest/gtest.h>

#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct ProxyStore : testing::Test {
  void Settings(const Text& lines) {
    platform.files.files["config.ini"] = "[ProxySettings]\r\n" + lines;
  }
  SimulatedPlatform platform;
  Client client{platform.Ports()};
};

TEST_F(ProxyStore, IsLoadedFromTheFileAtItsFirstUse) {
  Settings(
      "Use_proxy=1\r\nProxy_address=proxy.example\r\nProxy_port=3128\r\nAutentification=1\r\n"
      "Proxy_login=user\r\nProxy_pass=word\r\n");
  EXPECT_FALSE(client.app.sett_conn.loaded);
  const ProxyControls& controls = ProxyDialog(client);
  EXPECT_TRUE(controls.loaded);
  EXPECT_TRUE(controls.use_proxy);
  EXPECT_EQ(controls.proxy_addr, "proxy.example");
  EXPECT_EQ(controls.proxy_port, "3128");
  EXPECT_TRUE(controls.autentification);
  EXPECT_EQ(controls.proxy_login, "user");
  EXPECT_EQ(controls.proxy_pass, "word");
}

TEST_F(ProxyStore, IsNotReadAgainUntilItIsUnloaded) {
  Settings("Proxy_address=a\r\n");
  EXPECT_EQ(ProxyDialog(client).proxy_addr, "a");
  Settings("Proxy_address=b\r\n");
  EXPECT_EQ(ProxyDialog(client).proxy_addr, "a");
  UnloadProxyDialog(client);
  EXPECT_EQ(ProxyDialog(client).proxy_addr, "b");
}

TEST_F(ProxyStore, WhatWasTypedAndNotAppliedIsInForceUntilTheUnload) {
  ProxyDialog(client).proxy_addr = "typed";
  EXPECT_EQ(ProxyDialog(client).proxy_addr, "typed");
  UnloadProxyDialog(client);
  EXPECT_EQ(ProxyDialog(client).proxy_addr, "");
}

TEST_F(ProxyStore, ACheckBoxIsOnAtOneOnly) {
  for (const auto& [value, on] : {std::pair{"1", true},
                                  {" 1 ", true},
                                  {"0", false},
                                  {"", false},
                                  {"True", false},
                                  {"2", false},
                                  {"99999999999", false}}) {
    Settings("Use_proxy=" + Text(value) + "\r\nAutentification=" + value + "\r\n");
    UnloadProxyDialog(client);
    EXPECT_EQ(ProxyDialog(client).use_proxy, on) << value;
    EXPECT_EQ(ProxyDialog(client).autentification, on) << value;
  }
}

TEST_F(ProxyStore, WithoutAProxyAConnectGoesToTheChat) {
  client.app.ChatHost = "chat.example";
  client.app.ChatPort = "8080";
  Settings("Use_proxy=0\r\nProxy_address=proxy.example\r\nProxy_port=3128\r\n");
  ConnectToService(client, *client.tab(0).Winsock1);
  EXPECT_EQ(Simulated(client.tab(0).Winsock1).host, "chat.example");
  EXPECT_EQ(Simulated(client.tab(0).Winsock1).port, "8080");
}

TEST_F(ProxyStore, WithAProxyAConnectGoesToTheProxy) {
  client.app.ChatHost = "chat.example";
  Settings("Use_proxy=1\r\nProxy_address=proxy.example\r\nProxy_port=3128\r\n");
  ConnectToService(client, *client.tab(0).Winsock5);
  EXPECT_EQ(Simulated(client.tab(0).Winsock5).host, "proxy.example");
  EXPECT_EQ(Simulated(client.tab(0).Winsock5).port, "3128");
}

TEST_F(ProxyStore, AProxyWithAnEmptyAddressIsConnectedToAsItStands) {
  client.app.ChatHost = "chat.example";
  Settings("Use_proxy=1\r\n");
  ConnectToService(client, *client.tab(0).Winsock1);
  EXPECT_EQ(Simulated(client.tab(0).Winsock1).host, "");
  EXPECT_EQ(Simulated(client.tab(0).Winsock1).port, "");
  EXPECT_TRUE(platform.desktop.boxes.empty());
}

}  // namespace
}  // namespace parlorwire
