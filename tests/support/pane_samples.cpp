#include "support/pane_samples.h"

#include <string>

namespace parlorwire {

PaneFormat MainFormat(PaneColour colour) {
  PaneFormat format;
  format.font_size = 12;
  format.colour = colour;
  return format;
}

void Append(RichTextBox& box, std::string_view text, const PaneFormat& format) {
  box.HideSelection(true);
  box.ExSetSel(box.Length(), box.Length());
  box.SelFormat(format);
  box.ReplaceSel(text);
}

void AppendMessage(RichTextBox& box, std::string_view time, std::string_view nick,
                   std::string_view text) {
  PaneFormat time_format = MainFormat(0xFFCFCF);
  time_format.bold = true;
  Append(box, std::string(time) + " ", time_format);
  PaneFormat nick_format = time_format;
  nick_format.underline = true;
  Append(box, nick, nick_format);
  Append(box, " " + std::string(text) + "\r\n", MainFormat(0xC0C0C0));
}

void AppendMessages(RichTextBox& box, int count) {
  for (int i = 0; i < count; ++i)
    AppendMessage(box, "[16:45:57]", "alice:", "message number " + std::to_string(i));
}

void AppendNotice(RichTextBox& box, std::string_view text) {
  PaneFormat bar;
  bar.font_size = 1;
  bar.colour = 0xE0E0E0;
  bar.back_colour = 0x94A300;
  Append(box, "\r\n" + std::string(1000, ' ') + "\r\n", bar);
  Append(box, std::string(text) + "\r\n", MainFormat(0xFFFF));
  PaneFormat jump = MainFormat(0xFF00);
  jump.font_size = 10;
  jump.underline = true;
  Append(box, "\xCF\xE5\xF0\xE5\xE9\xF2\xE8", jump);
  Append(box, "\r\n" + std::string(1000, ' ') + "\r\n", bar);
}

}  // namespace parlorwire
