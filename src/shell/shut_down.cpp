#include "shell/shut_down.h"

#include "display/fonts.h"
#include "display/message_colours.h"
#include "personal/pers_frm.h"
#include "session/client.h"
#include "session/ini.h"
#include "shell/tray.h"
#include "text/number.h"

namespace parlorwire {

void UnloadStep(Client& client, const std::optional<WindowPlace>& place) {
  AppState& app = client.app;
  FreeResourceLibrary(app.resources);
  for (int slot = 0; slot < kTabCount; ++slot) {
    client.tab(slot).Winsock1->Close();
    WriteIni(client, "Main", "WMFrame" + std::to_string(slot), client.tab(slot).TabSplitPercent);
  }
  SaveFonts(client);
  if (place) {
    WriteIni(client, "Main", "Height", NumberText(place->Height));
    WriteIni(client, "Main", "Width", NumberText(place->Width));
    WriteIni(client, "Main", "Top", NumberText(place->Top));
    WriteIni(client, "Main", "Left", NumberText(place->Left));
  }
  WriteIni(client, "Bot", "AutoKick", BooleanText(app.AutoKick));
  WriteIni(client, "Bot", "SayIPAndFlags", BooleanText(app.SayIPAndFlags));
  if (app.LoginCount > 0) {
    WriteIni(client, "Main", "lastIndex", std::to_string(app.LastLoginIndex));
    WriteIni(client, "Main", "Logins", std::to_string(app.LoginCount));
  }
  DeleteTrayIcon(client);
  SaveNickColours(client);
  CloseAllPersWindows(client);
  StopAllTimers(client);
}

void StopAllTimers(Client& client) {
  AppState& app = client.app;
  for (auto* timer :
       {&app.Timer17, &app.Timer20, &app.Timer21, &app.Timer23, &app.Timer24, &app.Timer25})
    (*timer)->Enabled(false);
  for (TabSession& tab : client.tabs) {
    for (auto* timer : tab.Timers())
      (*timer)->Enabled(false);
    for (auto& timer : tab.JoinTimers)
      if (timer) timer->Enabled(false);
  }
}

}  // namespace parlorwire
