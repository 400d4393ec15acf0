#include "users/input_history.h"

#include <gtest/gtest.h>

#include <ostream>

#include "support/fault_of.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

struct InputHistoryTest : testing::Test {
  void Send(const Text& text) {
    RememberInput(session, text);
    session.HistoryPos = 0;
  }
  Text Up() { return InputHistoryStep(session, HistoryDirection::kUp); }
  Text Down() { return InputHistoryStep(session, HistoryDirection::kDown); }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  TabSession& session = client.tab(0);
};

TEST_F(InputHistoryTest, UpWalksToTheOldestLineAndStays) {
  for (const char* line : {"a", "b", "c"})
    Send(line);
  EXPECT_EQ(Up(), "c");
  EXPECT_EQ(session.HistoryState, "up");
  EXPECT_EQ(Up(), "b");
  EXPECT_EQ(Up(), "a");
  EXPECT_EQ(session.HistoryState, "upoverflow");
  EXPECT_EQ(Up(), "a");
  EXPECT_EQ(Up(), "a");
  EXPECT_EQ(session.HistoryPos, 2);
}

TEST_F(InputHistoryTest, DownDirectlyAfterUpShowsTheNewestLine) {
  for (const char* line : {"a", "b", "c"})
    Send(line);
  Up();
  Up();
  EXPECT_EQ(Down(), "c");
  EXPECT_EQ(session.HistoryPos, 0);
  EXPECT_EQ(session.HistoryState, "down");
  EXPECT_EQ(Down(), "c");
}

TEST_F(InputHistoryTest, DownFromTheOldestLineGoesBackOneByOne) {
  for (const char* line : {"a", "b", "c"})
    Send(line);
  for (int i = 0; i < 3; ++i)
    Up();
  EXPECT_EQ(Down(), "b");
  EXPECT_EQ(Down(), "c");
  EXPECT_EQ(Down(), "c");
}

TEST_F(InputHistoryTest, UpAfterDownShowsTheLineBehindTheOneShown) {
  for (const char* line : {"a", "b", "c"})
    Send(line);
  for (int i = 0; i < 3; ++i)
    Up();
  EXPECT_EQ(Down(), "b");
  EXPECT_EQ(Up(), "a");
  EXPECT_EQ(Down(), "b");
  EXPECT_EQ(Down(), "c");
  EXPECT_EQ(Up(), "b");
}

TEST_F(InputHistoryTest, AFourthLinePushesTheOldestOut) {
  for (const char* line : {"a", "b", "c", "d"})
    Send(line);
  EXPECT_EQ(session.HistoryLines, (std::array<Text, 3>{"d", "c", "b"}));
  EXPECT_EQ(session.HistoryState, "none");
}

TEST_F(InputHistoryTest, IsEmptyAtFirst) {
  EXPECT_EQ(Up(), "");
  EXPECT_EQ(Up(), "");
  EXPECT_EQ(Up(), "");
  EXPECT_EQ(Down(), "");
}

TEST_F(InputHistoryTest, TabsHaveHistoriesOfTheirOwn) {
  Send("a");
  EXPECT_EQ(InputHistoryStep(client.tab(1), HistoryDirection::kUp), "");
}

TEST_F(InputHistoryTest, APositionBehindTheLinesIsAFault) {
  session.HistoryPos = 3;
  EXPECT_EQ(FaultOf([&] { Up(); }), 9);
}

TEST_F(InputHistoryTest, BrowsingFillsTheBox) {
  Send("a");
  Send("b");
  BrowseInputHistory(client, HistoryDirection::kUp, 0);
  EXPECT_EQ(platform.desktop.at(0).msg, "b");
  BrowseInputHistory(client, HistoryDirection::kUp, 0);
  EXPECT_EQ(platform.desktop.at(0).msg, "a");
  BrowseInputHistory(client, HistoryDirection::kDown, 0);
  EXPECT_EQ(platform.desktop.at(0).msg, "b");
}

TEST_F(InputHistoryTest, ABlankLineLeavesTheBoxAsItIs) {
  session.HistoryLines = {"  ", "", ""};
  platform.desktop.at(0).msg = "typed";
  BrowseInputHistory(client, HistoryDirection::kUp, 0);
  EXPECT_EQ(platform.desktop.at(0).msg, "typed");
  EXPECT_EQ(session.HistoryPos, 1);
}

struct WordCase {
  const char* name;
  BoxText before;
  BoxText after;
};

void PrintTo(const WordCase& word, std::ostream* out) {
  *out << word.name;
}

class DeleteWordAheadTest : public testing::TestWithParam<WordCase> {};

TEST_P(DeleteWordAheadTest, Leaves) {
  EXPECT_EQ(DeleteWordAhead(GetParam().before), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    Boxes, DeleteWordAheadTest,
    testing::Values(WordCase{"TheBlankItStopsAt", {"one two", 7}, {"one ", 4}},
                    WordCase{"WhatStandsBehindTheCaret", {"one two three", 6}, {"one o three", 4}},
                    WordCase{"NothingOfASingleWord", {"one", 3}, {"", 0}},
                    WordCase{"TheRestOfASingleWord", {"one", 1}, {"ne", 0}},
                    WordCase{"AllBehindABlank", {"one ", 4}, {"one ", 4}},
                    WordCase{"AllAtTheStart", {"one", 0}, {"one", 0}},
                    WordCase{"NothingOfNothing", {"", 0}, {"", 0}},
                    WordCase{"NoTabInAWord", {"one\ttwo", 7}, {"", 0}}),
    [](const auto& test) { return std::string(test.param.name); });

}  // namespace
}  // namespace parlorwire
