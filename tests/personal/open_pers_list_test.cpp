#include "personal/open_pers_list.h"

#include <gtest/gtest.h>

#include "support/fault_of.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

TEST(OpenPersList, EntriesStandWithBlanksBetween) {
  EXPECT_EQ(WithEntry("", "ann_1"), "ann_1");
  EXPECT_EQ(WithEntry("ann_1", "bob_2"), "ann_1 bob_2");
}

TEST(OpenPersList, IsSearchedWithoutRegardToCase) {
  EXPECT_TRUE(IsListed("ann_1 \xC1\xEE\xE1_2", "ANN"));
  EXPECT_TRUE(IsListed("ann_1 \xC1\xEE\xE1_2", "\xE1\xCE\xC1"));
  EXPECT_EQ(ListedHandle("ann_1 bob_22 carl_3", "BOB"), 22);
  EXPECT_FALSE(IsListed("ann_1", "bob"));
  EXPECT_FALSE(IsListed("", "bob"));
}

TEST(OpenPersList, ALoginWithinAListedOneIsTakenForOpen) {
  EXPECT_TRUE(IsListed("joanna_1234", "ann"));
  EXPECT_EQ(ListedHandle("joanna_1234", "ann"), 1234);
}

TEST(OpenPersList, AnUnderscoreOfTheLoginIsNotTheOneAheadOfTheHandle) {
  EXPECT_EQ(ListedHandle("x_1 a_b_c_12 y_3", "a_b_c"), 12);
  EXPECT_EQ(ListedHandle("_a__7", "_a_"), 7);
}

TEST(OpenPersList, AnEntryGoesWithoutRegardToCase) {
  EXPECT_EQ(WithoutEntry("ann_1", "ANN_1"), "");
  EXPECT_EQ(WithoutEntry("ann_1 bob_2", "ann_1"), "bob_2");
  EXPECT_EQ(WithoutEntry("ann_1 bob_2", "bob_2"), "ann_1");
  EXPECT_EQ(WithoutEntry("ann_1 bob_22", "bob_2"), "ann_1 bob_22");
}

TEST(OpenPersList, TheNeighboursOfAnEntryThatWentBecomeOne) {
  const Text fused = WithoutEntry("ann_1 bob_2 carl_3", "bob_2");
  EXPECT_EQ(fused, "ann_1carl_3");
  EXPECT_TRUE(IsListed(fused, "carl"));
  EXPECT_EQ(FaultOf([&] { ListedHandle(fused, "carl"); }), fault::kTypeMismatch);
  EXPECT_EQ(FaultOf([&] { ListedHandle(fused, "ann"); }), fault::kTypeMismatch);
  EXPECT_EQ(WithoutEntry(fused, "carl_3"), fused);
}

TEST(OpenPersList, AHandleThatIsNoNumberIsAFault) {
  EXPECT_EQ(FaultOf([] { ListedHandle("ann", "ann"); }), fault::kTypeMismatch);
  EXPECT_EQ(FaultOf([] { ListedHandle("ann_", "ann"); }), fault::kTypeMismatch);
  EXPECT_EQ(FaultOf([] { ListedHandle("ann_x", "ann"); }), fault::kTypeMismatch);
  EXPECT_EQ(FaultOf([] { ListedHandle("ann_99999999999", "ann"); }), fault::kOverflow);
}

}  // namespace
}  // namespace parlorwire
