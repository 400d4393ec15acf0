// Random edits against the plain model: text, runs, lines, selection, and what a view is told.
#include <gtest/gtest.h>

#include <random>

#include "pane/pane_model.h"

namespace parlorwire {
namespace {

class Editor {
 public:
  explicit Editor(unsigned seed, PanePosition largest)
      : random_(seed), largest_(largest), mirror_(box_) {
    box_.Attach(&mirror_);
    for (int i = 0; i < 3; ++i)
      pictures_.push_back(std::make_shared<PanePicture>(
          PanePicture{std::string("*") + static_cast<char>('a' + i), nullptr}));
  }

  void Step() {
    switch (Below(10)) {
      case 0:
      case 1:
        SelectSomewhere();
        break;
      case 2:
        SelectEnd();
        break;
      case 3:
      case 4:
        SetSomeFormat();
        break;
      case 5:
        Paste();
        break;
      case 6:
        Delete();
        break;
      default:
        Write();
        break;
    }
    if (Below(2000) == 0) SetText();
  }

  void Compare() {
    ASSERT_TRUE(mirror_.sound);
    const std::string text = model_.Text();
    ASSERT_EQ(box_.Text(), text);
    ASSERT_EQ(box_.Length(), model_.Length());
    ASSERT_EQ(box_.SelStart(), model_.start);
    ASSERT_EQ(box_.SelLength(), model_.end - model_.start);
    ASSERT_EQ(mirror_.selection, std::pair(box_.SelStart(), box_.SelLength()));
    ASSERT_EQ(box_.SelText(), text.substr(static_cast<std::size_t>(model_.start),
                                          static_cast<std::size_t>(box_.SelLength())));
    ASSERT_TRUE(box_.Runs() == model_.Runs(0, model_.Length()));
    const PanePosition from = Below(model_.Length() + 1);
    const PanePosition to = from + Below(model_.Length() - from + 1);
    ASSERT_TRUE(box_.RunsBetween(from, to) == model_.Runs(from, to));
    ASSERT_EQ(box_.TextBetween(from, to),
              text.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from)));

    const auto starts = LineStarts(text);
    ASSERT_EQ(box_.LineCount(), static_cast<std::int64_t>(starts.size()));
    for (std::size_t i = 0; i < starts.size(); ++i) {
      const auto index = static_cast<std::int64_t>(i);
      const PaneLine line = box_.LineByIndex(index);
      ASSERT_EQ(line.start, starts[i]);
      ASSERT_EQ(line.next, i + 1 < starts.size() ? starts[i + 1] : model_.Length());
      const std::string_view content = std::string_view(text).substr(
          static_cast<std::size_t>(line.start), static_cast<std::size_t>(line.length));
      ASSERT_EQ(content.find_first_of("\r\n"), std::string_view::npos);
      ASSERT_EQ(line.length == line.next - line.start, i + 1 == starts.size());
      ASSERT_EQ(box_.LineAt(line.start), index);
      const PanePosition inside = std::max(line.start, line.next - 1);
      ASSERT_EQ(box_.LineAt(inside), index);
    }

    std::vector<PaneMirror::Line> lines = std::move(mirror_.lines);
    mirror_.lines.clear();
    mirror_.Read(0, box_.LineCount());
    ASSERT_TRUE(lines == mirror_.lines);
  }

 private:
  PanePosition Below(PanePosition limit) {
    return std::uniform_int_distribution<PanePosition>(0, limit - 1)(random_);
  }

  void Select(PanePosition from, PanePosition to) {
    box_.ExSetSel(from, to);
    model_.Select(from, to);
  }

  // Near the old selection more often than not, so that edits meet.
  void SelectSomewhere() {
    PanePosition from = Below(model_.Length() + 1);
    if (Below(3) != 0) from = std::clamp<PanePosition>(model_.start + Below(9) - 4, 0, from * 9);
    from = std::min(from, model_.Length());
    const bool wide = Below(20) == 0;
    Select(from, from + Below(wide ? model_.Length() + 2 : 6));
  }

  void SelectEnd() {
    const PanePosition back = Below(4);
    const PanePosition from = std::max<PanePosition>(model_.Length() - back, 0);
    Select(from, model_.Length());
  }

  template <class Apply, class Change>
  void Set(Apply apply, Change change) {
    apply();
    model_.Format(change);
  }

  void SetSomeFormat() {
    const auto value = static_cast<int>(Below(3));
    switch (Below(8)) {
      case 0:
        Set([&] { box_.SelColor(static_cast<PaneColour>(value)); },
            [&](PaneFormat& f) { f.colour = static_cast<PaneColour>(value); });
        break;
      case 1: {
        const std::string name = value == 0   ? "Arial"
                                 : value == 1 ? "Courier New"
                                              : "A long name of a font";
        Set([&] { box_.SelFontName(name); }, [&](PaneFormat& f) { f.font_name = name; });
        break;
      }
      case 2:
        Set([&] { box_.SelFontSize(value); }, [&](PaneFormat& f) { f.font_size = value; });
        break;
      case 3:
        Set([&] { box_.SelBold(value != 0); }, [&](PaneFormat& f) { f.bold = value != 0; });
        break;
      case 4:
        Set([&] { box_.SelItalic(value != 0); }, [&](PaneFormat& f) { f.italic = value != 0; });
        break;
      case 5:
        Set([&] { box_.SelUnderline(value != 0); },
            [&](PaneFormat& f) { f.underline = value != 0; });
        break;
      case 6: {
        const auto alignment = static_cast<PaneAlignment>(value);
        Set([&] { box_.SelAlignment(alignment); }, [&](PaneFormat& f) { f.alignment = alignment; });
        break;
      }
      default: {
        const auto colour = static_cast<PaneColour>(value);
        Set([&] { box_.SetCharFormat(colour, colour + 1); },
            [&](PaneFormat& f) {
              f.back_colour = colour;
              f.colour = colour + 1;
            });
        break;
      }
    }
  }

  std::string SomeText() {
    static constexpr std::string_view kAlphabet[] = {"a",  "b",    " ",      "\r",
                                                     "\n", "\r\n", "\r\r\n", "\t"};
    std::string text;
    const PanePosition pieces = Below(5);
    for (PanePosition i = 0; i < pieces; ++i)
      text += kAlphabet[static_cast<std::size_t>(Below(std::size(kAlphabet)))];
    if (Below(6) == 0) text += std::string(static_cast<std::size_t>(Below(3000)), 'x');
    if (Below(200) == 0)
      for (int i = 0; i < 300; ++i)
        text += std::string(static_cast<std::size_t>(Below(60)), 'y') +
                (Below(2) == 0 ? "\r\r\n" : "\r");
    return text;
  }

  void Write() {
    if (model_.Length() > largest_)
      return Select(Below(model_.Length()), model_.Length()), Delete();
    const std::string text = SomeText();
    box_.ReplaceSel(text);
    model_.Write(text, nullptr);
  }

  void Delete() {
    box_.ReplaceSel("");
    model_.Write("", nullptr);
  }

  void Paste() {
    const auto& picture = pictures_[static_cast<std::size_t>(Below(std::ssize(pictures_)))];
    box_.PastePicture(picture);
    model_.Write(" ", picture);
  }

  void SetText() {
    const std::string text = SomeText();
    box_.Text(text);
    model_.SetText(text);
  }

  std::mt19937 random_;
  PanePosition largest_;
  RichTextBox box_;
  PaneModel model_;
  PaneMirror mirror_;
  std::vector<std::shared_ptr<const PanePicture>> pictures_;
};

class RichTextBoxRandom : public testing::TestWithParam<unsigned> {};

TEST_P(RichTextBoxRandom, SmallPanesEqualThePlainModelAfterEachStep) {
  Editor editor(GetParam(), 60);
  for (int i = 0; i < 1000; ++i) {
    editor.Step();
    editor.Compare();
    if (testing::Test::HasFatalFailure()) FAIL() << "step " << i;
  }
}

TEST_P(RichTextBoxRandom, PanesOfManyBlocksEqualThePlainModel) {
  Editor editor(GetParam() + 1000, 40'000);
  for (int i = 0; i < 1000; ++i) {
    editor.Step();
    if (i % 50 == 0) editor.Compare();
    if (testing::Test::HasFatalFailure()) FAIL() << "step " << i;
  }
  editor.Compare();
}

INSTANTIATE_TEST_SUITE_P(Seeds, RichTextBoxRandom, testing::Range(0U, 5U));

}  // namespace
}  // namespace parlorwire
