#include "shell/start_up.h"

#include <cfloat>
#include <cmath>

#include "bot/autokick.h"
#include "bot/ip_log.h"
#include "display/fonts.h"
#include "display/message_colours.h"
#include "display/smiles.h"
#include "session/client.h"
#include "session/fault_trap.h"
#include "session/ini.h"
#include "text/number.h"

namespace parlorwire {
namespace {

constexpr double kDefaultWidth = 14000;
constexpr double kDefaultHeight = 8000;
constexpr PaneColour kStatusPaneColour = Rgb(60, 60, 60);

// A key that is absent or empty leaves the field.
void ReadText(Client& client, std::string_view section, std::string_view key, Text& field) {
  const Text value = ReadIni(client, section, key);
  if (!value.empty()) field = value;
}

void ReadEndpoint(Client& client) {
  AppState& app = client.app;
  ReadText(client, "Main", "ChatHostByName", app.ChatHostByName);
  ReadText(client, "Main", "ChatHostByAddress", app.ChatHostByAddress);
  ReadText(client, "Main", "ChatPort", app.ChatPort);
  ReadText(client, "Main", "WhoisHost", app.WhoisHost);
  ReadText(client, "Main", "LetografUrl", app.LetografUrl);
  app.ChatHost = app.ChatHostByAddress;
}

void ReadLanguage(Client& client) {
  const bool english = ReadIni(client, "Main", "Language") == "English";
  SetLanguage(client, english ? UiLanguage::kEnglish : UiLanguage::kRussian);
}

void ReadBot(Client& client) {
  AppState& app = client.app;
  app.AutoKick = ReadIni(client, "Bot", "AutoKick") == "True";
  app.SayIPAndFlags = ReadIni(client, "Bot", "SayIPAndFlags") == "True";
  ReadText(client, "Bot", "SpamHost", app.SpamHost);
  ReadText(client, "Bot", "SpamDomain", app.SpamDomain);
  ReadText(client, "Bot", "SpamDomainAllowed", app.SpamDomainAllowed);
}

void ReadDelays(Client& client) {
  AppState& app = client.app;
  app.ActionDelayValue = kActionDelay;
  PassOverFault(
      [&] { app.ActionDelayValue = ToInteger(ReadIni(client, "Main", "ActionDelayValue")); });
  app.ReconnectDelayValue = kReconnectDelay;
  PassOverFault(
      [&] { app.ReconnectDelayValue = ToLong(ReadIni(client, "Main", "ReconnectDelayValue")); });
}

// A value that is missing or no truth value means "by name", as a true one does. See docs/names.md.
void ReadUseDNS(Client& client) {
  bool by_name = true;
  PassOverFault([&] { by_name = ToBoolean(ReadIni(client, "Main", "UseDNS")); });
  if (by_name) client.app.ChatHost = client.app.ChatHostByName;
}

// The limits are compared as strings, so "5" lies within them and "100" doesn't. See docs/names.md.
bool IsSplitPercent(const Text& value) {
  return !value.empty() && value > "18" && value < "85";
}

void PrepareSlot(Client& client, int slot, double split_percent) {
  Desktop& desktop = client.platform.desktop;
  TabSession& tab = client.tab(slot);
  tab.SayReportOnTab = true;
  tab.SayReportInChat = true;
  for (RichTextBox* pane : {&tab.Rich_Server, &tab.Rich, &tab.Rich_Users}) {
    pane->Text("");
    pane->Locked(true);
    pane->BackColor(client.app.rFontStatus.BackColor);
  }
  tab.Rich_Server.BackColor(kStatusPaneColour);

  tab.TabSplitPercent = NumberText(split_percent);
  const Text saved = ReadIni(client, "Main", "WMFrame" + std::to_string(slot));
  if (IsSplitPercent(saved)) tab.TabSplitPercent = saved;

  desktop.SetUsersNumCaption(slot, "");
  desktop.SelectIntonacia(slot, 0);
  desktop.SetTabControlsEnabled(slot, false);
}

// A value that is no number leaves the field.
void ReadTwips(Client& client, std::string_view key, double& field) {
  PassOverFault([&] {
    const double value = ToDouble(ReadIni(client, "Main", key));
    if (std::abs(value) <= FLT_MAX) field = value;
  });
}

WindowPlace ReadPlace(Client& client, const WindowMeasures& measures) {
  WindowPlace place;
  place.Width = kDefaultWidth;
  place.Height = kDefaultHeight;
  place.Left = (measures.Screen_Width - place.Width) / 2;
  place.Top = (measures.Screen_Height - place.Height) / 2;
  ReadTwips(client, "Height", place.Height);
  ReadTwips(client, "Width", place.Width);
  ReadTwips(client, "Top", place.Top);
  ReadTwips(client, "Left", place.Left);
  return place;
}

void ShowNotConnected(Client& client) {
  Desktop& desktop = client.platform.desktop;
  const Text caption = InLanguage(client, kNotConnectedText);
  desktop.SetTabCaption(desktop.ActiveTab(), caption);
  desktop.SetWindowCaption(caption + " - Parlorwire");
  client.hooks.SetTabTitle(caption + " - Parlorwire");
}

}  // namespace

WindowPlace LoadStep(Client& client, const WindowMeasures& measures) {
  client.platform.desktop.YieldToEvents();
  ReadEndpoint(client);
  LoadNickColours(client);
  LoadFonts(client);
  ReadLanguage(client);
  ReadBot(client);
  ReadDelays(client);
  ReadUseDNS(client);
  PassOverFault([&] {
    client.app.HoldWhileReading = ToBoolean(ReadIni(client, "Main", "HoldWhileReading"));
  });
  client.app.DisableKickChannels = ReadIni(client, "DisableKickChannels", "channels");
  for (int slot = 0; slot < kTabCount; ++slot)
    client.platform.desktop.SetTabVisible(slot, false);
  for (int slot = 0; slot < kTabCount; ++slot)
    PrepareSlot(client, slot, measures.TabSplitPercent);
  const WindowPlace place = ReadPlace(client, measures);
  ShowNotConnected(client);
  client.tab(0).LoginShown = true;
  LoadIpLog(client);
  LoadAutoKick(client);
  LoadSmiles(client);
  return place;
}

void SetLanguage(Client& client, UiLanguage language) {
  client.app.Language = language;
  client.platform.desktop.ShowLanguage(language);
}

void rus(Client& client) {
  SetLanguage(client, UiLanguage::kRussian);
  WriteIni(client, "Main", "Language", "Russian");
}

void eng(Client& client) {
  SetLanguage(client, UiLanguage::kEnglish);
  WriteIni(client, "Main", "Language", "English");
}

}  // namespace parlorwire
