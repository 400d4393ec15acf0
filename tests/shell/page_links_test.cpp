#include "shell/page_links.h"

#include <gtest/gtest.h>

#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct PageLinks : testing::Test {
  PageLinks() {
    client.hooks.OpenUrl = [this](const Text& url) { opened.push_back(url); };
    client.app.ChatHost = "chat.example";
    platform.desktop.active_tab = 2;
    client.tab(2).Login = "Bob";
    client.tab(2).Ticket = "t1";
    client.tab(2).Channel = "Зал"_w;
    client.tab(2).ChannelPassword = "p";
  }
  SimulatedPlatform platform;
  Client client{platform.Ports()};
  std::vector<Text> opened;
};

constexpr const char* kQuery = "%42%6F%62&ticket=%74%31&channel=%FA%C1%CC&chpwd=%70";

TEST_F(PageLinks, EachLabelOpensItsPageWithTheFieldsOfTheActiveTab) {
  sp_bans(client);
  sp_opers(client);
  hist_topic(client);
  EXPECT_EQ(opened, (std::vector<Text>{"http://chat.example/banlist?username=" + Text(kQuery),
                                       "http://chat.example/oplist?username=" + Text(kQuery),
                                       "http://chat.example/topic_hist?username=" + Text(kQuery)}));
}

TEST_F(PageLinks, APortOtherThan80IsNamed) {
  client.app.ChatPort = "8080";
  sp_bans(client);
  EXPECT_EQ(opened.front(), "http://chat.example:8080/banlist?username=" + Text(kQuery));
}

TEST_F(PageLinks, AFieldWithAPlusGrowsAsInEveryRequest) {
  client.tab(2).Login = "a+b";
  sp_bans(client);
  EXPECT_TRUE(
      opened.front().starts_with("http://chat.example/banlist?username=%61%25%32%42%62&ticket="));
  EXPECT_EQ(client.tab(2).Login, "a%2Bb");
}

TEST_F(PageLinks, LetogrOpensThePageThatTheFileNames) {
  client.app.LetografUrl = "http://stat.example/";
  letogr(client);
  EXPECT_EQ(opened, std::vector<Text>{"http://stat.example/"});
}

}  // namespace
}  // namespace parlorwire
