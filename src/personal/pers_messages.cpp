#include "personal/pers_messages.h"

#include <cstddef>
#include <utility>

#include "display/message_colours.h"
#include "display/pane_output.h"
#include "personal/pers_html.h"
#include "personal/pers_pane.h"
#include "personal/pers_queue.h"
#include "personal/personal_window.h"
#include "session/client.h"
#include "session/error_log.h"
#include "session/http_answer.h"
#include "session/line_carry.h"
#include "session/writer_selection.h"
#include "text/cut.h"
#include "text/entities.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

// What holds from the line that sets it to the end of the chunk.
struct ChunkMarks {
  bool Received = false;
  bool KeepAlive = false;
};

Text WithoutPageHead(Text text) {
  if (!StartsWithNoCase(text, "\n<html>") && !StartsWithNoCase(text, "\r\n<html>")) return text;
  return Mid(text, InStrNoCase(text, "<br>\n") + 5);
}

// The field in front, which goes from `rest` with the blank behind it.
std::string_view TakeField(std::string_view& rest) {
  const std::size_t blank = rest.find(' ');
  const std::string_view field = rest.substr(0, blank);
  rest.remove_prefix(blank == rest.npos ? rest.size() : blank + 1);
  return field;
}

Text ShownText(const PersLine& line, bool received) {
  const Text said = received ? Text(line.text) : Text(line.nick) + " " + Text(line.text);
  return " " + ReplaceNoCase(DecodeEntities(PersHtmlToText(said)), "<br>", "\n");
}

void WriteLine(Client& client, PersonalWindow& window, const PersLine& line, bool received) {
  const FontMain& font = client.app.rFontMain;
  const RichColors& colours = client.app.rRichColors;
  const bool own = !received || EqualsNoCase(line.nick, window.PersLogin);
  // Waiting events may run in the look-up: it comes before the line is begun.
  const PaneColour text_colour =
      own || line.nick.empty() ? colours.TextColor : LookupMessageColor(client, line.nick);

  PaneFormat format = PlainFormat(font.Name, font.Size, colours.Symbols);
  WriteAtEnd(window.Rich, received ? ">" : "<", format);
  format.colour = colours.Times;
  format.bold = font.TimeBold;
  WriteAtEnd(window.Rich, Text(line.time) + " ", format);
  format.colour = own ? font.ColorMyNick : colours.Nicks;
  format.bold = font.Bold;
  WriteAtEnd(window.Rich, (received ? Text(line.nick) : window.PersLogin) + ":", format);
  format.colour = text_colour;
  format.bold = false;
  const Text text = ShownText(line, received);
  const PanePosition start = window.Rich.Length();
  WriteAtEnd(window.Rich, text + "\r\n", format);
  PersWriteLinks(window, text, start);
  PersPasteSmiles(client, window, text, start);
}

void ShowLine(Client& client, PersonalWindow& window, std::string_view line, ChunkMarks& marks) {
  const std::string_view trimmed = TrimView(line);
  if (trimmed == "<!-- -->") marks.KeepAlive = true;
  if (trimmed.empty() || trimmed == "<!-- -->") return;
  const PersLine cut = CutPersLine(line);
  if (cut.received) marks.Received = true;
  if (!cut.link.empty()) ClearPers(client, window, cut.link);
  WriteLine(client, window, cut, marks.Received);
}

void ShowLines(Client& client, PersonalWindow& window, std::string_view lines, int& number) {
  const bool at_end = StandsAtEnd(window.Rich);
  ChunkMarks marks;
  while (!lines.empty()) {
    const std::size_t end = lines.find('\n');
    ++number;
    ShowLine(client, window, lines.substr(0, end), marks);
    if (window.Closed) return;
    lines.remove_prefix(end + 1);
  }
  if (marks.KeepAlive) return;
  if (window.ActivateWhenMess) window.Timer1->Enabled(true);
  if (!window.ActivateWhenMess || at_end) window.Rich.VScroll(PaneScroll::kBottom);
}

void ReadChunk(Client& client, PersonalWindow& window, Text data, int& number) {
  Text& carry = window.PersLineCarry;
  DropRestOfCutLine(data, window.PersLineCut);
  if (!Contains(data, "\n") && !Contains(carry, "\n")) {
    CarryOn(client, carry, window.PersLineCut, data);
    return;
  }
  data.insert(0, carry);
  carry.clear();
  if (data == "\n") {
    carry = data;
    return;
  }
  const std::size_t rest = data.rfind('\n') + 1;
  CarryOn(client, carry, window.PersLineCut, std::string_view(data).substr(rest));
  ShowLines(client, window, std::string_view(data).substr(0, rest), number);
}

}  // namespace

PersLine CutPersLine(std::string_view line) {
  PersLine cut;
  cut.received = line.starts_with("&gt;");
  TakeField(line);
  cut.time = TakeField(line);
  if (!cut.time.ends_with(']')) {
    const std::string_view second = TakeField(line);
    cut.time = {cut.time.data(),
                static_cast<std::size_t>(second.data() + second.size() - cut.time.data())};
  }
  const bool has_link = Contains(line, " ");
  const std::string_view link = TakeField(line);
  if (has_link) cut.link = link;
  cut.nick = TakeField(line);
  cut.text = line;
  return cut;
}

void Personal_messages(Client& client, PersonalWindow& window, Text data) {
  const PaintOnce paint_once(window.Rich);
  int number = 0;
  try {
    ReadChunk(client, window, WithoutPageHead(WithoutHeader(std::move(data))), number);
  } catch (const Fault& fault) {
    WriteErrorLog(client, "Error " + std::to_string(fault.number) +
                              ". Function: Personal_messages. Debug info: line " +
                              std::to_string(number));
  }
}

}  // namespace parlorwire
