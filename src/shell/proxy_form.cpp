#include "shell/proxy_form.h"

#include "session/ini.h"
#include "session/proxy_dialog.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr std::string_view kSection = "ProxySettings";

// The English form really ends so.
constexpr BothLanguages kDoWithoutProxy{
    W<"Некоторые поля остались незаполненными. Отключить прокси-сервер?">, "Some fields are ..."};

}  // namespace

ProxyFormState StateOfProxyForm(const ProxyControls& controls) {
  ProxyFormState state;
  if (!controls.use_proxy) return state;
  state.proxy_addr_locked = false;
  state.proxy_port_locked = false;
  state.autentification_enabled = true;
  state.proxy_login_locked = !controls.autentification;
  state.proxy_pass_locked = !controls.autentification;
  return state;
}

bool use_proxy_Click(Client& client, bool on) {
  ProxyDialog(client).use_proxy = on;
  return on;
}

void autentification_Click(Client& client, bool on) {
  ProxyDialog(client).autentification = on;
}

bool ApplyProxyForm(Client& client) {
  ProxyControls& controls = ProxyDialog(client);
  const bool incomplete =
      TrimView(controls.proxy_addr).empty() || TrimView(controls.proxy_port).empty();
  if (controls.use_proxy && incomplete) {
    const Text question = InLanguage(client, kDoWithoutProxy);
    if (!client.platform.desktop.AskYesNo(question, BoxIcon::kExclamation)) return false;
    controls.use_proxy = false;
  }
  const ProxyControls applied = controls;
  WriteIni(client, kSection, "Use_proxy", applied.use_proxy ? "1" : "0");
  WriteIni(client, kSection, "Proxy_address", applied.proxy_addr);
  WriteIni(client, kSection, "Proxy_port", applied.proxy_port);
  WriteIni(client, kSection, "Autentification", applied.autentification ? "1" : "0");
  WriteIni(client, kSection, "Proxy_login", applied.proxy_login);
  WriteIni(client, kSection, "Proxy_pass", applied.proxy_pass);
  UnloadProxyDialog(client);
  return true;
}

void CancelProxyForm(Client& client) {
  UnloadProxyDialog(client);
}

bool ProxyPortTakes(char character) {
  return character == '\b' || (character >= '0' && character <= '9');
}

Text FirstLine(const Text& text) {
  return text.substr(0, text.find_first_of("\r\n"));
}

}  // namespace parlorwire
