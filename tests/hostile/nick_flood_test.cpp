// Nicks by the hundred thousand, and odd ones.
#include <gtest/gtest.h>

#include <string>

#include "display/message_colours.h"
#include "session/ini.h"
#include "support/allocated_bytes.h"
#include "support/chat.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

struct NickFlood : testing::Test {
  void Speak(const Text& nick) { LookupMessageColor(chat.client, nick + ":"); }
  Text Table() { return colours.text(); }
  Text& File() { return chat.platform.files.files["CM.ini"]; }
  static Text Long(int number, std::size_t size) {
    Text nick = std::to_string(number);
    return nick + Text(size - nick.size(), 'x');
  }
  Chat chat;
  NickColours& colours = chat.client.app.CmIniText;
};

// The pieces that are looked at for a nick, its equals included, however many others there are.
TEST_F(NickFlood, NicksWithEqualsSignsCostNoMoreThanOthers) {
  for (int i = 0; i < 20'000; ++i)
    Speak("a=" + std::to_string(i));
  for (const char* nick : {"a=7", "a=19999", "b", "a=new", "a"}) {
    const std::uint64_t work = colours.work();
    for (int i = 0; i < 100; ++i)
      Speak(nick);
    EXPECT_LE(colours.work() - work, 300U) << nick;
  }
}

TEST_F(NickFlood, ANickOfEqualsSignsAloneIsFoundAgain) {
  const Text nick(64, '=');
  chat.platform.random.script = {0.5, 0.25, 0.75};
  Speak(nick);
  Speak("bob");
  EXPECT_EQ(LookupMessageColor(chat.client, nick + ":"), Rgb(128, 139, 192));
  EXPECT_TRUE(Table().starts_with(nick + "="));
  EXPECT_EQ(Split(Table(), " ").size(), 2U);
}

TEST_F(NickFlood, TheTableKeepsTheTwentyThousandSeenLast) {
  for (int i = 0; i < 50'000; ++i) {
    Speak("user" + std::to_string(i));
    if (i % 10'000 == 0) Speak("friend");
  }
  EXPECT_EQ(Split(Table(), " ").size(), 20'000U);
  EXPECT_TRUE(Table().starts_with("user49999="));
  EXPECT_TRUE(colours.Peek("friend"));
  EXPECT_TRUE(colours.Peek("user49999"));
  EXPECT_TRUE(colours.Peek("user30001"));
  EXPECT_FALSE(colours.Peek("user29999"));
}

TEST_F(NickFlood, NicksThatAreNotListedAreNotRememberedForEver) {
  UserRecords& users = chat.tab().UsersText;
  users.Append("bob", "", "[+o]", "");
  const std::size_t before = AllocatedBytes();
  for (int i = 0; i < 200'000; ++i)
    EXPECT_EQ(users.Find(Long(i, 60)), 0);
  EXPECT_LT(AllocatedBytes() - before, std::size_t{4} * 1024 * 1024);
  EXPECT_EQ(users.Find("bob"), 3);
}

TEST_F(NickFlood, ANickAboveSixtyFourCharactersHasAColourAndNoEntry) {
  Speak(Long(1, 64));
  const Text table = Table();
  EXPECT_TRUE(table.starts_with(Long(1, 64) + "="));
  chat.platform.random.script = {0.5, 0.25, 0.75};
  EXPECT_EQ(LookupMessageColor(chat.client, Long(1, 65) + ":"), Rgb(128, 139, 192));
  EXPECT_EQ(Table(), table);
  change_message_color(chat.client, Long(1, 65), 7);
  EXPECT_EQ(Table(), table);
}

TEST_F(NickFlood, WhatIsWrittenIsLoadedAgain) {
  for (int i = 0; i < 60'000; ++i)
    Speak(Long(i, 64));
  const Text table = Table();
  SaveNickColours(chat.client);
  EXPECT_EQ(File(), table);
  EXPECT_LT(File().size(), 2'000'000U);
  LoadNickColours(chat.client);
  EXPECT_EQ(Table(), table);
}

TEST_F(NickFlood, OfAnOldHugeFileTheFrontIsTaken) {
  Text text;
  for (int i = 0; i < 400'000; ++i)
    text += "user" + std::to_string(i) + "=" + std::to_string(i) + " ";
  text += "long" + Text(100, 'x') + "=1 " + Text(65, 'y');
  File() = text;
  LoadNickColours(chat.client);
  EXPECT_TRUE(Table().ends_with(" user19999=19999"));
  EXPECT_EQ(Split(Table(), " ").size(), 20'000U);
  EXPECT_FALSE(colours.Peek("user20000"));
}

TEST_F(NickFlood, LongNicksOfAnOldFileAreLeftOut) {
  File() = "al=1 " + Text(65, 'x') + "=2 " + Text(64, 'y') + "=3 " + Text(65, 'z') + " bob=4";
  LoadNickColours(chat.client);
  EXPECT_EQ(Table(), "al=1 " + Text(64, 'y') + "=3 bob=4");
}

TEST_F(NickFlood, ATextThatCouldNotBeLoadedIsNotWritten) {
  const auto largest = static_cast<std::size_t>(kLargestConfigFile);
  const Text text = "a=" + Text(largest - 2, 'x');
  File() = text;
  LoadNickColours(chat.client);
  Speak("bob");
  SaveNickColours(chat.client);
  EXPECT_TRUE(File() == text);
}

}  // namespace
}  // namespace parlorwire
