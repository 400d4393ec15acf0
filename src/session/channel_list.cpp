#include "session/channel_list.h"

#include "session/client.h"
#include "session/connect.h"
#include "session/fault_trap.h"
#include "session/ini.h"
#include "session/writer_selection.h"
#include "text/cut.h"
#include "text/fault.h"
#include "text/number.h"

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

// What a page is rendered into.
struct Page {
  Client& client;
  int tab;
  Text text;  // a copy: events that run in between may change the tab's own
  PanePosition start = 0;

  RichTextBox& pane() const { return client.tab(tab).Rich; }
};

void SelectEnd(const Page& page) {
  const PanePosition end = page.pane().Length();
  SelectPaneEnd(page.client, end, end, page.tab);
}

// The most that a page may become, in characters. A key inside a value begins a record of its own,
// so a page without line ends can ask for the square of its length.
constexpr PanePosition kLargestList = PanePosition{32} * 1024 * 1024;

void AppendRun(const Page& page, std::string_view text, const PaneFormat& format) {
  if (page.pane().Length() - page.start > kLargestList) throw Fault(fault::kOutOfMemory);
  SelectEnd(page);
  page.pane().SelFormat(format);
  page.pane().ReplaceSel(text);
}

// The value behind a key at `at`: the characters up to `end`. Without an end: Fault 5.
Text Value(const Page& page, Position at, std::string_view key, Position end) {
  const Position start = at + Len(key);
  return Mid(page.text, start, end - start);
}

Text ValueOfLine(const Page& page, Position at, std::string_view key) {
  return Value(page, at, key, InStr(at, page.text, "\n"));
}

void AppendChannel(const Page& page, const Text& value) {
  constexpr std::string_view kLabel = W<"Канал:">;
  PaneFormat label = Bold(Face(kYellow, 10, PaneAlignment::kCentre));
  label.italic = true;
  label.underline = true;
  // The first character of the value, a blank, goes with the label.
  AppendRun(page, Text(kLabel) + Left(value, 1), label);
  AppendRun(page, Mid(value, 2) + "\r\n\r\n", Bold(Face(kBlue, 12, PaneAlignment::kCentre)));
}

void AppendFlags(const Page& page, const Text& value) {
  const Text text = "Флаги:"_w + value + "\r\n";
  if (text == "Флаги: \r\n"_w) return;
  AppendRun(page, text, Face(kGreen, 12, PaneAlignment::kLeft));
}

void AppendTopic(const Page& page, const Text& value) {
  constexpr std::string_view kLabel = W<"Тема канала: ">;
  const Text topic = Trim(value);
  if (topic.empty()) return;
  AppendRun(page, kLabel, Bold(Face(kYellow, 10, PaneAlignment::kLeft)));
  AppendRun(page, topic + "\r\n", Bold(Face(kGreen, 12, PaneAlignment::kLeft)));
}

void AppendUser(const Page& page, Position at) {
  // What comes behind the line's end needs no search: a page may have very many users.
  const Position line_end = InStr(at, page.text, "\n");
  const std::string_view lines = std::string_view(page.text).substr(
      0, line_end == 0 ? page.text.size() : static_cast<std::size_t>(line_end - 1));
  const Position end = MinNonZero3(line_end, InStr(at, lines, "\t"), InStr(at, lines, "       "));
  AppendRun(page, Trim(Value(page, at, "user:", end)) + "\r\n",
            Face(kRed, 10, PaneAlignment::kLeft));
}

void AppendHeading(const Page& page) {
  const TabSession& session = page.client.tab(page.tab);
  if (TrimView(session.Channel).empty() || session.LeavePending) {
    SelectEnd(page);
    page.pane().ReplaceSel("\r\n");
    return;
  }
  AppendRun(
      page,
      "Доступ на канал "_w + session.Channel + " с Вашего ника или адреса запрещен!\r\n\r\n"_w,
      Bold(Face(kRed, 15, PaneAlignment::kCentre)));
}

bool KeyStandsAt(const Page& page, Position at) {
  const std::string_view rest =
      std::string_view(page.text).substr(static_cast<std::size_t>(at - 1));
  return rest.starts_with("channel:") || rest.starts_with("chflags:") ||
         rest.starts_with("topic:") || rest.starts_with("user:");
}

// Appends what the key at this position says.
void AppendRecord(const Page& page, Position at) {
  const std::string_view rest =
      std::string_view(page.text).substr(static_cast<std::size_t>(at - 1));
  if (rest.starts_with("channel:")) AppendChannel(page, ValueOfLine(page, at, "channel:"));
  if (rest.starts_with("chflags:")) AppendFlags(page, ValueOfLine(page, at, "chflags:"));
  if (rest.starts_with("topic:")) AppendTopic(page, ValueOfLine(page, at, "topic:"));
  if (rest.starts_with("user:")) AppendUser(page, at);
}

// A reader at the bottom of the pane is at its bottom behind what `append` writes, too.
template <class Append>
void KeepAtBottom(const Page& page, const Append& append) {
  const bool at_bottom = StandsAtEnd(page.pane());
  append();
  if (at_bottom) page.pane().VScroll(PaneScroll::kBottom);
}

// The first saved login of that nick gets the channel.
void RememberChannel(Client& client, const Text& login, const Text& channel) {
  std::int16_t count = 0;
  PassOverFault([&] { count = ToInteger(ReadIni(client, "Main", "Logins")); });
  for (int n = 0; n <= count; ++n) {
    const Text saved = ReadIni(client, "Main", "Login" + std::to_string(n));
    if (TrimView(saved).empty() || !EqualsNoCase(saved, login)) continue;
    WriteIni(client, "Main", "Channel" + std::to_string(n), channel);
    return;
  }
}

}  // namespace

void ShowChannelList(Client& client, int tab) {
  const TabSession& session = client.tab(tab);
  const std::uint32_t session_number = session.SessionNumber;
  const Page page{client, tab, session.ChannelListPage, session.Rich.Length()};
  const PaintOnce paint_once(page.pane());
  KeepAtBottom(page, [&] { AppendHeading(page); });
  for (Position at = 1; at <= Len(page.text); ++at) {
    if (!KeyStandsAt(page, at)) continue;
    KeepAtBottom(page, [&] { AppendRecord(page, at); });
    client.platform.desktop.YieldToEvents();
    if (session.SessionNumber != session_number) return;
  }
}

void EnterListedChannel(Client& client, int tab, const Text& channel) {
  TabSession& session = client.tab(tab);
  const std::uint32_t session_number = session.SessionNumber;
  session.Channel = channel;
  RememberChannel(client, session.Login, channel);
  if (session.SessionNumber != session_number) return;  // closed, or connected already
  session.ClearPanesOnConnect = true;
  ConnectToChat(client, tab);
}

}  // namespace parlorwire
