// What one visitor may take of the service, and what he may not make others believe. All is
// counted, on a chat without sockets.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

#include "chat_fixture.h"
#include "service/accounts.h"
#include "service/form.h"
#include "service/inhabitants.h"
#include "service/personal.h"
#include "service/site.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

struct HostileTest : ChatFixture {
  Answer Ask(const std::string& path, const Text& body, const std::string& host = "chat:80") {
    Request request;
    request.method = "POST";
    request.path = path;
    request.host = host;
    request.body = ConvertCharset(body, Charset::kWindows1251, Charset::kKoi);
    return Handle(chat, request, origin, now);
  }
  Text Post(const std::string& path, const Text& body) { return DecodeKoi(Ask(path, body).bytes); }

  LoginResult Try(const Text& nick, const Text& password, const Text& address = "10.0.0.1") {
    return LogIn(chat, nick, password, "hall", {address, ""}, now).result;
  }
  Text QueryOf(const Text& nick, const Text& channel = "hall") {
    const Login login = LogIn(chat, nick, "secret", channel, origin, now);
    EXPECT_EQ(login.result, LoginResult::kWelcome);
    chat.accounts.at(NickKey(nick)).style = kRobotStyle;
    return "username=" + nick + "&ticket=" + login.ticket + "&channel=" + channel + "&chpwd=";
  }
  // How many of so many requests at one moment are answered with a text.
  int Count(int requests, const std::string& path, const Text& body, const Text& sign) {
    int count = 0;
    for (int i = 0; i < requests; ++i)
      if (Contains(Post(path, body + std::to_string(i)), sign)) ++count;
    return count;
  }
};

// ---- tickets ----

TEST_F(HostileTest, AVoidTicketOpensNothingAndLeavesNothingBehind) {
  std::vector<Text> tickets;
  tickets.reserve(40);
  for (int i = 0; i < 40; ++i)
    tickets.push_back(LogIn(chat, "alice", "x", std::to_string(i), origin, now).ticket);
  EXPECT_EQ(chat.ticket_owners.size(), 32U);
  EXPECT_EQ(FindAccount(chat, "alice", tickets[7]), nullptr);
  EXPECT_NE(FindAccount(chat, "alice", tickets[8]), nullptr);
  LogIn(chat, "alice", "x", "20", origin, now);
  EXPECT_EQ(FindAccount(chat, "alice", tickets[20]), nullptr);
  LogIn(chat, "alice", "x", "more", origin, now);
  EXPECT_EQ(FindAccount(chat, "alice", tickets[8]), nullptr);
  EXPECT_NE(FindAccount(chat, "alice", tickets[9]), nullptr);
  LogOff(chat, chat.accounts.at("alice"), now);
  EXPECT_TRUE(chat.ticket_owners.empty());
  for (const Text& ticket : tickets)
    EXPECT_EQ(FindAccount(chat, "alice", ticket), nullptr);
}

// ---- fields ----

TEST_F(HostileTest, LongFieldsAreNotKept) {
  const Text large(60000, 'x');
  const Text query = QueryOf("alice");
  LogIn(chat, "alice", "secret", large, origin, now);
  Account& alice = chat.accounts.at("alice");
  for (const auto& [channel, ticket] : alice.tickets)
    EXPECT_LE(channel.size(), 61U);

  EXPECT_EQ(Enter(chat, alice, "attic", large, origin, now, ""), nullptr);
  EXPECT_EQ(FindChannel(chat, "attic"), nullptr);
  Ask("/pframe", query);
  Post("/newmsg_t", query + "&msgtext=hi&reqnum=" + large);
  EXPECT_TRUE(Contains(Post("/newmsg_t", query + "&msgtext=hi&reqnum=" + large + "1"),
                       ">Сообщение отправлено<"_w));
  EXPECT_TRUE(Contains(Post("/newmsg_t", query + "&msgtext=hi&reqnum=" + large), "уже"_w));

  EXPECT_EQ(Say("alice", "/status " + large.substr(0, 1000)), "Статус установлен"_w);
  EXPECT_EQ(alice.status.size(), 200U);
  Say("alice", "/topic " + large);
  Channel& hall = *FindChannel(chat, "hall");
  EXPECT_EQ(hall.topics.back().topic.size(), 300U);
  Say("alice", "/mo +b ghost " + large);
  EXPECT_EQ(hall.bans.back().reason.size(), 200U);
  EXPECT_EQ(Say("alice", "/mo +b " + large), "Укажите ник или адрес"_w);
  EXPECT_EQ(hall.bans.size(), 1U);
  Come("bob");
  Say("alice", "/mu bob " + large);
  EXPECT_EQ(hall.muted.at("bob").reason.size(), 200U);

  Frame& page = chat.frames.open.at(Ask("/mframe_pm", query, large).frame.value_or(0));
  EXPECT_EQ(page.host, "localhost");
  const std::size_t most = 2000;
  EXPECT_LT(
      Post("/banlist", "username=alice&ticket=" + alice.tickets.at("hall") + "&channel=" + large)
          .size(),
      most);
  EXPECT_LT(Post("/newmsg_pm", query + "&msgtext=x&xtouser=" + large).size(), most);
}

TEST_F(HostileTest, AChannelKeepsOnlySoManyPenaltiesAndOperators) {
  Come("alice");
  Come("bob");
  Channel& hall = *FindChannel(chat, "hall");
  for (std::size_t i = hall.muted.size(); i < kMostPenalties; ++i)
    hall.muted["ghost" + std::to_string(i)] = {};
  EXPECT_EQ(Say("alice", "/mu bob"), "Слишком много"_w);
  EXPECT_FALSE(hall.muted.contains("bob"));
  for (std::size_t i = hall.opers.size(); i < kMostOperators; ++i)
    hall.opers.insert("ghost" + std::to_string(i));
  EXPECT_EQ(Say("alice", "/mo +o bob"), "Слишком много"_w);
  EXPECT_FALSE(FindMember(hall, "bob")->oper);
}

// ---- the table of nicks ----

TEST_F(HostileTest, AnAddressHasRoomForSoManyNicksAndPushesOutItsOwnOnly) {
  chat.options.limits.accounts_of_address = 3;
  Try("victim", "x", "10.9.9.9");
  for (const char* nick : {"one", "two", "three"})
    EXPECT_EQ(Try(nick, "x"), LoginResult::kWelcome);
  EXPECT_EQ(Try("two", "x"), LoginResult::kWelcome);
  EXPECT_EQ(Try("four", "x"), LoginResult::kFull);  // they have just been
  Pass(60000);
  EXPECT_EQ(Try("four", "x"), LoginResult::kWelcome);
  EXPECT_FALSE(chat.accounts.contains("one"));
  Pass(60000);
  EXPECT_EQ(Try("five", "x"), LoginResult::kWelcome);
  EXPECT_FALSE(chat.accounts.contains("three"));
  EXPECT_TRUE(chat.accounts.contains("two"));  // came back with its password
  EXPECT_TRUE(chat.accounts.contains("victim"));
  EXPECT_EQ(chat.accounts.size(), 4U);
  EXPECT_EQ(chat.skeletons.size(), 4U);
  EXPECT_EQ(chat.ticket_owners.size(), 4U);
}

TEST_F(HostileTest, NobodyWhoIsThereOrHasAFrameOpenIsForgotten) {
  chat.options.limits.accounts_of_address = 2;
  Come("alice");
  EnterPersonal(chat, Known("bob"), now, "", "h");
  Pass(48LL * 3600 * 1000);
  EXPECT_EQ(Try("carol", "x"), LoginResult::kFull);
  FrameIsGone(chat, *chat.accounts.at("bob").personal_frames.begin(), now);
  EXPECT_EQ(Try("carol", "x"), LoginResult::kFull);
  Pass(60000);
  EXPECT_EQ(Try("carol", "x"), LoginResult::kWelcome);
  EXPECT_FALSE(chat.accounts.contains("bob"));

  // Who lost his connection is on the channel as long as he may come back.
  chat.options.grace_ms = 120000;
  FrameIsGone(chat, FindMember(*FindChannel(chat, "hall"), "alice")->frame->id, now);
  Pass(61000);
  EXPECT_EQ(Try("dave", "x"), LoginResult::kWelcome);
  EXPECT_TRUE(chat.accounts.contains("alice"));
}

TEST_F(HostileTest, AFullTableForgetsWhoHasBeenIdleLongest) {
  chat.options.most_accounts = 3;
  Inhabitants none;
  AddAccount(chat, "robot", {}).robot = true;
  Try("old", "x", "10.0.0.2");
  Pass(1000);
  Try("young", "x", "10.0.0.3");
  EXPECT_EQ(Try("new", "x", "10.0.0.4"), LoginResult::kFull);
  Pass(24LL * 3600 * 1000 - 1001);
  EXPECT_EQ(Try("new", "x", "10.0.0.4"), LoginResult::kFull);
  Pass(1001);
  EXPECT_EQ(Try("new", "x", "10.0.0.4"), LoginResult::kWelcome);
  EXPECT_FALSE(chat.accounts.contains("old"));
  EXPECT_TRUE(chat.accounts.contains("young"));
  EXPECT_EQ(Try("newer", "x", "10.0.0.4"), LoginResult::kWelcome);
  EXPECT_FALSE(chat.accounts.contains("young"));
  EXPECT_EQ(Try("newest", "x", "10.0.0.4"), LoginResult::kFull);
  EXPECT_TRUE(chat.accounts.contains("robot"));
}

TEST_F(HostileTest, AForgottenNickLeavesItsRankToNobody) {
  chat.options.limits.accounts_of_address = 2;
  Come("alice");
  Come("bob");
  Say("alice", "/mo +o bob");
  Leave(chat, chat.accounts.at("bob"), "hall", now);
  for (auto& [id, frame] : chat.frames.open)
    frame.touched = false;
  FrameIsGone(chat, 2, now);
  Pass(61000);
  EXPECT_EQ(Try("carol", "x"), LoginResult::kWelcome);
  ASSERT_FALSE(chat.accounts.contains("bob"));
  EXPECT_EQ(FindChannel(chat, "hall")->opers, std::set<Text>{"alice"});
}

TEST_F(HostileTest, PlacesThatMadeNobodyAreForgotten) {
  Try("alice", "x");
  for (int i = 0; i < 5000; ++i) {
    Try("alice", "guess", "10.1." + std::to_string(i / 200) + "." + std::to_string(i % 200));
    now.ms += 1000;
  }
  EXPECT_LT(chat.places.size(), 3000U);
}

// ---- how much one request brings about ----

TEST_F(HostileTest, HistoryIsBoundInBytesAsItIsKeptAndAsItIsSent) {
  chat.options.limits.history_bytes = 10000;
  Come("alice");
  for (int i = 0; i < 50; ++i)
    Say("alice", Text(1900, '<'));
  Channel& hall = *FindChannel(chat, "hall");
  EXPECT_LE(hall.history_held, 10000U);
  EXPECT_EQ(hall.history.size(), 5U);
  chat.accounts.at("alice").history = 200;
  EXPECT_LE(HistoryOf(hall, chat.accounts.at("alice"), now).size(), 10000U);
  Say("alice", "short");
  EXPECT_TRUE(HistoryOf(hall, chat.accounts.at("alice"), now).ends_with("alice:() short\n"));
}

TEST_F(HostileTest, APermanentChannelIsBoundToo) {
  chat.options.limits.history_bytes = 100;
  InhabitantOptions options;
  options.channels = {"hall"};
  MoveIn(chat, options, now);
  EXPECT_LE(FindChannel(chat, "hall")->history_held, 100U);
}

TEST_F(HostileTest, MessagesThatWaitForANickAreBoundInBytes) {
  chat.options.limits.personal_bytes = 10000;
  Account& alice = Known("alice");
  Account& bob = Known("bob");
  for (int i = 0; i < 20; ++i)
    SendPersonal(chat, alice, "bob", Text(3000, 'x'), now);
  EXPECT_EQ(bob.personal.size(), 3U);
  EXPECT_EQ(bob.personal.back().number, 20);
}

TEST_F(HostileTest, ANickAndAnAddressHaveOnlySoManyFrames) {
  chat.options.limits.frames_of_account = 3;
  chat.options.limits.frames_of_address = 5;
  const Text alice = QueryOf("alice");
  const Text bob = QueryOf("bob");
  for (int i = 0; i < 3; ++i)
    EXPECT_TRUE(Ask("/mframe_pm", alice).frame.has_value());
  for (const char* path : {"/mframe_pm", "/pframe"})
    EXPECT_TRUE(Post(path, alice).starts_with("HTTP/1.0 503 Service Unavailable\r\n"));
  EXPECT_TRUE(Ask("/pframe", bob).frame.has_value());
  EXPECT_TRUE(Ask("/mframe_pm", bob).frame.has_value());
  EXPECT_TRUE(Post("/mframe_pm", bob).starts_with("HTTP/1.0 503"));
  origin.address = "10.0.0.2";
  EXPECT_TRUE(Ask("/mframe_pm", bob).frame.has_value());
}

TEST_F(HostileTest, TheLimitOfFramesBindsWhereFramesOpen) {
  chat.options.most_frames = 3;
  const Text alice = QueryOf("alice");
  EXPECT_TRUE(Ask("/pframe", alice).frame.has_value());
  EXPECT_TRUE(Ask("/mframe_pm", alice).frame.has_value());
  EXPECT_TRUE(Ask("/mframe_pm", alice).frame.has_value());
  EXPECT_TRUE(Post("/mframe_pm", alice).starts_with("HTTP/1.0 503"));
  EXPECT_TRUE(Post("/pframe", Replace(alice, "=hall", "=attic")).starts_with("HTTP/1.0 503"));
  // The older one of the same channel goes.
  EXPECT_TRUE(Ask("/pframe", alice).frame.has_value());
}

// ---- addresses ----

TEST_F(HostileTest, OnlyATrustedProxyIsBelieved) {
  chat.options.trusted_proxies = {"10.7.*"};
  const auto origin_of = [&](const char* peer, const char* said) {
    Request request;
    request.forwarded_for = said;
    const Origin found = OriginOf(chat.options, peer, request);
    return found.address + "|" + found.forwarded;
  };
  EXPECT_EQ(origin_of("10.0.0.1", "172.16.0.9"), "10.0.0.1|");
  EXPECT_EQ(origin_of("10.7.0.1", "172.16.0.9"), "10.7.0.1|172.16.0.9");
  EXPECT_EQ(origin_of("10.7.0.1", "1.2.3.4, 172.16.0.9"), "10.7.0.1|172.16.0.9");
  for (const char* said : {"", "999.999.999.999", "172.16.0.256", "a) b", "172.16.0.9, x"})
    EXPECT_EQ(origin_of("10.7.0.1", said), "10.7.0.1|") << said;
}

TEST_F(HostileTest, ABanOrKickMatchesEitherAddress) {
  for (const char* command : {"/mo +b 10.7.0.1", "/mo +b 172.16.0.9", "/k 10.7.0.1"}) {
    chat.channels.clear();
    Come("alice");
    Enter(chat, Known("bob"), "hall", "", {"10.7.0.1", "172.16.0.9"}, now, "");
    Say("alice", command);
    Channel& hall = *FindChannel(chat, "hall");
    EXPECT_EQ(FindMember(hall, "bob"), nullptr) << command;
    EXPECT_TRUE(IsKeptOut(hall, chat.accounts.at("bob"), {"10.7.0.1", "172.16.0.9"}, now));
  }
}

TEST_F(HostileTest, LimitsCountByTheAddressBehindATrustedProxy) {
  EXPECT_EQ(PlaceOf({"10.7.0.1", "172.16.0.9"}), "172.16.0.9");
  EXPECT_EQ(PlaceOf({"10.7.0.1", ""}), "10.7.0.1");
}

// ---- twins ----

TEST_F(HostileTest, NicksThatLookAlikeAreOneNick) {
  EXPECT_EQ(Try("pop", "secret"), LoginResult::kWelcome);
  EXPECT_EQ(Try("рор"_w, "other"), LoginResult::kWrongPassword);
  EXPECT_EQ(Try("роp"_w, "secret"), LoginResult::kRefused);
  const Login login = LogIn(chat, "РОР"_w, "secret", "hall", origin, now);
  EXPECT_EQ(login.result, LoginResult::kWelcome);
  EXPECT_EQ(chat.accounts.size(), 1U);
  EXPECT_EQ(FindAccount(chat, "РОР"_w, login.ticket), &chat.accounts.at("pop"));
  EXPECT_EQ(FindAccount(chat, "pop", login.ticket), &chat.accounts.at("pop"));
  EXPECT_EQ(chat.accounts.at("pop").nick, "pop");
  EXPECT_EQ(Try("POP", "secret"), LoginResult::kWelcome);
  EXPECT_EQ(chat.accounts.at("pop").nick, "POP");
}

TEST_F(HostileTest, NobodyLooksLikeAnInhabitant) {
  InhabitantOptions options;
  options.channels = {"hall"};
  MoveIn(chat, options, now);
  EXPECT_EQ(Try("0пераmорша"_w, "x"), LoginResult::kRefused);
  EXPECT_EQ(Try("0ператорша"_w, "x"), LoginResult::kRefused);
  EXPECT_EQ(Try("Операторша"_w + "\xAD", "x"), LoginResult::kRefused);
}

// ---- floods and guesses ----

TEST_F(HostileTest, WhatANickSaysHasARate) {
  const Text query = QueryOf("alice");
  Ask("/pframe", query);
  const Text post = query + "&msgtext=hi&reqnum=";
  const Text sent = "<font size=1>Сообщение отправлено</font>"_w;
  EXPECT_EQ(Count(1000, "/newmsg_t", post, sent), 200);
  EXPECT_TRUE(Contains(Post("/newmsg_t", post + "x"), "<font size=1>Слишком часто, "_w));
  Pass(1000);
  EXPECT_EQ(Count(1000, "/newmsg_t", post + "a", sent), 20);
  chat.options.limits.posts = 0;
  chat.options.limits.posts_of_address = 0;
  EXPECT_EQ(Count(1000, "/newmsg_t", post + "b", sent), 1000);
}

TEST_F(HostileTest, WhatAllNicksOfAnAddressSayHasARate) {
  const Text sent = "<font size=1>Сообщение отправлено</font>"_w;
  int said = 0;
  for (int i = 0; i < 10; ++i) {
    const Text query = QueryOf("nick" + std::to_string(i));
    Ask("/pframe", query);
    said += Count(250, "/newmsg_t", query + "&msgtext=hi&reqnum=", sent);
    said += Count(1, "/newmsg_pm", query + "&xtouser=nick0&msgtext=hi&reqnum=", sent);
  }
  EXPECT_EQ(said, 1000);
}

TEST_F(HostileTest, PersonalMessagesHaveARate) {
  const Text post = QueryOf("alice") + "&xtouser=alice&msgtext=hi&reqnum=";
  const Text sent = "<font size=1>Сообщение отправлено</font>"_w;
  EXPECT_EQ(Count(1000, "/newmsg_pm", post, sent), 50);
  Pass(1000);
  EXPECT_EQ(Count(1000, "/newmsg_pm", post, sent), 5);
}

TEST_F(HostileTest, LoginsOfAnAddressHaveARate) {
  int welcome = 0;
  for (int i = 0; i < 2000; ++i)
    if (Try("alice", "x") == LoginResult::kWelcome) ++welcome;
  EXPECT_EQ(welcome, 500);
  EXPECT_EQ(Try("alice", "x"), LoginResult::kFull);
  EXPECT_EQ(Try("alice", "x", "10.0.0.2"), LoginResult::kWelcome);
}

TEST_F(HostileTest, GuessesWaitAndTheOwnerDoesNot) {
  Try("alice", "secret", "10.0.0.1");
  int looked_at = 0;
  for (int second = 0; second < 600; ++second, now.ms += 1000)
    for (int i = 0; i < 4; ++i)
      if (Try("alice", "guess", "10.6.6.6") == LoginResult::kWrongPassword) ++looked_at;
  EXPECT_LE(looked_at, 20);
  EXPECT_GE(looked_at, 10);
  EXPECT_EQ(Try("alice", "secret", "10.6.6.6"), LoginResult::kWait);
  EXPECT_EQ(Try("alice", "secret", "10.0.0.1"), LoginResult::kWelcome);
  const Text page = Post("/", "username=alice&passwd=x&channel=");
  EXPECT_TRUE(Contains(page, "неверное имя или пароль"_w));
  origin.address = "10.6.6.6";
  const Text wait = Post("/", "username=alice&passwd=secret&channel=");
  EXPECT_TRUE(Contains(wait, "<title>error auth page</title>"));
  EXPECT_TRUE(Contains(wait, "Подождите"_w));
}

TEST_F(HostileTest, AGoodPasswordForgivesTheWrongOnes) {
  Try("alice", "secret");
  for (int round = 0; round < 5; ++round) {
    for (int i = 0; i < 3; ++i)
      EXPECT_EQ(Try("alice", "oops"), LoginResult::kWrongPassword);
    EXPECT_EQ(Try("alice", "secret"), LoginResult::kWelcome);
  }
}

// ---- rights ----

TEST_F(HostileTest, ALockedChannelTellsNothingToWhoLacksItsPassword) {
  const Text alice = QueryOf("alice", "vault") + "key";
  Ask("/pframe", alice);
  Say("alice", "/topic hush", "vault");
  const Text bob = QueryOf("bob", "vault");
  for (const char* path : {"/banlist", "/oplist", "/topic_hist"}) {
    const Text page = Post(path, bob);
    EXPECT_TRUE(Contains(page, "Канал закрыт паролем: vault"_w)) << path;
    EXPECT_FALSE(Contains(page, "alice") || Contains(page, "hush")) << path;
    EXPECT_TRUE(Contains(Post(path, bob + "key"), "<table border=1>")) << path;
    EXPECT_TRUE(Contains(Post(path, Replace(alice, "=key", "=")), "<table border=1>")) << path;
  }
}

TEST_F(HostileTest, NoOperatorTakesARankOrSetsAFlagOfThoseUnderProtection) {
  chat.options.admins = {"root"};
  InhabitantOptions options;
  options.channels = {"hall"};
  MoveIn(chat, options, now);
  Come("alice");
  Come("root");
  Channel& hall = *FindChannel(chat, "hall");
  Say("root", "/mo +o root");
  for (const Text& nick : {"Операторша"_w, "root"_w}) {
    for (const char* flag : {"-o", "+R", "+t"})
      EXPECT_EQ(Say("alice", "/mo " + Text(flag) + " " + nick), "Этот ник под защитой"_w) << flag;
    EXPECT_TRUE(FindMember(hall, nick)->oper) << nick;
    EXPECT_TRUE(hall.opers.contains(NickKey(nick)) || FindMember(hall, nick)->account->robot);
  }
  EXPECT_EQ(Say("root", "/mo +R root"), "Установлен флаг +R"_w);
}

TEST_F(HostileTest, WhoIsSilencedSaysNothingInOtherWays) {
  Frame& alice = Come("alice");
  Come("bob");
  Come("bob", "attic");
  Say("alice", "/mu bob");
  Read(alice);
  const Text refusal = "Вы лишены права голоса, сообщение не отправлено"_w;
  for (const char* said : {"hi", "/me waves", "/op help", "/status loud"})
    EXPECT_EQ(Say("bob", said), refusal) << said;
  EXPECT_EQ(Say("bob", "/status loud", "attic"), refusal);
  EXPECT_EQ(Read(alice), "");
  EXPECT_EQ(chat.accounts.at("bob").status, "");
  Say("alice", "/mu 0 bob");
  Say("alice", "/l bob");
  Read(alice);
  Say("bob", "/op LOUD");
  EXPECT_TRUE(Contains(Read(alice), "bob:() loud"));
  Say("bob", "/status LOUD", "attic");
  EXPECT_EQ(chat.accounts.at("bob").status, "loud");
}

}  // namespace
}  // namespace parlorwire::service
