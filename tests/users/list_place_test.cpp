#include "users/list_place.h"

#include "users/user_list_fixture.h"

namespace parlorwire {
namespace {

struct ListPlaceTest : UserListTest {
  ListPlaceTest() { Draw({"ann|[][]''", "bob|[][]''", "cid|[][]''", "dan|[][]''"}); }
  Text FoundAt(const ListPlace& place) {
    const auto at = FindListPlace(List(), place);
    return at ? List().TextBetween(*at, *at + 3) : "-";
  }
};

TEST_F(ListPlaceTest, IsTheNicksFromThereOn) {
  EXPECT_EQ(PlaceInList(List(), At("cid")), (ListPlace{"cid", "dan"}));
  EXPECT_EQ(PlaceInList(List(), At("bob") + 2), (ListPlace{"bob", "cid", "dan"}));
}

TEST_F(ListPlaceTest, TheListsBeginningIsNoPlace) {
  EXPECT_EQ(PlaceInList(List(), 0), ListPlace{});
  EXPECT_EQ(PlaceInList(List(), At("ann") + 1), ListPlace{});
  EXPECT_EQ(PlaceInList(RichTextBox(), 0), ListPlace{});
}

TEST_F(ListPlaceTest, IsFoundByNickInANewList) {
  const ListPlace place = PlaceInList(List(), At("cid"));
  Draw({"abe|[][]''", "dan|[][]''", "ann|[][]''", "cid|[][]''"});
  EXPECT_EQ(FoundAt(place), "cid");
}

TEST_F(ListPlaceTest, WhereTheNickIsGoneTheNextThatIsLeftCounts) {
  const ListPlace place = PlaceInList(List(), At("bob"));
  Draw({"dan|[][]''", "ann|[][]''", "cid|[][]''"});
  EXPECT_EQ(FoundAt(place), "cid");
  Draw({"ann|[][]''"});
  EXPECT_EQ(FoundAt(place), "-");
}

}  // namespace
}  // namespace parlorwire
