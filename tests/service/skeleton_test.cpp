#include "service/skeleton.h"

#include <gtest/gtest.h>

#include "service/names.h"

namespace parlorwire::service {
namespace {

TEST(SkeletonOfANick, IsTheSameForWhatLooksTheSameInOneCase) {
  EXPECT_EQ(Skeleton("ВОВА"_w), Skeleton("BOBA"));
  EXPECT_EQ(Skeleton("рор"_w), Skeleton("pop"));
  EXPECT_EQ(Skeleton("Рор"_w), Skeleton("POP"));
  EXPECT_EQ(Skeleton("al1ce0"), Skeleton("AIiceO"));
  EXPECT_EQ(Skeleton("a\x96\x62"), Skeleton("a-b"));
}

TEST(SkeletonOfANick, KeepsApartWhatTheEyeDoes) {
  for (const Text& nick : {"alibe"_w, "alicee"_w, "алиса"_w, "a-lice"_w, ""_w})
    EXPECT_NE(Skeleton(nick), Skeleton("alice")) << nick;
  EXPECT_NE(Skeleton("user10"), Skeleton("user11"));
}

TEST(SkeletonOfANick, IsOfOneAlphabet) {
  for (const Text& nick : {"alice"_w, "Ёжик"_w, "007"_w, "Ёж-2_!"_w, "bob2"_w, "Їжак"_w, ""_w})
    EXPECT_TRUE(IsOfOneAlphabet(nick)) << nick;
  for (const Text& nick : {"аlice"_w, "Bасилий"_w, "бот2bot"_w, "aі"_w})
    EXPECT_FALSE(IsOfOneAlphabet(nick)) << nick;
}

TEST(SkeletonOfANick, HoldsNothingThatIsNotSeen) {
  for (const char c : {'\xAD', '\x98', '\xA0', '\x7F', '\x01'}) {
    EXPECT_FALSE(NickIsAllowed(Text("ali") + c + "ce")) << int{c};
    EXPECT_FALSE(ChannelIsAllowed(Text("ha") + c + "ll")) << int{c};
  }
  EXPECT_FALSE(NickIsAllowed("аlice"_w));
}

}  // namespace
}  // namespace parlorwire::service
