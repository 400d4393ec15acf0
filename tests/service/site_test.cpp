#include "service/site.h"

#include <gtest/gtest.h>

#include "chat_fixture.h"
#include "service/form.h"
#include "service/personal.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

struct SiteTest : ChatFixture {
  // A form post; the body is given as text and goes out in the wire's character set.
  Answer Ask(const std::string& path, const Text& body) {
    Request request;
    request.method = "POST";
    request.path = path;
    request.host = "chat:80";
    request.body = ConvertCharset(body, Charset::kWindows1251, Charset::kKoi);
    return Handle(chat, request, origin, now);
  }

  Text Post(const std::string& path, const Text& body) { return DecodeKoi(Ask(path, body).bytes); }

  Text Get(const std::string& path, const std::string& query, const char* method = "GET") {
    Request request;
    request.method = method;
    request.path = path;
    request.query = query;
    return DecodeKoi(Handle(chat, request, origin, now).bytes);
  }

  // The query of a nick that has come to a channel.
  Text Query(const Text& nick, const Text& channel = "hall") {
    Come(nick, channel);
    return "username=" + nick + "&ticket=" + chat.accounts.at(NickKey(nick)).tickets.at("hall") +
           "&channel=" + channel + "&chpwd=";
  }
};

Text BodyOf(const Text& answer) {
  return answer.substr(answer.find("\r\n\r\n") + 4);
}

TEST_F(SiteTest, LoginAnswersWithATicketThatEndsInAQuote) {
  const Text answer = Post("/", "username=alice&passwd=x&channel=hall&chpwd=");
  EXPECT_TRUE(answer.starts_with("HTTP/1.0 200 OK\r\n"));
  const auto at = answer.find("&ticket=");
  ASSERT_NE(at, Text::npos);
  EXPECT_EQ(answer.substr(at + 8, 17), "1000000000000000'");
  EXPECT_NE(FindAccount(chat, "alice", "1000000000000000"), nullptr);
}

TEST_F(SiteTest, AnybodyMayAskAboutAnAddress) {
  const Text answer =
      Get("/serv/wwwwhois/nph-wwwtr.cgi", "server=10.0.*.*&resolve=ripe&submit=++OK++");
  EXPECT_TRUE(answer.starts_with("HTTP/1.0 200 OK\r\n"));
  EXPECT_TRUE(Contains(answer, "10.0.*.*"));
  EXPECT_TRUE(Contains(answer, "частная сеть"_w));
}

TEST_F(SiteTest, BothRefusalsHaveTheirTitles) {
  Known("alice");
  const Text wrong = Post("/", "username=alice&passwd=x&channel=&chpwd=");
  EXPECT_TRUE(Contains(wrong, "<title>error auth page</title>"));
  EXPECT_TRUE(Contains(wrong, "неверное имя или пароль"_w));
  const Text refused = Post("/", "username=alice&passwd=&channel=&chpwd=");
  EXPECT_TRUE(Contains(refused, "<title>authorization failed!</title>"));
  for (const Text& answer : {wrong, refused}) {
    EXPECT_TRUE(answer.starts_with("HTTP/1.0 200 OK\r\n"));
    EXPECT_FALSE(Contains(answer, "ticket="));
    EXPECT_FALSE(Contains(answer, "session="));
  }
}

TEST_F(SiteTest, AFullServiceAnswersWithAnErrorAndNoTicket) {
  chat.options.most_frames = 0;
  const Text answer = Post("/", "username=alice&passwd=x&channel=&chpwd=");
  EXPECT_TRUE(answer.starts_with("HTTP/1.0 503 Service Unavailable\r\n"));
  EXPECT_FALSE(Contains(answer, "ticket="));
}

TEST_F(SiteTest, TheFrameBringsHeaderAndLinesTogether) {
  const Text query = Query("alice");
  const Answer answer = Ask("/pframe", query);
  ASSERT_TRUE(answer.frame.has_value());
  EXPECT_EQ(answer.bytes, "");
  const Text wire = Read(chat.frames.open.at(*answer.frame));
  EXPECT_TRUE(wire.starts_with("HTTP/1.0 200 OK\r\n"));
  EXPECT_TRUE(Contains(wire, "\r\n\r\n<pre>\n..[07:08:09]alice "));
  EXPECT_FALSE(Contains(wire, "Content-Length"));
}

TEST_F(SiteTest, AnotherTicketOpensNothing) {
  Query("alice");
  for (const char* path :
       {"/pframe", "/chl", "/newmsg_t", "/room", "/logoff", "/leave", "/mframe_pm", "/newmsg_pm",
        "/pm_ack", "/banlist", "/oplist", "/topic_hist"}) {
    const Answer answer = Ask(path, "username=alice&ticket=0&channel=hall&chpwd=");
    EXPECT_FALSE(answer.frame.has_value()) << path;
    EXPECT_TRUE(Contains(DecodeKoi(answer.bytes), "неверное имя или пароль"_w)) << path;
  }
}

TEST_F(SiteTest, APostEchoesOnTheFrameAndAnswersWithASentence) {
  const Text query = Query("alice");
  Frame& frame = *FindChannel(chat, "hall")->members[0].frame;
  const Text answer =
      Post("/newmsg_t", query + "&reqnum=12345678&msgtext=да %26 нет&msgtext0=x&action=204"_w);
  EXPECT_EQ(Read(frame), "..[07:08:09]alice:(уныло) да &amp; нет\n"_w);
  EXPECT_TRUE(Contains(answer, "<font size=1>Сообщение отправлено</font>"_w));
  EXPECT_TRUE(Contains(Post("/newmsg_t", query + "&reqnum=1&msgtext=/x\"y&msgtext0="),
                       "<font size=1>Такой команды нет: /x&quot;y</font>"_w));
}

TEST_F(SiteTest, TheUsersComeInTheStyleOfTheirReader) {
  const Text query = Query("alice");
  EXPECT_EQ(BodyOf(Post("/chl", query)),
            "<title>users</title>\n<meta http-equiv=\"refresh\" content=\"60\">\n\n\n"
            "alice|[+o][10.0.0.1:]''\n");
  chat.options.form_b = true;
  EXPECT_TRUE(BodyOf(Post("/chl", query)).ends_with("\n\n\n<tr>\n10.0.0.1:[+o]alice\n"));
  chat.accounts.at("alice").style = 1;
  EXPECT_TRUE(BodyOf(Post("/chl", query)).starts_with("<html>\n"));
}

TEST_F(SiteTest, TheChannelPageComesInTheStyleOfItsReader) {
  const Text query = Query("alice");
  const Text no_channel =
      "username=alice&ticket=" + chat.accounts.at("alice").tickets.at("hall") + "&channel=&chpwd=";
  EXPECT_TRUE(Contains(BodyOf(Post("/", no_channel)), "\nuser: alice\t[+o]\n"));
  EXPECT_TRUE(BodyOf(Post("/leave", query)).starts_with("этот стиль (номер 9)"_w));
  EXPECT_FALSE(Contains(Post("/", no_channel), "alice"));
  chat.accounts.at("alice").style = 1;
  EXPECT_TRUE(BodyOf(Post("/", no_channel)).starts_with("<HTML>\n<HEAD>\n<TITLE>Select/Create"));
  EXPECT_TRUE(BodyOf(Post("/leave", query)).starts_with("<HTML>\n<HEAD>\n<TITLE>Select/Create"));
}

TEST_F(SiteTest, WhoIsNotOnTheChannelGetsTheChannelPageForItsUsers) {
  const Text query = Query("alice");
  Post("/leave", query);
  EXPECT_TRUE(BodyOf(Post("/chl", query)).starts_with("этот стиль (номер 9)"_w));
}

TEST_F(SiteTest, ABannedNickGetsTheChannelPageInsteadOfAFrame) {
  const Text alice = Query("alice");
  const Text bob = Query("bob");
  Post("/newmsg_t", alice + "&reqnum=1&msgtext=/mo %2Bb bob&msgtext0=");
  const Answer robot = Ask("/pframe", bob);
  EXPECT_FALSE(robot.frame.has_value());
  EXPECT_TRUE(BodyOf(DecodeKoi(robot.bytes)).starts_with("этот стиль (номер 9)"_w));
  chat.accounts.at("bob").style = 1;
  const Answer browser = Ask("/pframe", bob);
  EXPECT_TRUE(BodyOf(DecodeKoi(browser.bytes)).starts_with("<HTML>\n<HEAD>\n<TITLE>Select"));
  EXPECT_TRUE(Contains(BodyOf(Post("/banlist", alice)), "<td>bob</td>"));
}

TEST_F(SiteTest, LogoffAnswersAndEndsTheTicket) {
  const Text query = Query("alice");
  EXPECT_TRUE(Contains(Post("/logoff", query), "До свидания, alice"_w));
  EXPECT_TRUE(Contains(Post("/chl", query), "error auth page"));
}

TEST_F(SiteTest, PersonalPagesTakeANickThatIsNotRecoded) {
  const Login login = LogIn(chat, "Ёжик"_w, "x", "hall", origin, now);
  Known("Кот"_w);
  Request request;
  request.method = "POST";
  request.path = "/mframe_pm";
  request.body = "username=" + "Ёжик"_w + "&ticket=" + login.ticket;
  EXPECT_TRUE(Handle(chat, request, origin, now).frame.has_value());
  request.path = "/newmsg_pm";
  request.body += "&reqnum=1&xtouser=" + "Кот"_w +
                  "&msgtext=" + ConvertCharset("да"_w, Charset::kWindows1251, Charset::kKoi);
  Handle(chat, request, origin, now);
  ASSERT_EQ(chat.accounts.at(NickKey("Кот"_w)).personal.size(), 1U);
  EXPECT_EQ(chat.accounts.at(NickKey("Кот"_w)).personal[0].text, "да"_w);
}

// "Кот" in Windows-1251 is "йНР" by the wire's character set.
TEST_F(SiteTest, APersonalMessageReachesNobodyElseByAnotherReading) {
  const Text query = Query("alice");
  Known("йНР"_w);
  Account& robot = Known("Кот"_w);
  Request request;
  request.method = "POST";
  request.path = "/newmsg_pm";
  const auto post = [&](const Text& to) {
    request.body = query + "&reqnum=1&xtouser=" + to + "&msgtext=hi";
    return DecodeKoi(Handle(chat, request, origin, now).bytes);
  };
  post("Кот"_w);
  EXPECT_EQ(robot.personal.size(), 1U);
  chat.accounts.erase(NickKey("Кот"_w));
  EXPECT_TRUE(Contains(post("Кот"_w), "Нет такого ника: Кот"_w));
  EXPECT_TRUE(chat.accounts.at(NickKey("йНР"_w)).personal.empty());
  post(PercentEncode("йНР"_w) + "+");
  EXPECT_EQ(chat.accounts.at(NickKey("йНР"_w)).personal.size(), 1U);
}

TEST_F(SiteTest, AnOldTicketIsRefusedInALineOfThePersonalFrame) {
  Query("alice");
  EXPECT_EQ(BodyOf(Post("/mframe_pm", "username=alice&ticket=0")),
            "<html>\n<head>\n<title>error auth page</title>\n</head>\n<body>\n<br>\n"
            "&gt; [07:08:09]  чат неверное имя или пароль\n"_w);
}

// The script that announces a message in the answer to a post, and who is told by it.
struct AnnouncementTest : SiteTest {
  const Text query = Query("bob");
  const Text script = "<script>\nwindow.open('/mframe_pm?username=bob&ticket=" +
                      chat.accounts.at("bob").tickets.at("hall") + "', 'personal')\n</script>\n";

  // A message comes while bob's connection is broken: no frame can tell him.
  void MissAMessage() {
    Account& alice = Known("alice");
    FrameIsGone(chat, FindMember(*FindChannel(chat, "hall"), "bob")->frame->id, now);
    SendPersonal(chat, alice, "bob", "hi", now);
  }
};

TEST_F(AnnouncementTest, BeginsTheAnswerToARobotOnceForAMessage) {
  MissAMessage();
  const Text answer = Post("/newmsg_t", query + "&reqnum=1&msgtext=one");
  EXPECT_TRUE(answer.starts_with(script + "<html>\n")) << answer;
  EXPECT_TRUE(Contains(answer, "<font size=1>Сообщение отправлено</font>"_w));
  EXPECT_TRUE(Post("/newmsg_t", query + "&reqnum=2&msgtext=two").starts_with("HTTP/1.0 200 OK"));
}

TEST_F(AnnouncementTest, StandsBehindTheHeaderForABrowser) {
  MissAMessage();
  chat.accounts.at("bob").style = 1;
  const Text answer = Post("/newmsg_t", query + "&reqnum=1&msgtext=one");
  EXPECT_TRUE(answer.starts_with("HTTP/1.0 200 OK\r\n"));
  EXPECT_TRUE(BodyOf(answer).starts_with(script + "<html>\n"));
}

TEST_F(AnnouncementTest, TakesThePlaceOfNoOtherSentence) {
  MissAMessage();
  for (const char* said : {"/mo -t", "/k nobody", " "})
    EXPECT_TRUE(Post("/newmsg_t", query + "&reqnum=1&msgtext=" + said).starts_with("HTTP/1.0"))
        << said;
  EXPECT_TRUE(Post("/newmsg_t", query + "&reqnum=1&msgtext=one").starts_with("<script"));
}

TEST_F(SiteTest, PersonalLinksNameTheHostThatWasAskedFor) {
  const Text query = Query("alice");
  Frame& frame = chat.frames.open.at(*Ask("/mframe_pm", query).frame);
  Read(frame);
  Post("/newmsg_pm", query + "&reqnum=1&xtouser=alice&msgtext=hi");
  const Text lines = Read(frame);
  EXPECT_TRUE(Contains(lines, "] http://chat:80/pm_ack?reqnum="));
  EXPECT_TRUE(Contains(lines, "&pm_msgnum=1 alice hi\n"));
  EXPECT_TRUE(Post("/pm_ack", query + "&reqnum=1&pm_msgnum=1").starts_with("HTTP/1.0 200"));
  EXPECT_TRUE(Post("/pm_ack", query + "&reqnum=1&pm_msgnum=1").starts_with("HTTP/1.0 404"));
  EXPECT_TRUE(Post("/pm_ack", query + "&pm_msgnum=x").starts_with("HTTP/1.0 404"));
}

TEST_F(SiteTest, PagesForABrowser) {
  const Text query = Query("alice");
  EXPECT_TRUE(Contains(Get("/", ""), "<form method=\"post\" action=\"/\">"));
  EXPECT_TRUE(Contains(Get("/rulez.html", ""), "Правила"_w));
  EXPECT_TRUE(Contains(Get("/oplist", query), "<td>alice</td>"));
  EXPECT_TRUE(Contains(Get("/banlist", query), "Бан-лист канала hall"_w));
  Post("/newmsg_t", query + "&reqnum=1&msgtext=/topic wind&msgtext0=");
  EXPECT_TRUE(Contains(Get("/topic_hist", query), "<td>wind</td>"));
  EXPECT_TRUE(Contains(Get("/room", query), "<frame src='/pframe?username=alice&channel=hall"));
  EXPECT_TRUE(Contains(Get("/newmsg_t", query), "<form method=\"post\" action=\"/newmsg_t\">"));
}

TEST_F(SiteTest, AddressesWithChannelsInUtf8AreUnderstood) {
  Come("alice", "Кухня"_w);
  const Text ticket = chat.accounts.at("alice").tickets.at("hall");
  EXPECT_TRUE(Contains(
      Get("/oplist", "username=alice&ticket=" + ticket + "&channel=%D0%9A%D1%83%D1%85%D0%BD%D1%8F"),
      "Операторы канала Кухня"_w));
}

TEST_F(SiteTest, UnknownPagesAndMethods) {
  EXPECT_TRUE(Get("/nowhere", "").starts_with("HTTP/1.0 404 Not Found\r\n"));
  const Text head = Get("/rulez.html", "", "HEAD");
  EXPECT_TRUE(head.ends_with("\r\n\r\n"));
  EXPECT_TRUE(Contains(head, "Content-Length: "));
  EXPECT_TRUE(Get("/pframe", Query("alice"), "HEAD").starts_with("HTTP/1.0 405"));
}

TEST_F(SiteTest, RedirectsLeadOnlyToCleanAddresses) {
  for (const char* target :
       {"javascript:x", "http%3A//a%0D%0AX:y", "http://a b", "http%3A//a%20b", "//a.b", ""})
    EXPECT_TRUE(Get("/redirect", std::string("msgtext=") + target).starts_with("HTTP/1.0 400"))
        << target;
}

TEST_F(SiteTest, ALinkLeadsOverAPageThatNamesAllOfIt) {
  const Text answer = Get("/redirect", "msgtext=http://a.b/?x=1&y=%20+2;z");
  EXPECT_TRUE(answer.starts_with("HTTP/1.0 200 OK\r\n"));
  EXPECT_FALSE(Contains(answer, "Location:"));
  EXPECT_TRUE(Contains(answer, "\r\nReferrer-Policy: no-referrer\r\n"));
  EXPECT_TRUE(Contains(answer,
                       "<a href=\"http://a.b/?x=1&amp;y=%20+2;z\" rel=\"noreferrer noopener\">"
                       "http://a.b/?x=1&amp;y=%20+2;z</a>"));
  EXPECT_TRUE(Contains(Get("/redirect", "msgtext=http%3A%2F%2Fa.b%2F%3Fx%3D1%26y"),
                       ">http://a.b/?x=1&amp;y</a>"));
  EXPECT_TRUE(Contains(Get("/redirect", "msgtext=http://a/\"><b>"),
                       "href=\"http://a/&quot;&gt;&lt;b&gt;\""));
}

TEST_F(SiteTest, NoPageIsTakenForAnythingElse) {
  for (const char* path : {"/", "/rulez.html", "/nowhere", "/chl", "/redirect"})
    EXPECT_TRUE(Contains(Get(path, ""), "\r\nX-Content-Type-Options: nosniff\r\n")) << path;
}

TEST_F(SiteTest, ContentLengthCountsTheBytesOfTheWire) {
  const Text answer = Get("/rulez.html", "");
  const Text length = std::to_string(BodyOf(answer).size());
  EXPECT_TRUE(Contains(answer, "\r\nContent-Length: " + length + "\r\n"));
}

}  // namespace
}  // namespace parlorwire::service
