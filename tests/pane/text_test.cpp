// The text of a pane in blocks of a few characters, so that borders of blocks are everywhere:
// random edits against a plain string.
#include "pane/text.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>

#include "pane/pane_model.h"

namespace parlorwire {
namespace {

struct Sizes {
  PaneBlockSizes blocks;
  PanePosition largest;  // of the text
};

void PrintTo(const Sizes& sizes, std::ostream* out) {
  *out << "text of " << sizes.largest;
}

class PaneTextRandom : public testing::TestWithParam<Sizes> {
 protected:
  PanePosition Below(PanePosition limit) {
    return std::uniform_int_distribution<PanePosition>(0, limit - 1)(random_);
  }

  std::string SomeText(PanePosition longest) {
    static constexpr std::string_view kCharacters = "ab\r\r\r\n\n";
    std::string written;
    for (PanePosition count = Below(longest + 1); count > 0; --count)
      written += kCharacters[static_cast<std::size_t>(Below(std::ssize(kCharacters)))];
    return written;
  }

  void Edit() {
    const PanePosition length = text_.Length();
    const PanePosition start = Below(length + 1);
    const bool much = Below(8) == 0;
    PanePosition end = std::min(length, start + Below(much ? 60 : 4));
    if (Below(300) == 0) end = length;
    if (Below(4) == 0 && start < end) {
      PaneLookChange change{PaneLookChange::kColour, {}};
      change.value.colour = static_cast<PaneColour>(Below(3));
      bool differs = false;
      for (PanePosition i = start; i < end; ++i) {
        const PaneLookId look =
            formats_.Intern(change.AppliedTo(formats_.Look(looks_[static_cast<std::size_t>(i)])));
        differs = differs || look != looks_[static_cast<std::size_t>(i)];
        looks_[static_cast<std::size_t>(i)] = look;
      }
      ASSERT_EQ(text_.Format(start, end, change, formats_), differs);
      return;
    }
    const std::string written =
        length > GetParam().largest ? "" : SomeText(Below(20) == 0 ? 80 : 3);
    PaneLook look;
    look.colour = static_cast<PaneColour>(Below(3));
    look.picture = written.size() == 1 && Below(4) == 0 ? 1U : 0U;
    const PaneLookId id = formats_.Intern(look);
    text_.Replace(start, end, written, id);
    plain_.replace(static_cast<std::size_t>(start), static_cast<std::size_t>(end - start), written);
    looks_.erase(looks_.begin() + start, looks_.begin() + end);
    looks_.insert(looks_.begin() + start, written.size(), id);
  }

  void Compare() {
    const auto length = static_cast<PanePosition>(plain_.size());
    ASSERT_EQ(text_.Length(), length);
    ASSERT_EQ(text_.Read(0, length), plain_);
    const auto starts = LineStarts(plain_);
    ASSERT_EQ(text_.LineCount(), std::ssize(starts));
    for (std::size_t i = 0; i < starts.size(); ++i) {
      const PaneLine line = text_.Line(static_cast<std::int64_t>(i));
      ASSERT_EQ(line.start, starts[i]);
      ASSERT_EQ(line.next, i + 1 < starts.size() ? starts[i + 1] : length);
      const std::string content = text_.Read(line.start, line.next);
      ASSERT_EQ(content.find_first_of("\r\n"),
                static_cast<std::size_t>(line.length) < content.size()
                    ? static_cast<std::size_t>(line.length)
                    : std::string::npos);
    }
    std::int64_t line = 0;
    for (PanePosition i = 0; i <= length; ++i) {
      const bool line_start = std::ranges::binary_search(starts, i);
      if (line_start && i > 0) ++line;
      ASSERT_EQ(text_.LineAt(i), line);
      ASSERT_EQ(text_.IsLineStart(i), line_start);
      const auto at = static_cast<std::size_t>(i);
      ASSERT_EQ(text_.PartsCrLf(i),
                i > 0 && i < length && plain_[at - 1] == '\r' && plain_[at] == '\n');
      ASSERT_TRUE(i == length || text_.LookAt(i) == looks_[at]);
    }
    const PanePosition from = Below(length + 1);
    const PanePosition to = from + Below(length - from + 1);
    PanePosition at = from;
    PaneLookId before = 0;
    for (const PaneStretch& stretch : text_.Looks(from, to)) {
      ASSERT_EQ(stretch.start, at);
      ASSERT_TRUE(at == from || stretch.look != before || IsPicture(before));
      ASSERT_TRUE(!IsPicture(stretch.look) || stretch.length == 1);
      for (; at < stretch.start + stretch.length; ++at)
        ASSERT_EQ(looks_[static_cast<std::size_t>(at)], stretch.look);
      before = stretch.look;
    }
    ASSERT_EQ(at, to);
  }

  std::mt19937 random_{5};
  PaneFormats formats_;
  PaneWork work_;
  PaneText text_{work_, GetParam().blocks};
  std::string plain_;
  std::vector<PaneLookId> looks_;
};

TEST_P(PaneTextRandom, EqualsAPlainStringAfterEachEdit) {
  for (int i = 0; i < 4000; ++i) {
    Edit();
    Compare();
    if (HasFatalFailure()) FAIL() << "edit " << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Blocks, PaneTextRandom,
                         testing::ValuesIn<Sizes>({{{4, 4, 2}, 60},
                                                   {{4, 8, 2}, 200},
                                                   {{5, 7, 3}, 100},
                                                   {{8, 16, 4}, 300},
                                                   {{16, 32, 8}, 600}}));

// Offsets in a block are packed into few bits.
TEST(PaneBlockSizes, AreRefusedThatABlockCannotHold) {
  PaneWork work;
  EXPECT_DEBUG_DEATH(PaneBlockList({2048, 16'001, 256}, work), "");
  EXPECT_DEBUG_DEATH(PaneBlockList({16'001, 16'001, 256}, work), "");
  EXPECT_DEBUG_DEATH(PaneBlockList({3, 16, 2}, work), "");
  EXPECT_DEBUG_DEATH(PaneBlockList({16, 8, 2}, work), "");
  EXPECT_DEBUG_DEATH(PaneBlockList({8, 16, 1}, work), "");
  const PaneBlockList largest({16'000, 16'000, 2}, work);
  EXPECT_EQ(largest.sizes().limit, 16'000U);
}

}  // namespace
}  // namespace parlorwire
