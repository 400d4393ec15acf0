#include "users/nick_menu.h"

#include "users/user_list_fixture.h"

namespace parlorwire {
namespace {

using testing::ElementsAre;

struct NickMenuTest : UserListTest {
  // What the menu shows, from top to bottom: "caption", items of a sub-menu behind "> ", lines as
  // "-".
  std::vector<std::string> Shown() {
    std::vector<std::string> shown;
    for (const NickMenuItem& item : kNickMenuTree) {
      if (!ParentShown(item) || !IsShown(app.nick_menu, item)) continue;
      const std::string indent = item.parent.empty() ? "" : "> ";
      shown.push_back(indent + (item.IsLine() ? "-" : ToUtf8(CaptionOf(app.nick_menu, item))));
    }
    return shown;
  }
  bool ParentShown(const NickMenuItem& item) {
    return std::ranges::all_of(kNickMenuTree, [&](const NickMenuItem& parent) {
      return parent.name != item.parent || IsShown(app.nick_menu, parent);
    });
  }
  std::vector<std::string> MenuOf(const Text& nick, int tab = 0) {
    ShowNickMenu(chat.client, tab, nick);
    return Shown();
  }
  const NickMenu& menu = app.nick_menu;
};

TEST_F(NickMenuTest, TheTree) {
  std::vector<std::string> rows;
  for (const NickMenuItem& item : kNickMenuTree)
    rows.push_back(std::string(item.name) + "|" + ToUtf8(item.caption) + "|" +
                   std::string(item.parent));
  EXPECT_THAT(
      rows, ElementsAre("nickname||", "line4||", "user_info|Инфо пользователя|",
                        "user_ip||user_info", "user_flags||user_info", "user_inf||user_info",
                        "line7||", "oper_commands|Комады оператора|", "lower|Lower|oper_commands",
                        "unlower|UnLower|oper_commands", "line8||oper_commands",
                        "kick|Kick|oper_commands", "ban|Ban|oper_commands", "line9||oper_commands",
                        "mute|Mute|oper_commands", "unmute|UnMute|oper_commands", "line5||",
                        "add_autokick|Добавить в автокик-лист|",
                        "this_channel|Только на этом канале|add_autokick",
                        "all_channels|На всех каналах|add_autokick", "line11||",
                        "send_pers|Отправить перс|", "line6||",
                        "change_message_color|Сменить цвет сообщений|"));
}

TEST_F(NickMenuTest, ARussianCaptionHasItsMeaningInEnglish) {
  for (const NickMenuItem& item : kNickMenuTree) {
    const bool russian = std::ranges::any_of(item.caption, [](char c) { return c < 0; });
    EXPECT_EQ(!item.english.empty(), russian) << item.name;
    EXPECT_TRUE(std::ranges::all_of(item.english, [](char c) { return c >= ' '; })) << item.name;
  }
}

TEST_F(NickMenuTest, AnOperatorSeesAllThatThereIs) {
  Draw({"ann|[][]''", "bob|[+v][10.0.0.7:]'at work'"});
  chat.tab().IsOperator = true;
  EXPECT_THAT(
      MenuOf("bob"),
      ElementsAre("bob", "-", "Инфо пользователя", "> 10.0.0.7", "> [+v]", "> at work", "-",
                  "Комады оператора", "> Lower", "> UnLower", "> -", "> Kick", "> Ban", "> -",
                  "> Mute", "> UnMute", "-", "Добавить в автокик-лист", "> Только на этом канале",
                  "> На всех каналах", "-", "Отправить перс", "-", "Сменить цвет сообщений"));
  EXPECT_EQ(nick_menus, 1);
}

TEST_F(NickMenuTest, WhoIsNoOperatorSeesNoCommandsAndNothingElseIsMissing) {
  Draw({"bob|[+v][10.0.0.7:]'at work'"});
  EXPECT_THAT(MenuOf("bob"),
              ElementsAre("bob", "-", "Инфо пользователя", "> 10.0.0.7", "> [+v]", "> at work", "-",
                          "Добавить в автокик-лист", "> Только на этом канале", "> На всех каналах",
                          "-", "Отправить перс", "-", "Сменить цвет сообщений"));
}

TEST_F(NickMenuTest, WhoIsNotOnTheListHasNoInformation) {
  Draw({"bobby|[+v][10.0.0.7:]'at work'", "Bob|[+o][10.0.0.8:]''"});
  EXPECT_THAT(MenuOf("bob"), ElementsAre("bob", "-", "Добавить в автокик-лист",
                                         "> Только на этом канале", "> На всех каналах", "-",
                                         "Отправить перс", "-", "Сменить цвет сообщений"));
}

TEST_F(NickMenuTest, OnlyWhatIsKnownOfANickIsShown) {
  struct Case {
    const char* line;
    std::vector<std::string> information;
  };
  for (const Case& c :
       {Case{"bob|[][10.0.0.7:]''", {"> 10.0.0.7"}}, Case{"bob|[+v][]''", {"> [+v]"}},
        Case{"bob|[][]'busy'", {"> busy"}}, Case{"bob|[+v][]'busy'", {"> [+v]", "> busy"}},
        Case{"bob|[][10.0.0.7:]'busy'", {"> 10.0.0.7", "> busy"}}}) {
    Draw({"ann|[+o][1.1.1.1:]'x'", c.line, "cid|[+o][1.1.1.1:]'x'"});
    std::vector<std::string> expected = {"bob", "-", "Инфо пользователя"};
    expected.insert(expected.end(), c.information.begin(), c.information.end());
    std::vector<std::string> shown = MenuOf("bob");
    shown.resize(expected.size() + 1);
    expected.push_back("-");
    EXPECT_EQ(shown, expected) << c.line;
  }
}

TEST_F(NickMenuTest, ARecordOfThreeEmptyFieldsIsNoInformation) {
  Draw({"bob|[][]''"});
  EXPECT_THAT(MenuOf("bob").at(2), "Добавить в автокик-лист");
  EXPECT_FALSE(menu.user_info);
}

TEST_F(NickMenuTest, NothingOfTheLastNickIsLeft) {
  Draw({"bob|[+v][10.0.0.7:]'at work'", "ann|[][]'busy'"});
  MenuOf("bob");
  EXPECT_THAT(MenuOf("ann"), testing::Contains("> busy"));
  EXPECT_THAT(Shown(), testing::Not(testing::Contains("> 10.0.0.7")));
  MenuOf("nobody");
  EXPECT_FALSE(menu.user_info);
}

TEST_F(NickMenuTest, OfTwoRecordsTheFirstCounts) {
  chat.tab().UsersText.Append("bob", "1.1.1.1", "", "");
  chat.tab().UsersText.Append("bob", "2.2.2.2", "", "");
  MenuOf("bob");
  EXPECT_EQ(menu.user_ip, "1.1.1.1");
}

TEST_F(NickMenuTest, ItIsTheListOfTheTabWhereTheNickWasClicked) {
  Draw({"bob|[+v][10.0.0.7:]''"}, 0);
  Draw({"bob|[+o][10.9.9.9:]''"}, 3);
  chat.tab(3).IsOperator = true;
  MenuOf("bob", 3);
  EXPECT_EQ(menu.tab, 3);
  EXPECT_EQ(menu.user_ip, "10.9.9.9");
  EXPECT_TRUE(menu.oper_commands);
  MenuOf("bob", 0);
  EXPECT_FALSE(menu.oper_commands);
}

TEST_F(NickMenuTest, WithTheRightsTheCommandsAreGone) {
  Draw({"alice|[+o -t][]''", "bob|[][]''"});
  EXPECT_THAT(MenuOf("bob"), testing::Contains("Комады оператора"));
  chat.tab().ActionsArmed = true;
  chat.client.hooks.ClientAction("alice больше не оператор канала"_w, 0);
  EXPECT_THAT(MenuOf("bob"), testing::Not(testing::Contains("Комады оператора")));
}

TEST_F(NickMenuTest, ThePaneOpensItByItsHook) {
  Draw({"bob|[+v][]''"});
  chat.client.hooks.ShowNickMenu(0, "bob");
  EXPECT_EQ(menu.user_flags, "[+v]");
  EXPECT_EQ(nick_menus, 1);
}

// ---- items ----

TEST_F(NickMenuTest, ACopiedCaptionGoesAheadInMsgOfTheActiveTab) {
  chat.platform.desktop.active_tab = 2;
  chat.platform.desktop.at(2).msg = "hello";
  CopyIntoMsg(chat.client, "at work");
  EXPECT_EQ(chat.platform.desktop.at(2).msg, "at work hello");
  EXPECT_EQ(chat.platform.desktop.focused_msg, 2);
  CopyIntoMsg(chat.client, "at work");
  EXPECT_EQ(chat.platform.desktop.at(2).msg, "at work at work hello");
}

TEST_F(NickMenuTest, APersonalMessageIsForTheNickOfTheMenuAndForTheActiveTab) {
  std::vector<int> opened_for;
  chat.client.hooks.pers = [&](int tab) { opened_for.push_back(tab); };
  chat.platform.desktop.active_tab = 2;
  app.MenuNick = "bob";
  send_pers(chat.client);
  EXPECT_EQ(app.PersTargetNick, "bob");
  chat.platform.time.Advance(9);
  EXPECT_THAT(opened_for, ElementsAre());
  chat.platform.time.Advance(100);
  EXPECT_THAT(opened_for, ElementsAre(2));
}

TEST_F(NickMenuTest, WhatWasSelectedWhenTheMenuCameUpIsCopied) {
  Draw({"bob|[+v][]'at work'"});
  List().ExSetSel(At("at work"), At("at work") + 7);
  ShowMenuCopyUsers(chat.client, 0, At("at work"));
  EXPECT_EQ(copy_menus, 1);
  Draw({"ann|[][]''"});
  text_copy_users(chat.client);
  EXPECT_EQ(chat.platform.clipboard.text, "at work");
}

TEST_F(NickMenuTest, OutsideTheSelectionNoCopyMenuComesUp) {
  Draw({"bob|[+v][]'at work'"});
  List().ExSetSel(At("at work"), At("at work") + 7);
  ShowMenuCopyUsers(chat.client, 0, At("at work") + 7);
  ShowMenuCopyUsers(chat.client, 0, At("at work") - 1);
  EXPECT_EQ(copy_menus, 0);
}

}  // namespace
}  // namespace parlorwire
