#include "display/text_out.h"

#include "display/chat_log.h"
#include "display/links.h"
#include "display/mention_notice.h"
#include "display/message_colours.h"
#include "display/pane_output.h"
#include "display/rank_colour.h"
#include "display/smiles.h"
#include "display/spam_rules.h"
#include "session/client.h"
#include "session/fault_trap.h"
#include "session/personal_notice.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr std::string_view kEchoPrefix = "### ";
constexpr std::string_view kActionPrefix = " *** ";
constexpr int kTrayMention = 2;

// A line on its way into a pane.
struct Line {
  Client& client;
  TabSession& session;
  int tab;
  LineKind kind;
  std::string_view nick;
  PanePosition start = 0;    // where it begins; its id
  bool MarkMention = false;  // ">": it names the user
  bool MarkOwn = false;      // "<": it is the user's own
  bool MarkAboutMe = false;  // "<>": it begins with the user or ends with him in brackets
  Text time{};               // behind the marks
  Text text{};               // with its line breaks

  bool Spoken() const { return kind == LineKind::kEcho || kind == LineKind::kMessage; }
  const AppState& app() const { return client.app; }
  RichTextBox& pane() const { return session.Rich; }
};

PaneFormat MainFormat(const AppState& app, PaneColour colour) {
  return PlainFormat(app.rFontMain.Name, app.rFontMain.Size, colour);
}

void Write(const Line& line, std::string_view piece) {
  LogChatLine(line.client, piece, line.session.Channel);
  line.pane().ReplaceSel(piece);
}

void Format(const Line& line, PanePosition start, PanePosition end, const PaneFormat& format) {
  SelectPaneEnd(line.client, start, end, line.tab);
  line.pane().SelFormat(format);
}

// ---- marks ----

bool IsOwn(std::string_view nick, std::string_view login) {
  return nick.size() == login.size() + 1 && nick.ends_with(':') &&
         EqualsNoCase(nick.substr(0, login.size()), login);
}

// A name counts also where colons stand between its letters.
bool Names(std::string_view text, std::string_view login) {
  if (!Contains(text, ":")) return ContainsNoCase(text, login);
  return ContainsNoCase(Replace(text, ":", ""), login);
}

bool IsAbout(std::string_view text, std::string_view login) {
  if (text.empty()) return false;
  if (EqualsNoCase(text.substr(0, text.find(' ')), login)) return true;
  const std::string_view last_word = text.substr(text.rfind(' ') + 1);
  const std::size_t end = login.size() + 1;
  if (!last_word.starts_with('(') || last_word.size() <= end) return false;
  return EqualsNoCase(last_word.substr(1, login.size()), login) &&
         (last_word.substr(end) == ")" || last_word.substr(end) == "))");
}

void SetMarks(Line& line, std::string_view text) {
  const Text& login = line.session.Login;
  if (!line.Spoken() && IsAbout(text, login))
    line.MarkAboutMe = true;
  else
    line.MarkMention = Names(text, login);
  line.MarkOwn = line.Spoken() && IsOwn(line.nick, login);
}

Text MarkedTime(const Line& line, std::string_view time) {
  Text marked;
  if (line.MarkAboutMe) marked = "<>";
  if (line.MarkOwn) marked += "<";
  if (line.MarkMention) marked += ">";
  return marked.append(time);
}

// ---- the runs ----

void WriteTime(const Line& line) {
  PaneFormat format = MainFormat(
      line.app(), line.Spoken() ? line.app().rRichColors.Times : line.app().rFontSystem.TextColor);
  format.bold = line.Spoken() && line.app().rFontMain.TimeBold;
  line.pane().SelFormat(format);
  Write(line, line.time + " ");
}

// Without a mark this would set the format of the caret alone, which the next run sets anew.
void TintMarks(const Line& line) {
  if (!line.MarkOwn && !line.MarkMention && !line.MarkAboutMe) return;
  const bool two = line.MarkAboutMe || (line.MarkOwn && line.MarkMention);
  Format(line, line.start, line.start + (two ? 2 : 1),
         MainFormat(line.app(), line.app().rRichColors.Symbols));
}

PaneColour NickColour(const Line& line) {
  if (line.MarkOwn) return line.app().rFontMain.ColorMyNick;
  return ListedRankColour(line.client, line.nick.substr(0, line.nick.size() - 1), line.tab);
}

void WriteNick(const Line& line) {
  const PanePosition start = line.pane().Length();
  PaneFormat format = MainFormat(line.app(), NickColour(line));
  format.bold = line.app().rFontMain.Bold;
  format.underline = true;
  Format(line, start, start, format);
  if (line.kind == LineKind::kMessage) {
    Write(line, Text(line.nick) + " ");
    return;
  }
  Write(line, Text(kEchoPrefix).append(line.nick).append(" "));
  Format(line, start, start + Len(kEchoPrefix),
         MainFormat(line.app(), line.app().rFontSystem.TextColor));
}

// " *n " is a line break in a text. Two markers that share a blank need the second pass.
Text WithLineBreaks(std::string_view text) {
  if (!Contains(text, "*n")) return Trim(text);
  Text broken(text);
  for (int pass = 0; pass < 2; ++pass)
    broken = Trim(Replace(" " + broken + " ", " *n ", " \n\t "));
  return broken;
}

PaneFormat TextFormat(const Line& line) {
  const AppState& app = line.app();
  if (line.Spoken())
    return MainFormat(
        app, line.MarkOwn ? app.rRichColors.TextColor : LookupMessageColor(line.client, line.nick));
  PaneFormat format =
      PlainFormat(app.rFontSystem.Name, app.rFontSystem.Size, app.rFontSystem.TextColor);
  format.italic = app.rFontSystem.Italic;
  format.bold = app.rFontSystem.Bold;
  return format;
}

// Takes the place of the blank that ends the run ahead.
void WriteText(const Line& line) {
  const PaneFormat format = TextFormat(line);  // lets events run, which may write to the pane
  const PanePosition end = line.pane().Length();
  Format(line, end - 1, end, format);
  const bool action = line.kind == LineKind::kAction;
  const std::string_view prefix = action ? kActionPrefix : " ";
  Text piece;
  piece.reserve(prefix.size() + line.text.size() + 2);
  piece.append(prefix).append(line.text).append("\r\n");
  Write(line, piece);
  WriteLinks(line.client, std::string_view(piece).substr(0, piece.size() - 2), end, line.tab,
             false);
  PastePicture(line.client, line.text, action ? end + 4 : end, line.tab);
  if (!action) return;
  const FontSystem& font = line.app().rFontSystem;
  Format(line, end, end + 3, PlainFormat(font.Name, font.Size, font.TextColor));
}

// ---- what a line calls up ----

void KickSpam(const Line& line) {
  for (int fired = SpamRulesFired(line.app(), line.text); fired > 0; --fired)
    line.client.hooks.SayBot("/k " + Left(line.nick, Len(line.nick) - 1) + " spam detected",
                             line.tab);
}

void NotifyOfMention(const Line& line) {
  if (!line.time.starts_with('>')) return;
  const Desktop& desktop = line.client.platform.desktop;
  const Text& login = line.session.Login;
  const Text& channel = line.session.Channel;
  const Text whole = line.time + " " + Text(line.nick) + " " + line.text;
  if (!desktop.IsActiveWindow() && line.session.LinesArmed) {
    line.client.hooks.ShowBalloon(
        "", whole + "\r\n\r\n" + "Ник: "_w + login + "\r\n" + "Канал: "_w + channel, kSilentBalloon,
        {line.tab});
    line.client.hooks.SetTrayBlink(kTrayMention);
  }
  TellMention(line.client, ">>" + whole, line.tab, line.start);
}

void WriteLine(Line& line, std::string_view time, std::string_view text) {
  RichTextBox& pane = line.pane();
  const PaintOnce paint_once(pane);
  line.start = pane.Length();
  SelectPaneEnd(line.client, line.start, line.start, line.tab);
  SetMarks(line, text);
  line.time = MarkedTime(line, time);
  WriteTime(line);
  TintMarks(line);
  if (line.Spoken()) WriteNick(line);
  line.text = WithLineBreaks(text);
  WriteText(line);
  KickSpam(line);
  NotifyOfMention(line);
  ScrollAfterLine(line.client, line.tab);
  pane.Visible(true);
}

}  // namespace

void TextOut(Client& client, std::string_view time, std::string_view nick, std::string_view text,
             LineKind kind, int tab) {
  try {
    Line line{client, client.tab(tab), tab, kind, nick};
    WriteLine(line, time, text);
  } catch (const Fault& fault) {
    LogFault(client, fault, ". Function: TextOut");
  }
}

}  // namespace parlorwire
