#include "users/listed_user.h"

#include "users/user_list_fixture.h"

namespace parlorwire {
namespace {

struct ListedUserTest : UserListTest {
  // "nick" or "nick/IP" of the line with that text, "-" if it shows no user.
  Text UserAt(PanePosition at) { return Told(ListedUserAt(List(), at)); }
  Text Next(std::int64_t line, ListDirection direction) {
    return Told(NextListedUser(List(), line, direction));
  }
  Text Told(const std::optional<ListedUser>& user) {
    if (!user) return "-";
    EXPECT_EQ(List().TextBetween(user->nick_start, user->NickEnd()), user->nick);
    if (user->IP.empty()) return user->nick;
    EXPECT_EQ(List().TextBetween(user->IP_start, user->IP_start + Len(user->IP)), user->IP);
    return user->nick + "/" + user->IP;
  }
};

TEST_F(ListedUserTest, TheNickIsTheFirstColumnAndTheIPTheRedOne) {
  struct Case {
    const char* line;
    const char* user;
  };
  for (const Case& c :
       {Case{"bob|[+v][10.0.0.7:]'at work'", "bob/10.0.0.7"},
        Case{"bob|[+v][10.0.0.7:]''", "bob/10.0.0.7"},
        Case{"bob|[][10.0.*.*:]'at work'", "bob/10.0.*.*"},
        Case{"bob|[][10.0.0.7:]''", "bob/10.0.0.7"}, Case{"bob|[+A][10.0.0.7:]'x'", "bob/10.0.0.7"},
        Case{"bob|[+v -t][]'1.2.3.4'", "bob"}, Case{"bob|[][]'1.2.3.4'", "bob"},
        Case{"bob|[][]''", "bob"}, Case{"[bob]|[+o][1.1.1.1:]''", "[bob]/1.1.1.1"},
        Case{"big bob|[+o][1.1.1.1:]''", "big bob/1.1.1.1"}}) {
    Draw({"ann|[][]''", c.line});
    EXPECT_EQ(UserAt(At("b")), c.user) << c.line;
    EXPECT_EQ(UserAt(List().Length() - 3), c.user) << c.line;
  }
}

TEST_F(ListedUserTest, NicksInRedHideNoAddress) {
  app.rRichColors.Nicks = 0xFF;
  Draw({"bob|[][10.0.0.7:]'x'", "cid|[+v][10.0.0.8:]''", "dan|[][]''", "eve|[+v][]''"});
  EXPECT_EQ(UserAt(At("bob")), "bob/10.0.0.7");
  EXPECT_EQ(UserAt(At("cid")), "cid/10.0.0.8");
  EXPECT_EQ(UserAt(At("dan")), "dan");
  EXPECT_EQ(UserAt(At("eve")), "eve");
}

TEST_F(ListedUserTest, ANickThatIsTintedInPartsIsWhole) {
  Draw({"bob|[+v][10.0.0.7:]''"});
  List().ExSetSel(At("bob"), At("bob") + 2);
  List().SelColor(0xFF);
  EXPECT_EQ(UserAt(At("bob")), "bob/10.0.0.7");
}

TEST_F(ListedUserTest, BlankLinesAndNotesShowNoUser) {
  Draw({"bob|[][]''", "ann"});
  EXPECT_EQ(UserAt(0), "-");
  EXPECT_EQ(UserAt(2), "-");
  EXPECT_EQ(UserAt(At("bob")), "bob");
  EXPECT_EQ(UserAt(At("Ошибка"_w)), "-");
  EXPECT_EQ(UserAt(List().Length()), "-");
  List().Text("");
  EXPECT_EQ(UserAt(0), "-");
}

TEST_F(ListedUserTest, GoesFromUserToUserOverWhatIsNone) {
  Draw({"ann|[][]''", "bob|[][]''", "cid"});
  const std::int64_t ann = List().LineAt(At("ann"));
  EXPECT_EQ(Next(0, ListDirection::kDown), "ann");
  EXPECT_EQ(Next(ann, ListDirection::kDown), "ann");
  EXPECT_EQ(Next(ann + 1, ListDirection::kDown), "bob");
  EXPECT_EQ(Next(ann + 2, ListDirection::kDown), "-");
  EXPECT_EQ(Next(List().LineCount() - 1, ListDirection::kUp), "bob");
  EXPECT_EQ(Next(ann, ListDirection::kUp), "ann");
  EXPECT_EQ(Next(ann - 1, ListDirection::kUp), "-");
  EXPECT_EQ(Next(-1, ListDirection::kUp), "-");
  EXPECT_EQ(Next(List().LineCount(), ListDirection::kDown), "-");
}

TEST_F(ListedUserTest, FindsExactlyTheNick) {
  Draw({"bobby|[+v][]''", "Bob|[][]''", "joebob|[][]'bob'", "bob|[][1.1.1.1:]''"});
  EXPECT_EQ(Told(FindListedUser(List(), "bob")), "bob/1.1.1.1");
  EXPECT_EQ(Told(FindListedUser(List(), "Bob")), "Bob");
  EXPECT_EQ(Told(FindListedUser(List(), "bo")), "-");
  EXPECT_EQ(Told(FindListedUser(List(), "")), "-");
  EXPECT_EQ(Told(FindListedUser(List(), "bobby [+v]")), "-");
}

}  // namespace
}  // namespace parlorwire
