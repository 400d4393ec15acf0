#include "service/presentation.h"

#include <array>
#include <cstdio>

#include "service/markup.h"

namespace parlorwire::service {
namespace {

constexpr std::int64_t kDay = 24 * 60 * 60;

std::int64_t DayOf(std::int64_t local) {
  return (local >= 0 ? local : local - kDay + 1) / kDay;
}

// Year, month and day of a day's number, counted from 1970-01-01 in the Gregorian calendar.
struct Date {
  std::int64_t year;
  int month;
  int day;
};

Date DateOf(std::int64_t day_number) {
  const std::int64_t shifted = day_number + 719468;
  const std::int64_t era = (shifted >= 0 ? shifted : shifted - 146096) / 146097;
  const std::int64_t of_era = shifted - era * 146097;
  const std::int64_t year = (of_era - of_era / 1460 + of_era / 36524 - of_era / 146096) / 365;
  const std::int64_t of_year = of_era - (365 * year + year / 4 - year / 100);
  const auto month = static_cast<int>((5 * of_year + 2) / 153);
  const auto day = static_cast<int>(of_year - (153 * month + 2) / 5 + 1);
  const int civil_month = month < 10 ? month + 3 : month - 9;
  return {year + era * 400 + (civil_month <= 2 ? 1 : 0), civil_month, day};
}

// The colours of a page for browsers.
struct Palette {
  int style;
  std::string_view body;    // the tag that opens the body
  std::string_view nick;    // the tag ahead of a nick
  std::string_view system;  // the tag ahead of the star of a system line
  std::string_view small;   // the tag ahead of times and system lines
};

constexpr std::array<Palette, 4> kPalettes = {{
    {0, "<BODY bgcolor=\"#000000\" text=\"#b0b0b0\">", "<FONT color=\"#b0b0b0\">",
     "<FONT color=\"#8080c0\">", "<font size=-1 color=\"#cfcfff\">"},
    {1, "<BODY bgcolor=\"#000000\" text=\"#e0e0e0\">", "<FONT color=\"#FF5050\">",
     "<FONT color=\"#8080c0\">", "<font size=-1 color=\"#cfcfff\">"},
    {2, "<BODY bgcolor=\"#ffffff\" text=\"#000000\">", "<FONT color=\"#003F94\">",
     "<FONT color=\"#808080\">", "<font size=-1 color=\"#606060\">"},
    {4, "<BODY bgColor=\"#281860\" text=\"#ffffc0\">", "<FONT color=\"#ffff00\">",
     "<FONT color=\"#c0a0ff\">", "<font size=-1 color=\"#c0c0ff\">"},
}};

const Palette& PaletteOf(int style) {
  for (const Palette& palette : kPalettes)
    if (palette.style == style) return palette;
  return kPalettes[1];
}

constexpr std::string_view kStdFunction = "function std () {\n}\n";

Text RobotLine(const Line& line, std::int64_t today) {
  Text wire = "..[" + TimeText(line.local, today) + "]";
  const Text nick = EscapeHtml(line.nick);
  const Text text = EscapeHtml(line.text);
  switch (line.form) {
    case LineForm::kMessage:
      wire += nick + ":(" + EscapeHtml(line.tone) + ") " + text;
      break;
    case LineForm::kAction:
      wire += nick + ":() *** " + text;
      break;
    case LineForm::kOperators:
      wire += " ### " + nick + ":() " + text;
      break;
    case LineForm::kSystem:
      wire += text;
      break;
  }
  return wire + "\n";
}

Text BrowserLine(const Palette& palette, const Line& line, std::int64_t today) {
  const Text time = Text(palette.small) + "[" + TimeText(line.local, today) + "]";
  const Text text = EscapeHtml(line.text);
  const Text nick = "<B>" + Text(palette.nick) + EscapeHtml(line.nick) + "</FONT></B>";
  const Text star = "<B>" + Text(palette.system) + "*</FONT></B>";
  switch (line.form) {
    case LineForm::kMessage:
      return nick + (line.tone.empty() ? "" : " (" + EscapeHtml(line.tone) + ")") + ": " + text +
             " " + time + "</font><BR>\n";
    case LineForm::kAction:
      return star + " <I>" + text + "</I> " + time + "</font><BR>\n";
    case LineForm::kOperators:
      return star + " ### " + nick + ": " + text + " " + time + "</font><BR>\n";
    case LineForm::kSystem:
      return star + " " + time + " " + text + "</font><BR>\n";
  }
  return {};
}

}  // namespace

bool StyleExists(int style) {
  if (style == kRobotStyle) return true;
  for (const Palette& palette : kPalettes)
    if (palette.style == style) return true;
  return false;
}

Text FrameHead(const Look& look) {
  if (look.style == kRobotStyle && !look.reload) return "<pre>\n";
  const Palette& palette = PaletteOf(look.style);
  Text head = "<HTML>\n<HEAD>\n<TITLE>frame</TITLE>\n";
  if (look.reload || look.style == 2)
    head += "<SCRIPT type=\"text/javascript\">\n" + Text(kStdFunction) + "</SCRIPT>\n";
  head += "</HEAD>\n";
  head += look.reload ? "<BODY onLoad=\"std ()\">" : palette.body;
  return head + "\n";
}

Text PresentLine(const Look& look, const Line& line, std::int64_t today) {
  Text wire = look.style == kRobotStyle ? RobotLine(line, today)
                                        : BrowserLine(PaletteOf(look.style), line, today);
  if (look.reload) wire += "<script language=\"JavaScript\">\nstd ()\n</script>\n";
  return wire;
}

Text PersonalSignal(std::string_view page) {
  return "<script>\nwindow.open('" + Text(page) + "', 'personal')\n</script>\n";
}

Text EjectMark() {
  return "<hr>----- Аварийное катапультирование ----<hr>"_w;
}

Text TimeText(std::int64_t local, std::int64_t today) {
  const std::int64_t day = DayOf(local);
  const std::int64_t second = local - day * kDay;
  const auto hour = static_cast<int>(second / 3600);
  const auto minute = static_cast<int>(second / 60 % 60);
  std::array<char, 64> buffer{};
  int length = 0;
  if (day != DayOf(today)) {
    const Date date = DateOf(day);
    length = std::snprintf(buffer.data(), buffer.size(), "%02d/%02d/%04lld ", date.day, date.month,
                           static_cast<long long>(date.year));
  }
  length += std::snprintf(buffer.data() + length, buffer.size() - static_cast<std::size_t>(length),
                          "%02d:%02d:%02d", hour, minute, static_cast<int>(second % 60));
  return Text(buffer.data(), static_cast<std::size_t>(length));
}

}  // namespace parlorwire::service
