#include "session/http_request.h"

#include <gtest/gtest.h>

#include "session/proxy_dialog.h"
#include "support/chat.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

struct HttpRequest : testing::Test {
  ProxyControls& UseProxy() {
    ProxyControls& proxy = ProxyDialog(chat.client);
    proxy.use_proxy = true;
    proxy.proxy_addr = "proxy.example";
    proxy.proxy_port = "3128";
    return proxy;
  }
  Chat chat;
};

TEST_F(HttpRequest, DirectForm) {
  EXPECT_EQ(BuildRequest(chat.client, "/pframe?username=a&ticket=1"),
            "POST /pframe HTTP/1.0\r\n"
            "Host: chat.example:80\r\n"
            "Referer: Localhost\r\n"
            "User-Agent: Parlorwire SE\r\n"
            "Content-Type: application/x-www-form-urlencoded\r\n"
            "Content-Length: 19\r\n"
            "\r\n"
            "username=a&ticket=1");
}

TEST_F(HttpRequest, ProxyForm) {
  UseProxy();
  EXPECT_EQ(BuildRequest(chat.client, "/chl?x=1"),
            "POST http://chat.example:80/chl HTTP/1.0\r\n"
            "Host: chat.example:80\r\n"
            "Referer: Localhost\r\n"
            "User-Agent: Parlorwire SE\r\n"
            "Content-Type: application/x-www-form-urlencoded\r\n"
            "Content-Length: 3\r\n"
            "\r\n"
            "x=1");
}

TEST_F(HttpRequest, ProxyFormWithCredentials) {
  UseProxy().autentification = true;
  chat.client.app.ProxyAuthBasic = "dTpw";
  EXPECT_EQ(BuildRequest(chat.client, "/chl?x=1"),
            "POST http://chat.example:80/chl HTTP/1.0\r\n"
            "Proxy-Authorization: Basic dTpw\r\n"
            "Host: chat.example:80\r\n"
            "Referer: Localhost\r\n"
            "User-Agent: Parlorwire SE\r\n"
            "Content-Type: application/x-www-form-urlencoded\r\n"
            "Content-Length: 3\r\n"
            "\r\n"
            "x=1");
}

TEST_F(HttpRequest, AnAutentificationThatIsCheckedButDisabledGivesTheDirectForm) {
  ProxyDialog(chat.client).autentification = true;
  EXPECT_TRUE(BuildRequest(chat.client, "/chl?x=1").starts_with("POST /chl HTTP/1.0\r\nHost:"));
}

TEST_F(HttpRequest, TheLoginGoesToTheRootAndNoOtherPathIsAltered) {
  EXPECT_TRUE(BuildRequest(chat.client, "/newmsg?a=1").starts_with("POST / HTTP/1.0\r\n"));
  EXPECT_TRUE(
      BuildRequest(chat.client, "/newmsg_t?a=1").starts_with("POST /newmsg_t HTTP/1.0\r\n"));
  UseProxy();
  EXPECT_TRUE(BuildRequest(chat.client, "/newmsg?a=1")
                  .starts_with("POST http://chat.example:80/ HTTP/1.0\r\n"));
}

TEST_F(HttpRequest, TheFirstQuestionMarkPartsPathAndBody) {
  EXPECT_TRUE(BuildRequest(chat.client, "/p?a=what?").ends_with("\r\n\r\na=what?"));
}

TEST_F(HttpRequest, AUrlWithoutAQuestionMarkIsAFault) {
  EXPECT_THROW(BuildRequest(chat.client, "/p"), Fault);
}

TEST_F(HttpRequest, SessionQueryEscapesTheFieldsInPlaceButSendsTheTicketRaw) {
  TabSession& tab = chat.tab();
  tab.Login = "a&b";
  tab.Ticket = "1+2";
  tab.Channel = "кафе c"_w;
  tab.ChannelPassword = "50%";
  EXPECT_EQ(SessionQuery(tab),
            "username=a%26b&ticket=1+2&channel=" + Koi("кафе c"_w) + "&chpwd=50%25");
  EXPECT_EQ(tab.Login, "a%26b");
  EXPECT_EQ(tab.Ticket, "1+2");
  EXPECT_EQ(tab.ChannelPassword, "50%25");
}

TEST_F(HttpRequest, EightDigitNumbersReachFromEndToEnd) {
  chat.platform.random.script = {0.0, 0.5, 0.99999999999};
  EXPECT_EQ(EightDigitNumber(chat.client), "11111111");
  EXPECT_EQ(EightDigitNumber(chat.client), "55555555");
  EXPECT_EQ(EightDigitNumber(chat.client), "99999999");
}

}  // namespace
}  // namespace parlorwire
