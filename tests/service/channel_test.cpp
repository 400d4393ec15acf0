#include "service/channel.h"

#include <gtest/gtest.h>

#include "chat_fixture.h"
#include "text/cut.h"

namespace parlorwire::service {
namespace {

using ChannelTest = ChatFixture;

TEST_F(ChannelTest, EverybodyReadsAMessageInHisOwnStyle) {
  Frame& alice = Come("alice");
  Frame& bob = Come("bob", "hall", 1);
  Frame& carol = Come("carol", "attic");
  Read(alice);
  EXPECT_EQ(Say("bob", "hi <all>"), "Сообщение отправлено"_w);
  EXPECT_EQ(Read(alice), "..[07:08:09]bob:() hi &lt;all&gt;\n");
  EXPECT_EQ(Read(bob),
            "<B><FONT color=\"#FF5050\">bob</FONT></B>: hi &lt;all&gt; "
            "<font size=-1 color=\"#cfcfff\">[07:08:09]</font><BR>\n");
  EXPECT_EQ(Read(carol), "");
}

TEST_F(ChannelTest, HistoryKeepsTwoHundredLines) {
  Come("alice");
  for (int i = 0; i < 500; ++i)
    Say("alice", std::to_string(i));
  EXPECT_EQ(FindChannel(chat, "hall")->history.size(), 200U);
}

}  // namespace
}  // namespace parlorwire::service
