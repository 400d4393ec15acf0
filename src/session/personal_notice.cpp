#include "session/personal_notice.h"

#include "session/client.h"
#include "session/status.h"

namespace parlorwire {

void NoticePersonalMessage(Client& client, int tab) {
  Timer& blink = *client.tab(tab).Timer2;
  if (!blink.Enabled()) StatusOut(client, InLanguage(client, kPersonalNotice), tab);
  blink.Enabled(true);
}

void StopPersonalNotice(Client& client, int tab) {
  client.tab(tab).Timer2->Enabled(false);
  client.tab(tab).PersRed = false;
  client.platform.desktop.SetPersRed(tab, false);
}

}  // namespace parlorwire
