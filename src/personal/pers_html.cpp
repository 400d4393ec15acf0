#include "personal/pers_html.h"

#include <algorithm>
#include <cstddef>

namespace parlorwire {
namespace {

constexpr std::string_view kAnchor = "<a href=\"/redirect?msgtext=";
constexpr std::string_view kAnchorEnd = "</a>";
constexpr std::string_view kPictureTag = "<img src";
constexpr std::size_t kNone = Text::npos;

std::string_view SmileNameOf(std::string_view source) {
  for (const SmileSource& row : kSmileSources)
    if (source == row.source) source = row.name;
  return source;
}

// Where something stands next. The place is kept until it is passed, so that a text full of
// beginnings is not searched to its end for each of them.
class NextPlace {
 public:
  NextPlace(const Text& text, std::string_view what) : text_(text), what_(what) {}
  std::size_t From(std::size_t at) {
    if (!known_ || (place_ != kNone && place_ < at)) place_ = text_.find(what_, at);
    known_ = true;
    return place_;
  }
  // What stands ahead of `at` is another text now.
  void ChangedAheadOf(std::size_t at) {
    if (place_ < at) known_ = false;
  }

 private:
  const Text& text_;
  std::string_view what_;
  std::size_t place_ = kNone;
  bool known_ = false;
};

// Goes through a text once. What is reduced is written over the end of what it stood for, and
// reading goes on in it.
class Reduction {
 public:
  explicit Reduction(std::string_view text) : text_(text) {}

  Text Result() {
    Text result;
    result.reserve(text_.size());
    while (at_ < text_.size()) {
      ReduceAnchor();
      ReducePicture();
      if (at_ < text_.size()) result += text_[at_++];
    }
    return result;
  }

 private:
  bool StandsHere(std::string_view what) const {
    return text_.compare(at_, what.size(), what) == 0;
  }

  void ReduceAnchor() {
    if (!StandsHere(kAnchor)) return;
    const std::size_t url = at_ + kAnchor.size();
    const std::size_t end = anchor_end_.From(at_);
    const std::size_t quote = quote_.From(url);
    if (end == kNone || quote == kNone || quote > end) return;
    Put(Text(text_, url, quote - url), end + kAnchorEnd.size());
  }

  void ReducePicture() {
    if (!StandsHere(kPictureTag)) return;
    const std::size_t quote = quote_.From(at_);
    const std::size_t bracket = bracket_.From(at_);
    if (quote == kNone || quote > bracket) return;
    const std::size_t start = quote + 1;
    const std::size_t end = std::min(bracket, text_.size());
    const std::size_t dot = dot_.From(start + 1);
    const std::string_view all = text_;
    const auto source =
        dot < end ? all.substr(start + 1, dot - start - 1) : all.substr(start, end - start);
    const std::string_view name = SmileNameOf(source);
    if (dot < end || name.data() != source.data())
      Put("*" + Text(name) + "*", std::min(end + 1, text_.size()));
    else
      KeepSource(start, end);
  }

  // What has no name stays where it is, between two stars.
  void KeepSource(std::size_t start, std::size_t end) {
    at_ = start - 1;
    text_[at_] = '*';
    if (end < text_.size())
      text_[end] = '*';
    else
      text_ += '*';
    Changed(end + 1);
  }

  void Put(const Text& reduced, std::size_t end) {
    at_ = end - reduced.size();
    text_.replace(at_, reduced.size(), reduced);
    Changed(end);
  }

  void Changed(std::size_t end) {
    for (NextPlace* next : {&quote_, &bracket_, &dot_, &anchor_end_})
      next->ChangedAheadOf(end);
  }

  Text text_;
  std::size_t at_ = 0;
  NextPlace quote_{text_, "\""};
  NextPlace bracket_{text_, ">"};
  NextPlace dot_{text_, "."};
  NextPlace anchor_end_{text_, kAnchorEnd};
};

}  // namespace

Text PersHtmlToText(std::string_view text) {
  return Reduction(text).Result();
}

}  // namespace parlorwire
