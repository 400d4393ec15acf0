#include "display/message_colours.h"

#include "display/fonts.h"
#include "session/client.h"
#include "session/fault_trap.h"
#include "session/ini.h"
#include "text/cut.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

constexpr const char* kCmIni = "CM.ini";

// A colour that shows on the dark pane.
PaneColour RandomColour(Random& random) {
  const auto red = static_cast<unsigned>(random.Next() * 256);
  const auto green = static_cast<unsigned>(random.Next() * 156 + 100);
  const auto blue = static_cast<unsigned>(random.Next() * 256);
  return Rgb(red, green, blue);
}

// A file beyond the limit counts as one that can't be read.
void RefuseHuge(const Files& files) {
  if (files.Size(kCmIni) > kLargestConfigFile) throw Fault(fault::kPathFileAccess);
}

}  // namespace

PaneColour LookupMessageColor(Client& client, std::string_view nick) {
  if (nick.ends_with(':')) nick.remove_suffix(1);
  try {
    NickColours& colours = client.app.CmIniText;
    if (const auto known = colours.Use(nick)) return *known;
    const PaneColour colour = RandomColour(client.platform.random);
    colours.Prepend(nick, colour);
    return colour;
  } catch (const Fault&) {
    client.platform.desktop.YieldToEvents();
    return 0;
  }
}

void LoadNickColours(Client& client) {
  Files& files = client.platform.files;
  Text text;
  client.app.CmIniUnknown = !PassOverFault([&] {
    if (!files.Exists(kCmIni)) return;
    RefuseHuge(files);
    text = files.Read(kCmIni);
  });
  client.app.CmIniText.Assign(text);
}

void SaveNickColours(Client& client) {
  if (client.app.CmIniUnknown) return;
  Files& files = client.platform.files;
  const Text text = client.app.CmIniText.text();
  if (Len(text) > kLargestConfigFile) return;  // it could not be loaded again
  PassOverFault([&] {
    if (files.Exists(kCmIni)) RefuseHuge(files);
    files.WriteAt(kCmIni, 1, text);
  });
}

PaneColour MessageColorOf(const Client& client, std::string_view nick) {
  PaneColour colour = client.app.rRichColors.TextColor;
  if (EqualsNoCase(nick, client.tab(client.platform.desktop.ActiveTab()).Login)) return colour;
  PassOverFault([&] { colour = client.app.CmIniText.Peek(nick).value_or(colour); });
  return colour;
}

void change_message_color(Client& client, const Text& nick, PaneColour colour) {
  Desktop& desktop = client.platform.desktop;
  const int active = desktop.ActiveTab();
  if (EqualsNoCase(nick, client.tab(active).Login)) {
    client.app.rRichColors.TextColor = colour;
    WriteStatusTextColor(client);
  } else {
    GoOnAfterFault(client, ". Function: change_message_color",
                   [&] { client.app.CmIniText.Set(nick, colour); });
  }
  SaveNickColours(client);
  desktop.FocusMsg(active);
}

}  // namespace parlorwire
