#include "support/pane_runs.h"

#include <cstdio>

#include "text/utf8.h"

namespace parlorwire {
namespace {

std::string Hex(PaneColour colour) {
  char digits[7];
  std::snprintf(digits, sizeof digits, "%02x%02x%02x", colour & 0xFFU, colour >> 8 & 0xFFU,
                colour >> 16 & 0xFFU);
  return digits;
}

std::string Spelled(std::string_view text) {
  std::string spelled;
  for (const char c : text) {
    if (c == '\r')
      spelled += "\\r";
    else if (c == '\n')
      spelled += "\\n";
    else
      spelled += c;
  }
  return spelled;
}

std::string Look(const PaneFormat& format) {
  std::string look =
      format.font_name + " " + std::to_string(format.font_size) + " " + Hex(format.colour);
  if (format.bold) look += " b";
  if (format.italic) look += " i";
  if (format.underline) look += " u";
  if (format.back_colour) look += " back=" + Hex(*format.back_colour);
  return look;
}

}  // namespace

std::vector<std::string> RunsOf(const RichTextBox& pane, PanePosition from) {
  std::vector<std::string> runs;
  for (const PaneRun& run : pane.RunsBetween(from, pane.Length())) {
    const std::string text =
        run.picture ? "<" + run.picture->code + ">"
                    : Spelled(ToUtf8(pane.TextBetween(run.start, run.start + run.length)));
    runs.push_back(text + "|" + Look(run.format));
  }
  return runs;
}

}  // namespace parlorwire
