#include "users/list_walk.h"

#include "users/user_list_fixture.h"

namespace parlorwire {
namespace {

struct ListWalkTest : UserListTest {
  ListWalkTest() { Draw({"ann|[][]''", "bob|[][]''", "cid|[][]''"}); }
  Text Step(ListStep step, PanePosition caret, const Text& reached = "") {
    const auto user = StepInList(List(), caret, reached, step);
    return user ? user->nick : "-";
  }
  Text InHand(PanePosition caret, const Text& reached = "") {
    const auto user = UserInHand(List(), caret, reached);
    return user ? user->nick : "-";
  }
  void Leave(const Text& nick) {
    chat.tab().ActionsArmed = true;
    chat.client.hooks.ClientAction(nick + " покидает нас"_w, 0);
  }
};

TEST_F(ListWalkTest, StepsGoFromNickToNickAndStopAtTheEnds) {
  EXPECT_EQ(Step(ListStep::kDown, 0), "ann");
  EXPECT_EQ(Step(ListStep::kDown, At("ann")), "bob");
  EXPECT_EQ(Step(ListStep::kDown, At("bob") + 3), "cid");
  EXPECT_EQ(Step(ListStep::kDown, At("cid")), "-");
  EXPECT_EQ(Step(ListStep::kUp, At("cid")), "bob");
  EXPECT_EQ(Step(ListStep::kUp, At("ann")), "-");
  EXPECT_EQ(Step(ListStep::kUp, List().Length()), "cid");
  EXPECT_EQ(Step(ListStep::kFirst, At("bob")), "ann");
  EXPECT_EQ(Step(ListStep::kLast, At("bob")), "cid");
}

TEST_F(ListWalkTest, AWalkGoesOnInANewList) {
  Draw({"zoe|[][]''", "ann|[][]''", "amy|[][]''", "bob|[][]''", "cid|[][]''"});
  EXPECT_EQ(Step(ListStep::kDown, 0, "ann"), "amy");
  EXPECT_EQ(Step(ListStep::kUp, 0, "ann"), "zoe");
  EXPECT_EQ(InHand(0, "ann"), "ann");
}

TEST_F(ListWalkTest, WhoLeftIsFollowedByTheOneInHisPlace) {
  const PanePosition caret = At("bob");
  Leave("bob");
  EXPECT_EQ(Step(ListStep::kDown, caret, "bob"), "cid");
  EXPECT_EQ(Step(ListStep::kUp, caret, "bob"), "ann");
}

TEST_F(ListWalkTest, InHandIsTheNickThatWasReachedElseThatOfTheCaretsLine) {
  EXPECT_EQ(InHand(At("bob")), "bob");
  EXPECT_EQ(InHand(At("bob") + 2), "bob");
  EXPECT_EQ(InHand(0), "-");
  EXPECT_EQ(InHand(At("bob"), "cid"), "cid");
}

TEST_F(ListWalkTest, InPlaceOfOneWhoLeftNobodyIsInHand) {
  const PanePosition caret = At("bob");
  Leave("bob");
  EXPECT_EQ(InHand(caret, "bob"), "-");
  EXPECT_EQ(InHand(caret), "cid");
}

TEST_F(ListWalkTest, AnEmptyListHasNoSteps) {
  Draw({});
  for (const ListStep step : {ListStep::kUp, ListStep::kDown, ListStep::kFirst, ListStep::kLast})
    EXPECT_EQ(Step(step, 0), "-");
}

}  // namespace
}  // namespace parlorwire
