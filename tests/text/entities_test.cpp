#include "text/entities.h"

#include <gtest/gtest.h>

namespace parlorwire {
namespace {

TEST(DecodeEntities, GoesKindByKindInItsOrder) {
  for (const auto decode : {DecodeEntities, DecodeEntitiesNoCase}) {
    EXPECT_EQ(decode("&lt;&gt;&amp;&quot;&nbsp;", kEntities), "<>&\" ");
    EXPECT_EQ(decode("a&amp;lt;b", kEntities), "a&lt;b");
    EXPECT_EQ(decode("&amp;gt;", kEntities), "&gt;");
    EXPECT_EQ(decode("&amp;quot;", kEntities), "\"");
    EXPECT_EQ(decode("&amp;nbsp;", kEntities), " ");
    EXPECT_EQ(decode("&amp;amp;amp;", kEntities), "&amp;amp;");
    EXPECT_EQ(decode("a & b; &copy; &lt", kEntities), "a & b; &copy; &lt");
    EXPECT_EQ(decode("plain", kEntities), "plain");
    EXPECT_EQ(decode("", kEntities), "");
  }
}

TEST(DecodeEntities, LooksAtCaseUnlessToldNotTo) {
  EXPECT_EQ(DecodeEntities("&LT;&Gt;&aMP;&QUOT;&NBSP;"), "&LT;&Gt;&aMP;&QUOT;&NBSP;");
  EXPECT_EQ(DecodeEntitiesNoCase("&LT;&Gt;&aMP;&QUOT;&NBSP;"), "<>&\" ");
}

TEST(DecodeEntities, KnowsThoseThatItIsGiven) {
  const auto two = std::span(kEntities).first(2);
  EXPECT_EQ(DecodeEntities("&lt;&gt;&amp;", two), "<>&amp;");
  EXPECT_EQ(DecodeEntitiesNoCase("&LT;&GT;&AMP;", two), "<>&AMP;");
}

}  // namespace
}  // namespace parlorwire
