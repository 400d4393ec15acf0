// The HTML of a personal message. It must become what a plain search from place to place makes of
// it.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "personal/pers_html.h"
#include "text/cut.h"

using namespace parlorwire;

namespace {

constexpr std::string_view kAnchor = "<a href=\"/redirect?msgtext=";

Text NameOf(Text source) {
  const Position dot = InStr(2, source, ".");
  if (dot > 0) source = Mid(source, 2, dot - 2);
  for (const SmileSource& row : kSmileSources)
    if (source == row.source) source = row.name;
  return "*" + source + "*";
}

Text Plain(std::string_view text) {
  Text t = " " + Text(text) + " ";
  for (Position i = 1; i < Len(t); ++i) {
    if (Mid(t, i, Len(kAnchor)) == kAnchor) {
      const Position url = i + Len(kAnchor);
      const Position quote = InStr(url, t, "\"");
      const Position end = InStr(i, t, "</a>");
      if (quote > 0 && quote < end) t = Left(t, i - 1) + Mid(t, url, quote - url) + Mid(t, end + 4);
    }
    if (Mid(t, i, 8) == "<img src") {
      const Position quote = InStr(i, t, "\"");
      const Position bracket = InStr(i, t, ">");
      const Position end = bracket > 0 ? bracket : Len(t);
      if (quote > 0 && quote < end)
        t = Left(t, i - 1) + NameOf(Mid(t, quote + 1, end - quote - 1)) +
            (bracket > 0 ? Mid(t, end + 1) : " ");
    }
  }
  return Mid(t, 2, Len(t) - 2);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > 4096) return 0;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const Text reduced = PersHtmlToText(text);
  if (reduced != Plain(text) || reduced.size() > size) std::abort();
  return 0;
}
