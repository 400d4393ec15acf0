// A client with ten tabs goes through hours of faults and loses nothing that reached it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

#include "conversation/rough_evening.h"
#include "support/allocated_bytes.h"
#include "support/pane_runs.h"

namespace parlorwire {
namespace {

constexpr std::int64_t kMinute = 60'000;

// SOAK_SEED in the environment replaces the usual ones.
std::vector<std::uint32_t> Seeds() {
  if (const char* seed = std::getenv("SOAK_SEED"))
    return {static_cast<std::uint32_t>(std::strtoul(seed, nullptr, 10))};
  return {2, 3, 4};
}

void ExpectNothingLost(RoughEvening& evening) {
  for (int tab = 0; tab < kTabCount; ++tab) {
    EXPECT_EQ(evening.WrongInPane(tab), "") << "pane " << tab;
    EXPECT_EQ(evening.WrongInLog(tab), "") << "log " << tab;
  }
}

class Soak : public testing::TestWithParam<std::uint32_t> {};

TEST_P(Soak, AnHourOfFaultsLosesNoLineThatCame) {
  SCOPED_TRACE("seed " + std::to_string(GetParam()));
  RoughEvening evening(GetParam());
  for (int minute = 0; minute < 60; ++minute) {
    for (int second = 0; second < 60; ++second) {
      evening.Live(1000);
      for (int tab = 0; tab < kTabCount; ++tab)
        ASSERT_EQ(evening.WrongState(tab), "") << "tab " << tab << ", minute " << minute;
    }
  }
  ExpectNothingLost(evening);

  std::cout << "seed " << GetParam() << ": " << evening.said << " lines said, " << evening.shown
            << " shown";
  for (const auto& [name, count] : evening.mishaps)
    std::cout << ", " << name << " " << count;
  std::cout << "\n";
  EXPECT_GT(evening.shown, 5000);
  for (const char* mishap :
       {"closed",       "reset",        "timed out",    "stalled",        "garbage",
        "wrong style",  "flag +R",      "ejected",      "kicked",         "F5",
        "F6",           "F8",           "left",         "tab closed",     "personal message",
        "service gone", "cut within",   "reset within", "stalled within", "garbage within",
        "refused",      "connect hangs"})
    EXPECT_GT(evening.mishaps[mishap], 0) << mishap;

  // When it is over every tab is on its channel again.
  evening.LiveInPeace(8 * kMinute);
  ExpectNothingLost(evening);
  for (int i = 0; i < kTabCount; ++i) {
    const TabSession& tab = evening.tab(i);
    EXPECT_TRUE(tab.Connected) << i;
    EXPECT_TRUE(tab.ActionsArmed && tab.LinesArmed);
    EXPECT_FALSE(tab.Timer1->Enabled() || tab.Timer26->Enabled());
    EXPECT_TRUE(tab.Timer3->Enabled());
    EXPECT_EQ(tab.Winsock1->State(), SocketState::kConnected);
    for (const auto* socket : {&tab.Winsock2, &tab.Winsock3, &tab.Winsock4, &tab.Winsock5})
      EXPECT_NE((*socket)->State(), SocketState::kConnecting);
    EXPECT_TRUE(tab.BotQueue.empty());
    EXPECT_EQ(tab.ChannelListPage, "");
    EXPECT_EQ(tab.LineCarry, "");
  }

  // And without a service every tab tries again each five seconds.
  evening.StopService();
  for (int i = 0; i < kTabCount; ++i) {
    EXPECT_TRUE(evening.tab(i).Timer1->Enabled()) << i;
    EXPECT_FALSE(evening.tab(i).Timer3->Enabled()) << i;
    EXPECT_EQ(evening.tab(i).Winsock1->State(), SocketState::kClosed) << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Soak, testing::ValuesIn(Seeds()));

TEST(SoakMemory, RoundsOfFaultsLeaveNoneBehind) {
  RoughEvening evening(11);
  evening.garbage = false;  // a nick out of garbage gets a colour of its own, for good
  std::vector<std::size_t> after;
  for (int round = 0; round < 16; ++round) {
    evening.Live(4 * kMinute);
    evening.StopService();
    evening.ClearAll();
    after.push_back(AllocatedBytes());
    evening.StartService();
  }
  EXPECT_GT(evening.shown, 10'000);
  // What the first rounds set up for good is there by then.
  const auto [least, most] = std::minmax_element(after.begin() + 6, after.end());
  EXPECT_LT(*most - *least, 40'000U) << testing::PrintToString(after);
}

}  // namespace
}  // namespace parlorwire
