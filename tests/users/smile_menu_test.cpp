#include "users/smile_menu.h"

#include <gtest/gtest.h>

#include "support/chat.h"
#include "support/one_smile.h"

namespace parlorwire {
namespace {

TEST(SmileMenu, EachLineOfTheTableIsAnItemWithAllItsCodes) {
  Chat chat;
  LoadSmileLines(chat.platform, chat.client, {":) :-) smile", "", ":("});
  const auto items = SmileItems(chat.client);
  ASSERT_EQ(items.size(), 2U);
  EXPECT_EQ(items[0].caption, "*:) *:-) *smile");
  EXPECT_EQ(items[1].caption, "*:(");
  // Each has the picture of its own line.
  EXPECT_EQ(items[0].picture, LoadResourceBitmap(chat.client.app.resources, 102));
  EXPECT_NE(items[0].picture, items[1].picture);
}

TEST(SmileMenu, ALineWithoutAPictureIsNoItem) {
  Chat chat;
  LoadSmileLines(chat.platform, chat.client, {":)"});
  chat.client.app.SmileTable += "\r\n:(";
  const auto items = SmileItems(chat.client);
  ASSERT_EQ(items.size(), 1U);
  EXPECT_EQ(items[0].caption, "*:)");
}

TEST(SmileMenu, WithoutATableThereIsNothing) {
  Chat chat;
  EXPECT_TRUE(SmileItems(chat.client).empty());
}

TEST(SmileMenu, AClickTakesTheFirstCode) {
  EXPECT_EQ(SmileToInsert("*:) *:-) *smile"), " *:) ");
  EXPECT_EQ(SmileToInsert("*:("), " *:( ");
}

}  // namespace
}  // namespace parlorwire
