#include "personal/pers_status.h"

#include <algorithm>

#include "display/pane_output.h"
#include "personal/pers_pane.h"
#include "personal/personal_window.h"
#include "session/both_languages.h"
#include "session/client.h"

namespace parlorwire {
namespace {

constexpr PanePosition kStatusBreak = 2;  // CR LF

PaneFormat StatusFormat(const FontStatus& font) {
  PaneFormat format = PlainFormat(font.Name, font.Size, font.TextColor);
  format.bold = font.Bold;
  format.italic = font.Italic;
  format.back_colour = font.BackColor;
  return format;
}

Text StatusLine(const Client& client, const Text& text, StatusMode kind) {
  if (kind == StatusMode::kOk) return " Ok.";
  if (kind == StatusMode::kFailed) return InLanguage(client, {W<" Ошибка: ">, " Failed: "}) + text;
  return "[" + PaddedTimeText(client.platform.clock.Now()) + "] " + text;
}

}  // namespace

void PersStatusOut(Client& client, PersonalWindow& window, const Text& text, StatusMode kind) {
  RichTextBox& rich = window.Rich;
  const PanePosition end = rich.Length();
  const PanePosition start =
      kind == StatusMode::kLine ? end : std::max<PanePosition>(end - kStatusBreak, 0);
  SelectUnseen(rich, start, end);
  rich.SelFormat(StatusFormat(client.app.rFontStatus));
  rich.ReplaceSel(StatusLine(client, text, kind) + "\r\n");
  rich.VScroll(PaneScroll::kBottom);
}

}  // namespace parlorwire
