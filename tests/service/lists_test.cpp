#include "service/lists.h"

#include <gtest/gtest.h>

#include "chat_fixture.h"
#include "service/personal.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

// alice is the operator of "hall", and bo&b is there.
struct ListsTest : ChatFixture {
  ListsTest() {
    Come("alice");
    Come("bo&b");
  }

  Channel& hall() { return *FindChannel(chat, "hall"); }
  Account& alice() { return chat.accounts.at("alice"); }

  const Visitor visitor{"alice", "TICKET", "hall", "key"};
};

TEST_F(ListsTest, UsersInFormA) {
  chat.accounts.at("bo&b").status = "at 'work' <1>";
  Say("alice", "/mo -t");
  EXPECT_EQ(UserFrame(hall(), alice(), visitor, false),
            "<title>users</title>\n<!-- -->\n\n\n"
            "alice|[+o-t][10.0.0.1:]''\nbo&amp;b|[][10.0.0.1:]'at work &lt;1&gt;'\n");
}

TEST_F(ListsTest, UsersInFormB) {
  EXPECT_EQ(UserFrame(hall(), alice(), visitor, true),
            "<title>users</title>\n<meta http-equiv=\"refresh\" content=\"60\">\n\n\n"
            "<tr>\n10.0.0.1:[+o]alice\n<tr>\n10.0.0.1:[]bo&amp;b\n");
}

TEST_F(ListsTest, UsersCarryAScriptWhilePersonalMessagesWait) {
  const Text script =
      "<script>\nwindow.open('/mframe_pm?username=alice&ticket=TICKET', 'personal')\n</script>\n";
  SendPersonal(chat, alice(), "alice", "note", now);
  EXPECT_TRUE(Contains(UserFrame(hall(), alice(), visitor, false), "\n\n\n" + script + "alice|"));
  EXPECT_TRUE(UserFrame(hall(), alice(), visitor, true).ends_with("bo&amp;b\n" + script));
  Acknowledge(alice(), 1);
  EXPECT_FALSE(Contains(UserFrame(hall(), alice(), visitor, false), "<script"));
}

TEST_F(ListsTest, UsersForBrowsersArePageWithLinks) {
  const Text page = UserPage(hall(), alice(), visitor);
  EXPECT_TRUE(Contains(page, "<li><b>alice</b> [+o] 10.0.0.1 \n<li><b>bo&amp;b</b> [] "));
  for (const char* path : {"/banlist", "/oplist", "/topic_hist"})
    EXPECT_TRUE(
        Contains(page, "'" + Text(path) + "?username=alice&channel=hall&chpwd=key&ticket=TICKET'"))
        << path;
}

TEST_F(ListsTest, UsersForBrowsersLeadToThePersonalMessagesThatWait) {
  const Text link = "<a href='/mframe_pm?username=alice&ticket=TICKET' target=\"personal\">";
  EXPECT_FALSE(Contains(UserPage(hall(), alice(), visitor), "/mframe_pm"));
  SendPersonal(chat, alice(), "alice", "note", now);
  EXPECT_TRUE(Contains(UserPage(hall(), alice(), visitor), link));
}

TEST_F(ListsTest, ChannelsForRobots) {
  chat.channels.at("hall").password = "key";
  Say("alice", "/topic all user: here");
  EXPECT_EQ(ChannelList(chat),
            "этот стиль (номер 9) предназначен для роботов\n"
            "\nchannel: hall\nchflags: +k\ntopic: all user : here\n"
            "user: alice\t[+o]\nuser: bo&b\t[]\n"_w);
}

TEST_F(ListsTest, ChannelsForBrowsersAreLinksIntoThem) {
  const Text page = SelectionPage(chat, visitor);
  EXPECT_TRUE(page.starts_with("<HTML>\n<HEAD>\n<TITLE>Select/Create channel</TITLE>\n"));
  EXPECT_TRUE(Contains(page,
                       "<li><a href='/room?username=alice&channel=hall&chpwd=key&ticket=TICKET' "
                       "target=\"_top\">hall</a>\n (2)\n"));
}

TEST_F(ListsTest, BansTellOfWhomWhyByWhomAndUntilWhen) {
  hall().bans = {{"10.*", "<spam>", "bo&b", now.local - 86400, kForever},
                 {"troll", "", "alice", now.local, now.ms + 59001},
                 {"gone", "", "alice", now.local, now.ms}};
  hall().muted["carol"] = {"Carol", "", "alice", now.local, now.ms + 86400000};
  hall().lowered["dave"] = {"Dave", "loud", "alice", now.local, kForever};
  const Text page = BanListPage(hall(), now);
  EXPECT_TRUE(Contains(page, "<h1>Бан-лист канала hall</h1>"_w));
  EXPECT_TRUE(Contains(page,
                       "<tr><td>05/05/2024 07:08:09</td><td>10.*</td><td>входа на канал</td>"
                       "<td>&lt;spam&gt;</td><td>bo&amp;b</td><td>навсегда</td></tr>\n"
                       "<tr><td>07:08:09</td><td>troll</td><td>входа на канал</td><td></td>"
                       "<td>alice</td><td>07:09:09 (еще 60 с)</td></tr>\n"
                       "<tr><td>07:08:09</td><td>Carol</td><td>права голоса</td><td></td>"
                       "<td>alice</td><td>07/05/2024 07:08:09 (еще 86400 с)</td></tr>\n"
                       "<tr><td>07:08:09</td><td>Dave</td><td>заглавных букв</td><td>loud</td>"
                       "<td>alice</td><td>навсегда</td></tr>\n</table>"_w))
      << page;
}

TEST_F(ListsTest, OperatorsAreNamedAlsoWhenTheyAreAway) {
  Leave(chat, alice(), "hall", now);
  const Text page = OperatorListPage(chat, hall());
  EXPECT_TRUE(Contains(page, "<td>alice</td>"));
  EXPECT_FALSE(Contains(page, "<td>bo&amp;b</td>"));
}

TEST_F(ListsTest, TopicsAreListedWithWhoChoseThem) {
  Say("alice", "/topic wind");
  Say("alice", "/topic <rain>");
  EXPECT_TRUE(Contains(TopicHistoryPage(hall(), now),
                       "<tr><td>07:08:09</td><td>alice</td><td>wind</td></tr>\n"
                       "<tr><td>07:08:09</td><td>alice</td><td>&lt;rain&gt;</td></tr>\n"));
}

}  // namespace
}  // namespace parlorwire::service
