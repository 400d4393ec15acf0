#include "shell/login_dialog.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "session/ini.h"
#include "support/simulated_platform.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

struct Login : testing::Test {
  Login() { app.ChatHost = "chat.example"; }

  Text& file() { return platform.files.files["config.ini"]; }
  void Settings(const Text& lines) { file() = "[Main]\r\n" + lines; }
  Text Main(const Text& key) { return ReadIni(client, "Main", key); }

  // Saved logins nick0, nick1, ... with pass0, room0, cpw0 and so on.
  void SavedLogins(int count) {
    Text lines = "Logins=" + std::to_string(count) + "\r\n";
    for (int i = 0; i < count; ++i) {
      const Text n = std::to_string(i);
      lines += "Login" + n + "=nick" + n + "\r\nPassw" + n + "=pass" + n + "\r\nChannel" + n +
               "=room" + n + "\r\nChPwd" + n + "=cpw" + n + "\r\n";
    }
    Settings(lines);
  }

  // What a user types into an emptied dialog.
  LoginDialog Typed(const Text& nick, const Text& pass = "secret", const Text& room = "lobby",
                    const Text& channel_password = "") {
    LoginDialog dialog = FillLoginDialog(client);
    EditLogin(client, dialog, nick);
    dialog.pass = pass;
    dialog.room = room;
    dialog.channel_pwd_input = channel_password;
    return dialog;
  }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  AppState& app = client.app;
  SimulatedDesktop& desktop = platform.desktop;
};

// ---- filling ----

TEST_F(Login, WithNoSavedLoginAllIsEmpty) {
  const LoginDialog dialog = FillLoginDialog(client);
  EXPECT_TRUE(dialog.logins.empty());
  EXPECT_EQ(dialog.selected, -1);
  EXPECT_EQ(dialog.login, "");
  EXPECT_EQ(dialog.pass, "");
  EXPECT_EQ(dialog.room, "");
  EXPECT_EQ(dialog.channel_pwd_input, "");
  EXPECT_FALSE(dialog.save_pass);
  EXPECT_EQ(app.LoginCount, 0);
}

TEST_F(Login, TheLastLoginIsSelected) {
  SavedLogins(3);
  file() += "lastIndex=2\r\n";
  const LoginDialog dialog = FillLoginDialog(client);
  EXPECT_EQ(dialog.logins, (std::vector<Text>{"nick0", "nick1", "nick2"}));
  EXPECT_EQ(dialog.selected, 2);
  EXPECT_EQ(dialog.login, "nick2");
  EXPECT_EQ(dialog.pass, "pass2");
  EXPECT_EQ(dialog.room, "room2");
  EXPECT_EQ(dialog.channel_pwd_input, "cpw2");
  EXPECT_TRUE(dialog.save_pass);
  EXPECT_EQ(app.LoginCount, 3);
  EXPECT_EQ(app.LastLoginIndex, 2);
}

TEST_F(Login, LastIndexIsReadOnlyWhileItIsZero) {
  SavedLogins(3);
  file() += "lastIndex=2\r\n";
  app.LastLoginIndex = 1;
  EXPECT_EQ(FillLoginDialog(client).selected, 1);
}

TEST_F(Login, LastIndexIsNotReadWithoutLogins) {
  Settings("lastIndex=2\r\n");
  FillLoginDialog(client);
  EXPECT_EQ(app.LastLoginIndex, 0);
}

TEST_F(Login, OneEntryMoreThanTheNumberOfLoginsIsRead) {
  SavedLogins(3);
  WriteIni(client, "Main", "Logins", "2");
  EXPECT_EQ(FillLoginDialog(client).logins, (std::vector<Text>{"nick0", "nick1", "nick2"}));
  Settings("Login0=bob\r\nPassw0=p\r\n");
  const LoginDialog dialog = FillLoginDialog(client);
  EXPECT_EQ(dialog.login, "bob");
  EXPECT_EQ(dialog.pass, "p");
}

TEST_F(Login, AnEmptyLoginIsSkippedInTheListAndItsNeighboursShift) {
  SavedLogins(3);
  WriteIni(client, "Main", "Login1", "  ");
  LoginDialog dialog = FillLoginDialog(client);
  EXPECT_EQ(dialog.logins, (std::vector<Text>{"nick0", "nick2"}));
  ChooseLogin(client, dialog, 1);
  EXPECT_EQ(dialog.login, "nick2");
  EXPECT_EQ(dialog.pass, "pass1");
  EXPECT_EQ(dialog.room, "room1");
  EXPECT_EQ(dialog.channel_pwd_input, "cpw1");
}

TEST_F(Login, ALastIndexBehindTheListSelectsNothingAndShowsWhatIsSavedThere) {
  SavedLogins(2);
  file() += "lastIndex=2\r\nPassw2=left over\r\n";
  const LoginDialog dialog = FillLoginDialog(client);
  EXPECT_EQ(dialog.selected, -1);
  EXPECT_EQ(dialog.login, "");
  EXPECT_EQ(dialog.pass, "left over");
}

TEST_F(Login, BadNumbersAreZero) {
  for (const char* value : {"x", "", "99999"}) {
    Settings("Login0=bob\r\nlastIndex=" + Text(value) + "\r\nLogins=" + value + "\r\n");
    EXPECT_EQ(FillLoginDialog(client).login, "bob") << value;
    EXPECT_EQ(app.LoginCount, 0);
    EXPECT_EQ(app.LastLoginIndex, 0);
  }
  Settings("Login0=bob\r\nLogins=-3\r\nlastIndex=-7\r\n");
  EXPECT_TRUE(FillLoginDialog(client).logins.empty());
}

TEST_F(Login, NoMoreThanAHundredLoginsAreRead) {
  SavedLogins(120);
  const LoginDialog dialog = FillLoginDialog(client);
  EXPECT_EQ(dialog.logins.size(), 100U);
  EXPECT_EQ(app.SavedPassword[99], "pass99");
}

TEST_F(Login, EveryFillReadsTheFileAnew) {
  SavedLogins(1);
  FillLoginDialog(client);
  SavedLogins(2);
  EXPECT_EQ(FillLoginDialog(client).logins.size(), 2U);
}

// ---- choosing and editing ----

TEST_F(Login, ChoosingAnEntryShowsWhatIsSavedForIt) {
  SavedLogins(3);
  LoginDialog dialog = FillLoginDialog(client);
  ChooseLogin(client, dialog, 1);
  EXPECT_EQ(dialog.selected, 1);
  EXPECT_EQ(dialog.login, "nick1");
  EXPECT_EQ(dialog.pass, "pass1");
  EXPECT_EQ(dialog.room, "room1");
  EXPECT_EQ(dialog.channel_pwd_input, "cpw1");
}

TEST_F(Login, ChoosingNoEntryChangesNothing) {
  SavedLogins(2);
  LoginDialog dialog = FillLoginDialog(client);
  ChooseLogin(client, dialog, 2);
  ChooseLogin(client, dialog, -1);
  EXPECT_EQ(dialog.selected, 0);
  EXPECT_EQ(dialog.pass, "pass0");
}

TEST_F(Login, SavePassIsTickedWhereAPasswordIsSaved) {
  SavedLogins(2);
  WriteIni(client, "Main", "Passw1", "");
  LoginDialog dialog = FillLoginDialog(client);
  EXPECT_TRUE(dialog.save_pass);
  ChooseLogin(client, dialog, 1);
  EXPECT_FALSE(dialog.save_pass);
  ChooseLogin(client, dialog, 0);
  EXPECT_TRUE(dialog.save_pass);
  EditLogin(client, dialog, "nick");
  EXPECT_FALSE(dialog.save_pass);
}

TEST_F(Login, SavePassStaysAsTheUserHasClickedItWhileTheNickIsTyped) {
  LoginDialog dialog = FillLoginDialog(client);
  save_pass_Click(dialog, true);
  EditLogin(client, dialog, "n");
  EditLogin(client, dialog, "ni");
  EXPECT_TRUE(dialog.save_pass);
  save_pass_Click(dialog, false);
  EditLogin(client, dialog, "nic");
  EXPECT_FALSE(dialog.save_pass);
}

TEST_F(Login, ChoosingAnEntryEndsTheUsersOwnTick) {
  SavedLogins(2);
  WriteIni(client, "Main", "Passw1", "");
  LoginDialog dialog = FillLoginDialog(client);
  save_pass_Click(dialog, false);
  save_pass_Click(dialog, true);
  EditLogin(client, dialog, "nick");
  EXPECT_TRUE(dialog.save_pass);
  ChooseLogin(client, dialog, 1);
  EXPECT_FALSE(dialog.save_pass);
  ChooseLogin(client, dialog, 0);
  EditLogin(client, dialog, "nick");
  EXPECT_FALSE(dialog.save_pass);
}

TEST_F(Login, EditingTheNickEmptiesTheOtherFields) {
  SavedLogins(1);
  LoginDialog dialog = FillLoginDialog(client);
  EditLogin(client, dialog, "nick");
  EXPECT_EQ(dialog.selected, -1);
  EXPECT_EQ(dialog.login, "nick");
  EXPECT_EQ(dialog.pass, "");
  EXPECT_EQ(dialog.room, "");
  EXPECT_EQ(dialog.channel_pwd_input, "");
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(Login, WithNinetyNineNicksAnotherCanBeTyped) {
  SavedLogins(99);
  LoginDialog dialog = FillLoginDialog(client);
  EditLogin(client, dialog, "b");
  EXPECT_EQ(dialog.login, "b");
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(Login, WithAHundredNicksATypedCharacterRaisesTheMessageAndSelectsTheFirst) {
  SavedLogins(100);
  LoginDialog dialog = FillLoginDialog(client);
  ChooseLogin(client, dialog, 50);
  EditLogin(client, dialog, "nick50b");
  EXPECT_EQ(desktop.boxes, (std::vector<SimulatedDesktop::Box>{
                               {"Максимальное число ников - 100"_w, BoxIcon::kStop, false}}));
  EXPECT_EQ(dialog.selected, 0);
  EXPECT_EQ(dialog.login, "nick0");
  EXPECT_EQ(dialog.pass, "pass0");
  app.Language = UiLanguage::kEnglish;
  EditLogin(client, dialog, "x");
  EXPECT_EQ(desktop.boxes.back().text, "Maximum number of nicks - 100");
}

// ---- Connect ----

TEST_F(Login, ConnectGivesTheActiveTabWhatStandsInTheFields) {
  LoginDialog dialog = Typed("  bob  ", " secret ", " lobby", "door ");
  desktop.active_tab = 4;
  const LoginOutcome outcome = ConnectByDialog(client, dialog);
  EXPECT_TRUE(outcome.hide);
  EXPECT_EQ(outcome.focus, LoginField::kNone);
  const TabSession& tab = client.tab(4);
  EXPECT_EQ(tab.Login, "bob");
  EXPECT_EQ(tab.Password, " secret ");
  EXPECT_EQ(tab.Channel, " lobby");
  EXPECT_EQ(tab.ChannelPassword, "door ");
  EXPECT_TRUE(tab.LoginShown);
  EXPECT_TRUE(tab.Connecting);
  EXPECT_EQ(Simulated(tab.Winsock1).host, "chat.example");
  EXPECT_EQ(Simulated(client.tab(0).Winsock1).connects, 0);
  EXPECT_EQ(desktop.focused_msg, 4);
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(Login, ConnectEmptiesThePaneOfTheTab) {
  client.tab(0).Rich.Text("old lines");
  LoginDialog dialog = Typed("bob");
  ConnectByDialog(client, dialog);
  EXPECT_FALSE(Contains(client.tab(0).Rich.Text(), "old lines"));
}

TEST_F(Login, ATabThatIsNotVisibleIsShownBeforeItConnects) {
  struct Watched : SimulatedDesktop {
    explicit Watched(Client*& watched) : client(watched) {}
    void SetActiveTab(int tab) override {
      shown = tab;
      visible_when_shown = TabVisible(tab);
      login_shown_when_shown = client->tab(tab).LoginShown;
      connecting_when_shown = client->tab(tab).Connecting;
      SimulatedDesktop::SetActiveTab(tab);
    }
    Client*& client;
    int shown = -1;
    bool visible_when_shown = false;
    bool login_shown_when_shown = false;
    bool connecting_when_shown = true;
  };
  Client* watched_client = nullptr;
  Watched watched(watched_client);
  Client shown_client(platform.Ports(watched));
  watched_client = &shown_client;
  watched.active_tab = 2;
  LoginDialog dialog = Typed("bob");
  ConnectByDialog(shown_client, dialog);
  EXPECT_EQ(watched.shown, 2);
  EXPECT_TRUE(watched.visible_when_shown);
  EXPECT_TRUE(watched.login_shown_when_shown);  // so that the click does not raise the dialog
  EXPECT_FALSE(watched.connecting_when_shown);
  EXPECT_EQ(watched.focused_msg, 2);

  watched.shown = -1;
  ConnectByDialog(shown_client, dialog);
  EXPECT_EQ(watched.shown, -1);
}

TEST_F(Login, ASelectedEntryIsTakenAsItStands) {
  Settings("Logins=1\r\nLogin0=\" bob \"\r\nPassw0=p\r\n");
  LoginDialog dialog = FillLoginDialog(client);
  ASSERT_EQ(dialog.login, " bob ");
  ConnectByDialog(client, dialog);
  EXPECT_EQ(client.tab(0).Login, " bob ");
}

TEST_F(Login, WithoutANickThereIsAMessageAndNothingIsSaved) {
  LoginDialog dialog = Typed("   ", "secret", "lobby", "door");
  const LoginOutcome outcome = ConnectByDialog(client, dialog);
  EXPECT_FALSE(outcome.hide);
  EXPECT_EQ(outcome.focus, LoginField::kLogin);
  ASSERT_EQ(desktop.boxes.size(), 1U);
  EXPECT_EQ(desktop.boxes[0].text, "Пожалуйста, введите Ваш ник"_w);
  EXPECT_EQ(file(), "");
  EXPECT_EQ(Simulated(client.tab(0).Winsock1).connects, 0);
  EXPECT_FALSE(client.tab(0).LoginShown);
  EXPECT_FALSE(desktop.TabVisible(0));
  app.Language = UiLanguage::kEnglish;
  ConnectByDialog(client, dialog);
  EXPECT_EQ(desktop.boxes[1].text, "Please, enter your nickname");
}

TEST_F(Login, WithoutAPasswordThereIsAMessageAndNothingIsSaved) {
  LoginDialog dialog = Typed("bob", "  ");
  const LoginOutcome outcome = ConnectByDialog(client, dialog);
  EXPECT_FALSE(outcome.hide);
  EXPECT_EQ(outcome.focus, LoginField::kPass);
  ASSERT_EQ(desktop.boxes.size(), 1U);
  EXPECT_EQ(desktop.boxes[0].text, "Пожалуйста, введите Ваш пароль"_w);
  EXPECT_EQ(file(), "");
  app.Language = UiLanguage::kEnglish;
  ConnectByDialog(client, dialog);
  EXPECT_EQ(desktop.boxes[1].text, "Please, enter your password");
}

TEST_F(Login, TheTabTakesTheFieldsBeforeTheyAreChecked) {
  LoginDialog dialog = Typed("bob", "", "lobby", "door");
  ConnectByDialog(client, dialog);
  EXPECT_EQ(client.tab(0).Login, "bob");
  EXPECT_EQ(client.tab(0).Channel, "lobby");
  EXPECT_EQ(client.tab(0).ChannelPassword, "door");
}

TEST_F(Login, ANewNickIsSavedBehindTheOthers) {
  SavedLogins(2);
  LoginDialog dialog = Typed(" bob ", "secret", "lobby", "door");
  ConnectByDialog(client, dialog);
  EXPECT_EQ(Main("Login2"), "bob");
  EXPECT_EQ(Main("Channel2"), "lobby");
  EXPECT_EQ(Main("ChPwd2"), "door");
  EXPECT_EQ(Main("Passw2"), "");
  EXPECT_EQ(Main("Logins"), "3");
  EXPECT_EQ(app.LoginCount, 3);
  EXPECT_EQ(dialog.logins.back(), "bob");
  EXPECT_EQ(app.LastLoginIndex, 0);  // a new nick isn't preselected next time
}

TEST_F(Login, TheFirstNickOfAllIsFoundAgain) {
  LoginDialog dialog = Typed("bob");
  dialog.save_pass = true;
  ConnectByDialog(client, dialog);
  EXPECT_EQ(file(),
            "[Main]\r\nLogin0=bob\r\nChPwd0=\r\nChannel0=lobby\r\nPassw0=secret\r\nLogins=1\r\n");
  const LoginDialog next = FillLoginDialog(client);
  EXPECT_EQ(next.login, "bob");
  EXPECT_EQ(next.pass, "secret");
  EXPECT_EQ(next.room, "lobby");
  EXPECT_TRUE(next.save_pass);
}

TEST_F(Login, AKnownNickInAnotherCaseReusesItsEntry) {
  Settings("Logins=2\r\nLogin0=al\r\nLogin1=bob\r\nPassw1=old\r\n");
  LoginDialog dialog = Typed(" Bob ", "new", "lobby", "door");
  ConnectByDialog(client, dialog);
  EXPECT_EQ(dialog.logins.size(), 2U);
  EXPECT_EQ(Main("Login1"), "bob");
  EXPECT_EQ(Main("Channel1"), "lobby");
  EXPECT_EQ(Main("ChPwd1"), "door");
  EXPECT_EQ(Main("Passw1"), "old");
  EXPECT_EQ(Main("Logins"), "2");
  EXPECT_EQ(app.LastLoginIndex, 1);
  EXPECT_EQ(client.tab(0).Login, "Bob");
}

TEST_F(Login, ASelectedEntryIsRewrittenAndRemembered) {
  SavedLogins(3);
  LoginDialog dialog = FillLoginDialog(client);
  ChooseLogin(client, dialog, 2);
  dialog.room = "other";
  dialog.channel_pwd_input = "key";
  dialog.pass = "changed";
  ConnectByDialog(client, dialog);
  EXPECT_EQ(Main("Channel2"), "other");
  EXPECT_EQ(Main("ChPwd2"), "key");
  EXPECT_EQ(Main("Passw2"), "changed");
  EXPECT_EQ(app.LastLoginIndex, 2);
  EXPECT_EQ(Main("lastIndex"), "");  // that is saved at the end of the program
}

TEST_F(Login, APasswordStaysWhenItIsNotToBeSaved) {
  SavedLogins(1);
  LoginDialog dialog = FillLoginDialog(client);
  dialog.save_pass = false;
  dialog.pass = "changed";
  ConnectByDialog(client, dialog);
  EXPECT_EQ(Main("Passw0"), "pass0");
  EXPECT_EQ(client.tab(0).Password, "changed");
}

TEST_F(Login, APasswordIsStoredAsTypedAndReadByTheRulesOfTheFile) {
  LoginDialog dialog = Typed("bob", " a;b=\"c ");
  dialog.save_pass = true;
  ConnectByDialog(client, dialog);
  EXPECT_TRUE(Contains(file(), "\r\nPassw0= a;b=\"c \r\n"));
  EXPECT_EQ(FillLoginDialog(client).pass, "a;b=\"c");
}

TEST_F(Login, ASkippedEntryShiftsWhereANewNickIsSaved) {
  SavedLogins(3);
  WriteIni(client, "Main", "Login1", "");
  LoginDialog dialog = Typed("bob");
  ConnectByDialog(client, dialog);
  EXPECT_EQ(Main("Login2"), "bob");  // over nick2
  EXPECT_EQ(Main("Logins"), "3");
}

TEST_F(Login, EventsInsideTheWritesMayChangeTheFields) {
  LoginDialog dialog = Typed("bob", "secret", "a long name of a channel, to be on the heap");
  desktop.on_yield = [&] { dialog.room = Text(100, 'x'); };
  ConnectByDialog(client, dialog);
  EXPECT_EQ(client.tab(0).Channel, "a long name of a channel, to be on the heap");
}

// ---- closing ----

TEST_F(Login, ClosingWithNoConnectionAsksWhetherToQuit) {
  client.tab(3).EverConnected = true;
  desktop.answers = {true, false};
  EXPECT_TRUE(CloseLoginDialog(client));
  EXPECT_FALSE(CloseLoginDialog(client));
  app.Language = UiLanguage::kEnglish;
  EXPECT_FALSE(CloseLoginDialog(client));
  EXPECT_EQ(desktop.boxes[0],
            (SimulatedDesktop::Box{"Вы не подключены ни к одному каналу. Выйти из программы?"_w,
                                   BoxIcon::kQuestion, true, BoxAnswer::kNo}));
  EXPECT_EQ(desktop.boxes[2].text, "You don't connected. Quit the programm?");
}

TEST_F(Login, ClosingHidesATabThatWasNeverUsed) {
  desktop.tabs[1].visible = desktop.tabs[5].visible = desktop.tabs[7].visible = true;
  client.tab(7).Connected = true;
  desktop.active_tab = 5;
  EXPECT_FALSE(CloseLoginDialog(client));
  EXPECT_EQ(desktop.active_tab, 1);
  EXPECT_FALSE(desktop.TabVisible(5));
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(Login, ClosingKeepsATabThatWasUsed) {
  for (bool TabSession::* flag : std::initializer_list<bool TabSession::*>{
           &TabSession::IsChannelList, &TabSession::Connected, &TabSession::Connecting,
           &TabSession::EverConnected, &TabSession::LoginShown}) {
    client.tab(0).Connecting = true;
    desktop.tabs[0].visible = desktop.tabs[5].visible = true;
    desktop.active_tab = 5;
    client.tab(5).*flag = true;
    EXPECT_FALSE(CloseLoginDialog(client));
    EXPECT_TRUE(desktop.TabVisible(5));
    EXPECT_EQ(desktop.active_tab, 5);
    client.tab(5).*flag = false;
  }
}

TEST_F(Login, EachKindOfConnectionKeepsTheQuestionAway) {
  for (bool TabSession::* flag :
       {&TabSession::IsChannelList, &TabSession::Connected, &TabSession::Connecting}) {
    client.tab(9).*flag = true;
    CloseLoginDialog(client);
    client.tab(9).*flag = false;
  }
  EXPECT_TRUE(desktop.boxes.empty());
}

TEST_F(Login, ClosingWithNoOtherVisibleTabKeepsThisOne) {
  client.tab(9).Connected = true;
  desktop.tabs[0].visible = true;
  EXPECT_FALSE(CloseLoginDialog(client));
  EXPECT_TRUE(desktop.TabVisible(0));
}

// ---- the rest ----

TEST_F(Login, TheAccountPageIsTheServicesOwn) {
  Text url;
  client.hooks.OpenUrl = [&](const Text& opened) { url = opened; };
  app.ChatPort = "80";
  button_getAccount(client);
  EXPECT_EQ(url, "http://chat.example/rulez.html");
  app.ChatPort = "8080";
  button_getAccount(client);
  EXPECT_EQ(url, "http://chat.example:8080/rulez.html");
}

TEST_F(Login, TheConnectButtonAddsATabOnceTheActiveOneIsInUse) {
  EXPECT_FALSE(ConnectMainAddsTab(client));
  client.tab(0).IsChannelList = true;
  EXPECT_FALSE(ConnectMainAddsTab(client));
  client.tab(0).Connecting = true;
  EXPECT_TRUE(ConnectMainAddsTab(client));
  client.tab(0).Connecting = false;
  client.tab(0).Connected = true;
  EXPECT_TRUE(ConnectMainAddsTab(client));
  desktop.active_tab = 1;
  EXPECT_FALSE(ConnectMainAddsTab(client));
}

TEST(LoginDialogTexts, StandInBothLanguages) {
  const std::vector<std::vector<Text>> expected = {
      {"l_login", "Логин:"_w, "Login:"},
      {"l_pass", "Пароль:"_w, "Password:"},
      {"l_room", "Канал*:"_w, "Room*:"},
      {"l_channel_pwd", "Пароль канала**:"_w, "Channel passw**:"},
      {"save_pass", "Запомнить пароль"_w, "Save the password"},
      {"connect_param", "Дополнительно"_w, "Advanced"},
      {"l_primechanie", "* При пустом поле загрузится список каналов"_w, "* ???"},
      {"l_primechanie1", "** Необязательное поле"_w, "** ???"}};
  std::vector<std::vector<Text>> texts;
  for (const auto& [control, text] : kLoginDialogTexts)
    texts.push_back(
        {Text(control), Text(text.In(UiLanguage::kRussian)), Text(text.In(UiLanguage::kEnglish))});
  EXPECT_EQ(texts, expected);
}

}  // namespace
}  // namespace parlorwire
