#include "service/line.h"

#include <gtest/gtest.h>

namespace parlorwire::service {
namespace {

TEST(Tones, AreThoseOfTheActions) {
  EXPECT_EQ(ToneOfAction("200"), "");
  EXPECT_EQ(ToneOfAction("201"), "внутренним голосом"_w);
  EXPECT_EQ(ToneOfAction("202"), "смеется"_w);
  EXPECT_EQ(ToneOfAction("203"), "задумчиво"_w);
  EXPECT_EQ(ToneOfAction("204"), "уныло"_w);
  EXPECT_EQ(ToneOfAction("205"), "напевает"_w);
  EXPECT_EQ(ToneOfAction("206"), "ворчливо"_w);
  EXPECT_EQ(ToneOfAction("0"), "");
  EXPECT_EQ(ToneOfAction(""), "");
}

}  // namespace
}  // namespace parlorwire::service
