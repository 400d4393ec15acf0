#include "session/channel_list.h"

#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr PaneColour kRed = 255, kYellow = 65535, kGreen = 65280, kBlue = 16711680;

PaneFormat Face(PaneColour colour, int size, PaneAlignment alignment) {
  PaneFormat format;
  format.font_name = "verdana";
  format.colour = colour;
  format.font_size = size;
  format.alignment = alignment;
  return format;
}

PaneFormat Bold(PaneFormat format) {
  format.bold = true;
  return format;
}

void AppendRun(RichTextBox& rich, std::string_view text, const PaneFormat& format) {
  rich.ExSetSel(rich.Length(), rich.Length());
  rich.SelFormat(format);
  rich.ReplaceSel(text);
}

// The value behind a key at `at`: the characters up to `end`. Without an end: Fault 5.
Text Value(std::string_view page, Position at, std::string_view key, Position end) {
  const Position start = at + Len(key);
  return Mid(page, start, end - start);
}

void AppendChannel(RichTextBox& rich, const Text& value) {
  constexpr std::string_view kLabel = W<"Канал:">;
  PaneFormat label = Bold(Face(kYellow, 10, PaneAlignment::kCentre));
  label.italic = true;
  label.underline = true;
  // The first character of the value, a blank, goes with the label.
  AppendRun(rich, Text(kLabel) + Left(value, 1), label);
  AppendRun(rich, Mid(value, 2) + "\r\n\r\n", Bold(Face(kBlue, 12, PaneAlignment::kCentre)));
}

void AppendFlags(RichTextBox& rich, const Text& value) {
  const Text text = "Флаги:"_w + value + "\r\n";
  if (text == "Флаги: \r\n"_w) return;
  AppendRun(rich, text, Face(kGreen, 12, PaneAlignment::kLeft));
}

void AppendTopic(RichTextBox& rich, const Text& value) {
  constexpr std::string_view kLabel = W<"Тема канала: ">;
  const Text topic = Trim(value);
  if (topic.empty()) return;
  AppendRun(rich, kLabel, Bold(Face(kYellow, 10, PaneAlignment::kLeft)));
  AppendRun(rich, topic + "\r\n", Bold(Face(kGreen, 12, PaneAlignment::kLeft)));
}

void AppendHeading(RichTextBox& rich, const TabSession& session) {
  if (TrimView(session.Channel).empty() || session.LeavePending) {
    rich.ExSetSel(rich.Length(), rich.Length());
    rich.ReplaceSel("\r\n");
    return;
  }
  AppendRun(
      rich,
      "Доступ на канал "_w + session.Channel + " с Вашего ника или адреса запрещен!\r\n\r\n"_w,
      Bold(Face(kRed, 15, PaneAlignment::kCentre)));
}

// Appends what the key at this position says. False if there is none.
bool AppendRecord(RichTextBox& rich, std::string_view page, Position at) {
  const std::string_view rest = page.substr(static_cast<std::size_t>(at - 1));
  if (rest.starts_with("channel:")) {
    AppendChannel(rich, Value(page, at, "channel:", InStr(at, page, "\n")));
  } else if (rest.starts_with("chflags:")) {
    AppendFlags(rich, Value(page, at, "chflags:", InStr(at, page, "\n")));
  } else if (rest.starts_with("topic:")) {
    AppendTopic(rich, Value(page, at, "topic:", InStr(at, page, "\n")));
  } else if (rest.starts_with("user:")) {
    const Position end =
        MinNonZero3(InStr(at, page, "\n"), InStr(at, page, "\t"), InStr(at, page, "       "));
    AppendRun(rich, Trim(Value(page, at, "user:", end)) + "\r\n",
              Face(kRed, 10, PaneAlignment::kLeft));
  } else {
    return false;
  }
  return true;
}

}  // namespace

void ShowChannelList(Client& client, int tab) {
  TabSession& session = client.tab(tab);
  RichTextBox& rich = session.Rich;
  AppendHeading(rich, session);

  const Text page = session.ChannelListPage;  // events that run in between may change the field
  for (Position at = 1; at <= Len(page); ++at) {
    const PaneScrollInfo before = rich.GetScrollInfo();
    if (!AppendRecord(rich, page, at)) continue;
    if (before.pos + before.page >= before.max) rich.VScroll(PaneScroll::kBottom);
    client.platform.desktop.YieldToEvents();
  }
}

}  // namespace parlorwire
