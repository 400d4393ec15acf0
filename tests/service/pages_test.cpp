#include "service/pages.h"

#include <gtest/gtest.h>

#include "text/cut.h"

namespace parlorwire::service {
namespace {

const Visitor kVisitor{"Ёж"_w, "TICKET", "a & b", ""};
constexpr std::string_view kQuery = "username=%B3%D6&channel=a%20%26%20b&chpwd=&ticket=TICKET";

TEST(Pages, WelcomeHoldsATicketThatEndsInAQuote) {
  EXPECT_TRUE(Contains(WelcomePage(kVisitor), "'/room?" + Text(kQuery) + "'"));
}

TEST(Pages, OfRefusalsHoldTheirTitlesAndNoTicket) {
  EXPECT_TRUE(Contains(WrongPasswordPage(), "<title>error auth page</title>"));
  EXPECT_TRUE(Contains(WrongPasswordPage(), "неверное имя или пароль"_w));
  EXPECT_TRUE(Contains(RefusedPage(), "<title>authorization failed!</title>"));
  for (const Text& page : {WrongPasswordPage(), RefusedPage()})
    EXPECT_FALSE(Contains(page, "ticket=")) << page;
}

TEST(Pages, OfAPostOfferEveryToneAndSayTheSentence) {
  const Text page = PostPage(kVisitor, "\"нет\" & <да>"_w);
  EXPECT_TRUE(Contains(page, "<font size=1>&quot;нет&quot; &amp; &lt;да&gt;</font>"_w));
  EXPECT_TRUE(Contains(page,
                       "<option value=\"200\">обычным тоном\n"
                       "<option value=\"201\">внутренним голосом\n"_w));
  EXPECT_TRUE(Contains(page, "<option value=\"206\">ворчливо\n"_w));
  EXPECT_TRUE(Contains(page, "name=\"channel\" value=\"a &amp; b\""));
}

TEST(Pages, OfARoomAreFramesOfTheChannel) {
  const Text page = RoomPage(kVisitor);
  for (const char* path : {"/pframe", "/newmsg_t", "/chl"})
    EXPECT_TRUE(Contains(page, "<frame src='" + Text(path) + "?" + Text(kQuery) + "'>")) << path;
}

TEST(Pages, OfFailuresSayTheStatusInWords) {
  EXPECT_TRUE(Contains(ErrorPage(404), "<h1>404 Not Found</h1>"));
}

TEST(Pages, EscapeWhatTheyAreGiven) {
  EXPECT_TRUE(Contains(GoodbyePage("<b>"), "&lt;b&gt;"));
  EXPECT_TRUE(Contains(NoSuchChannelPage("<b>"), "&lt;b&gt;"));
}

}  // namespace
}  // namespace parlorwire::service
