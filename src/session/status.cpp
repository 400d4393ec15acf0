#include "session/status.h"

#include <algorithm>

#include "session/both_languages.h"
#include "session/client.h"
#include "session/personal_notice.h"
#include "session/writer_selection.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr PanePosition kLineBreak = 2;  // CR LF

PaneFormat StatusFace(const FontStatus& font) {
  PaneFormat format;
  format.font_name = font.Name;
  format.font_size = font.Size;
  format.colour = font.TextColor;
  format.bold = font.Bold;
  format.italic = font.Italic;
  return format;
}

// A personal message waits: its last word is what a click opens the personal window on.
void MarkPersonalNotice(Client& client, int tab) {
  RichTextBox& rich = client.tab(tab).Rich;
  const PanePosition end = rich.Length() - kLineBreak;
  const Text last_line = rich.TextBetween(rich.LineByIndex(rich.LineAt(end)).start, end);
  SelectPaneEnd(client, end - (Len(last_line) - InStrRev(last_line, " ")), end, tab);
  rich.SelFormat(StatusFace(client.app.rFontStatus));
  rich.SelUnderline(true);

  const TabSession& session = client.tab(tab);
  client.hooks.ShowBalloon({},
                           "Вам пришло персональное сообщение!\r\nНик: "_w + session.Login +
                               "\r\nКанал: "_w + session.Channel,
                           kSilentBalloon, {tab});
  client.hooks.SetTrayBlink(1);
}

}  // namespace

void StatusOut(Client& client, const Text& text, StatusMode mode, int tab) {
  RichTextBox& rich = client.tab(tab).Rich;
  const Text& channel = client.tab(tab).Channel;

  const bool at_end = StandsAtEnd(rich);
  const PaintOnce paint_once(rich);
  SelectPaneEnd(client, rich.Length(), rich.Length(), tab);
  rich.SelFormat(StatusFace(client.app.rFontStatus));

  Text line;
  if (mode == StatusMode::kLine) {
    line = "[" + PaddedTimeText(client.platform.clock.Now()) + "] " + text;
    if (line.ends_with("..")) {
      client.hooks.LogChatLine(line, channel);
    } else {
      client.hooks.LogChatLine(line + " ", channel);
      client.hooks.LogChatLine("\r\n", channel);
    }
  } else {
    SelectPaneEnd(client, std::max<PanePosition>(rich.Length() - kLineBreak, 0), rich.Length(),
                  tab);
    line =
        mode == StatusMode::kOk ? " Ok." : InLanguage(client, {W<" Ошибка: ">, " Failed: "}) + text;
    client.hooks.LogChatLine(line + "\r\n", channel);
  }
  rich.ReplaceSel(line + "\r\n");

  if (mode == StatusMode::kLine &&
      (text == kPersonalNotice.russian || text == kPersonalNotice.english))
    MarkPersonalNotice(client, tab);

  if (!client.platform.desktop.StopScroll(tab) || at_end) rich.VScroll(PaneScroll::kBottom);
}

void ShowTabCaption(Client& client, int tab, const Text& caption) {
  client.platform.desktop.SetTabCaption(tab, caption);
  if (client.platform.desktop.ActiveTab() == tab) ShowWindowCaption(client, caption);
}

void ShowWindowCaption(Client& client, const Text& caption) {
  client.platform.desktop.SetWindowCaption(caption + " - Parlorwire");
  client.hooks.SetTabTitle(caption + " - Parlorwire");
}

}  // namespace parlorwire
