#include "display/framed_notice.h"

#include <string>

#include "display/pane_output.h"
#include "session/client.h"

namespace parlorwire {
namespace {

constexpr PaneColour kMentionBar = Rgb(0, 163, 148);
constexpr PaneColour kReportBar = Rgb(0, 63, 148);
constexpr PaneColour kYellow = 0xFFFF;
constexpr PaneColour kGreen = 0xFF00;
constexpr PaneColour kBlack = 0;

void WriteBar(Client& client, PaneColour colour, int tab) {
  static const Text kBar = "\r\n" + Text(1000, ' ') + "\r\n";
  const FontStatus& font = client.app.rFontStatus;
  PaneFormat format = PlainFormat(font.Name, 1, font.TextColor);
  format.back_colour = colour;
  WriteAtPaneEnd(client, kBar, format, tab);
}

}  // namespace

void MentionBox(Client& client, std::string_view text, std::string_view login,
                std::string_view channel, int pane_tab, PanePosition id) {
  const FontMain& font = client.app.rFontMain;
  const PaneFormat plain = PlainFormat(font.Name, font.Size, kYellow);
  PaneFormat bold = plain;
  bold.bold = true;
  PaneFormat jump = PlainFormat(font.Name, font.Size - 2, kGreen);
  jump.underline = true;

  WriteBar(client, kMentionBar, pane_tab);
  WriteAtPaneEnd(client, "Канал "_w, plain, pane_tab);
  WriteAtPaneEnd(client, channel, bold, pane_tab);
  WriteAtPaneEnd(client, " [" + Text(login) + "]", plain, pane_tab);
  WriteAtPaneEnd(client, " id#" + std::to_string(id) + "\r\n",
                 PlainFormat(font.Name, font.Size, kBlack), pane_tab);
  WriteAtPaneEnd(client, Text(text) + "\r\n", plain, pane_tab);
  WriteAtPaneEnd(client, "Перейти"_w, jump, pane_tab);
  WriteBar(client, kMentionBar, pane_tab);
  ScrollAfterNotice(client, pane_tab);
}

void BotReportOut(Client& client, std::string_view text, int tab) {
  const FontMain& font = client.app.rFontMain;
  WriteBar(client, kReportBar, tab);
  WriteAtPaneEnd(client, text, PlainFormat(font.Name, font.Size, client.app.rRichColors.TextColor),
                 tab);
  WriteBar(client, kReportBar, tab);
  ScrollAfterNotice(client, tab);
}

}  // namespace parlorwire
