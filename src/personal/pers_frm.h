// Personal windows: how they open, come up again and close. There is one for each login. It borrows
// the tab's login and ticket when it opens, and from then on runs by itself.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "text/text.h"

namespace parlorwire {

struct Client;
struct PersonalWindow;

// What stands on the window's own controls, in both languages.
inline constexpr std::string_view kActivateWhenMessCaption =
    W<"Всплывать при поступлении сообщения">;
inline constexpr std::string_view kSaveLogCaption = W<"Сохранить лог">;
Text PersCaption(const PersonalWindow& window);

// A click on `pers` of a tab. Ends the blinking on all tabs of its login; then the login's window
// comes up, or a new one opens. A tab without a login has none.
void pers_Click(Client& client, int tab);

// An open window by its handle; null if there is none.
PersonalWindow* PersWindow(Client& client, std::int32_t handle);

// The window has become the active one: whom it is for goes into send_nick.
void pers_frm_Activate(Client& client, PersonalWindow& window);

// The window has been closed. Its sockets close, and nothing may use the record any more.
void pers_frm_Unload(Client& client, PersonalWindow& window);
void CloseAllPersWindows(Client& client);

// The window's socket for the frame. It tells nobody that it has closed or failed.
void W1_Connect(Client& client, PersonalWindow& window);
void W1_DataArrival(Client& client, PersonalWindow& window, std::size_t bytes_total);

// The tick of the window's Timer1: it comes up, with the keys going to msg, or to send_nick if that
// is empty.
void pers_frm_Timer1_Timer(Client& client, PersonalWindow& window);

}  // namespace parlorwire
