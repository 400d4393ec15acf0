// What `sett_conn` decides. Its controls are ProxyDialog(client): the window writes what the user
// types into that record at once, and shows it.
#pragma once

#include <array>

#include "shell/control_text.h"
#include "text/text.h"

namespace parlorwire {

struct Client;
struct ProxyControls;

// Which controls the user can use.
struct ProxyFormState {
  bool proxy_addr_locked = true;
  bool proxy_port_locked = true;
  bool autentification_enabled = false;
  bool proxy_login_locked = true;
  bool proxy_pass_locked = true;

  bool operator==(const ProxyFormState&) const = default;
};

ProxyFormState StateOfProxyForm(const ProxyControls& controls);

// The user clicks the check box; it is on or off now. True if `proxy_addr` gets the focus.
bool use_proxy_Click(Client& client, bool on);
void autentification_Click(Client& client, bool on);

// The button `button_apply`. If an address or a port is wanted and missing, the user is asked
// whether to do without the proxy; a port that is none is refused. True: the settings are saved and
// the controls forgotten; the window closes. False: `proxy_addr` gets the focus, or the wrong port.
bool ApplyProxyForm(Client& client);

// Whether a proxy is wanted at a port that is no number from 1 to 65535. A missing one is another
// matter.
bool ProxyPortIsWrong(const ProxyControls& controls);

// The button `button_cancel`, or any other way to close the window: the controls are forgotten.
void CancelProxyForm(Client& client);

// Whether `proxy_port` takes a typed character: a digit or Backspace (8).
bool ProxyPortTakes(char character);

// `window`, `frame` and the labels have no names of their own.
inline constexpr std::array<ControlText, 8> kProxyFormTexts = {{
    {"window", {W<"Дополнительные настройки подключения">, "Advanced connection settings"}},
    {"frame", {W<"Прокси-сервер">, "Proxy"}},
    {"use_proxy", {W<"Использовать прокси-сервер">, "Use proxy"}},
    {"l_proxy_addr", {W<"Адрес">, "Adress"}},
    {"l_proxy_port", {W<"Порт">, "Port"}},
    {"autentification", {W<"Аутентификация">, "Autentification"}},
    {"l_proxy_login", {W<"Логин">, "Login"}},
    {"l_proxy_pass", {W<"Пароль">, "Password"}},
}};

}  // namespace parlorwire
