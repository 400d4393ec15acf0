#include "pane/qt/wrap.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "pane/rich_text_box.h"
#include "text/windows1251.h"

namespace parlorwire {
namespace {

constexpr float kTabStop = 48;       // half an inch
constexpr float kTolerance = 0.01F;  // what adding up may miss

bool IsBlank(char byte) {
  return byte == ' ' || byte == '\t';
}

// A hyphen between a word and a letter is a place to break.
bool BreaksBehind(std::string_view text, std::size_t index) {
  if (text[index] != '-' || index == 0 || index + 1 >= text.size()) return false;
  const char before = text[index - 1];
  return !IsBlank(before) && before != '-' && QChar(ToUnicode(text[index + 1])).isLetter();
}

// Takes the characters of a row one by one, and remembers the last place to break.
class RowMaker {
 public:
  RowMaker(int start, float width, float* edges)
      : start_(start), width_(width + kTolerance), edges_(edges) {
    now_.end = start;
  }

  const WrappedRow& now() const { return now_; }
  // The row, if it ends ahead of what did not fit.
  const WrappedRow& Ended() const { return place_.end > start_ ? place_ : now_; }

  bool Fits(float advance) const { return now_.right + advance <= width_ || now_.end == start_; }
  void Take(float advance) {
    if (edges_ != nullptr) edges_[now_.end] = now_.right;
    ++now_.end;
    now_.right += advance;
    now_.natural = now_.right;
  }
  void TakeBlank(float advance) {
    const float natural = now_.natural;
    Take(advance);
    now_.natural = natural;
    MayBreak();
  }
  void TakeTab() { TakeBlank((std::floor(now_.right / kTabStop) + 1) * kTabStop - now_.right); }
  void MayBreak() { place_ = now_; }

 private:
  int start_;
  float width_;
  float* edges_;
  WrappedRow now_;
  WrappedRow place_;
};

}  // namespace

std::size_t ShownText::StretchAt(int index) const {
  const auto behind =
      std::upper_bound(stretches.begin(), stretches.end(), index,
                       [](int value, const Stretch& stretch) { return value < stretch.start; });
  return behind == stretches.begin() ? 0 : static_cast<std::size_t>(behind - stretches.begin()) - 1;
}

ShownText ReadShown(const RichTextBox& box, PanePosition start, PanePosition end,
                    LayoutTools& tools) {
  ShownText shown;
  shown.bytes = box.TextBetween(start, end);
  const std::vector<PaneStretch> looks = box.LooksBetween(start, end);
  shown.stretches.reserve(looks.size());
  for (const PaneStretch& stretch : looks) {
    const int first = static_cast<int>(stretch.start - start);
    shown.stretches.push_back({first, first + static_cast<int>(stretch.length),
                               tools.looks.For(box, stretch.look, tools.pictures)});
  }
  return shown;
}

WrappedRow WrapRow(const ShownText& text, int start, float width, float* edges) {
  RowMaker row(start, width, edges);
  const int limit =
      static_cast<int>(std::min(text.bytes.size(), static_cast<std::size_t>(start) + kRowLimit));
  for (std::size_t s = text.StretchAt(start); row.now().end < limit; ++s) {
    const ShownText::Stretch& stretch = text.stretches[s];
    if (stretch.look->picture != nullptr) {
      row.MayBreak();
      const auto advance = static_cast<float>(stretch.look->picture_size.width());
      if (!row.Fits(advance)) return row.Ended();
      row.Take(advance);
      row.MayBreak();
      continue;
    }
    const GlyphTable& glyphs = *stretch.look->glyphs;
    const int end = std::min(stretch.end, limit);
    for (int i = row.now().end; i < end; ++i) {
      const char byte = text.bytes[static_cast<std::size_t>(i)];
      if (byte == '\t') {
        row.TakeTab();
        continue;
      }
      const float advance = glyphs.Of(byte).advance;
      if (byte == ' ') {
        row.TakeBlank(advance);
        continue;
      }
      if (!row.Fits(advance)) return row.Ended();
      row.Take(advance);
      if (BreaksBehind(text.bytes, static_cast<std::size_t>(i))) row.MayBreak();
    }
  }
  return row.now();
}

}  // namespace parlorwire
