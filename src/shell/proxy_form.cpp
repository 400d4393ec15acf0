#include "shell/proxy_form.h"

#include "session/client.h"
#include "session/ini.h"
#include "session/proxy_dialog.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr std::string_view kSection = "ProxySettings";

// The English form really ends so.
constexpr BothLanguages kDoWithoutProxy{
    W<"Некоторые поля остались незаполненными. Отключить прокси-сервер?">, "Some fields are ..."};

constexpr BothLanguages kWrongPort{W<"Порт - число от 1 до 65535">,
                                   "The port is a number from 1 to 65535"};
constexpr std::size_t kLongestPort = 5;
constexpr int kHighestPort = 65535;

}  // namespace

bool ProxyPortIsWrong(const ProxyControls& controls) {
  const std::string_view port = TrimView(controls.proxy_port);
  if (!controls.use_proxy || port.empty()) return false;
  int number = 0;
  for (const char digit : port) {
    if (digit < '0' || digit > '9' || port.size() > kLongestPort) return true;
    number = number * 10 + (digit - '0');
  }
  return number < 1 || number > kHighestPort;
}

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
  if (ProxyPortIsWrong(controls)) {
    client.platform.desktop.MessageBox(InLanguage(client, kWrongPort), BoxIcon::kExclamation);
    return false;
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

}  // namespace parlorwire
