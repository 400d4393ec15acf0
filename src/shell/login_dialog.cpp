#include "shell/login_dialog.h"

#include <algorithm>
#include <optional>

#include "session/client.h"
#include "session/connect.h"
#include "session/fault_trap.h"
#include "session/ini.h"
#include "session/service_address.h"
#include "shell/tabs.h"
#include "text/cut.h"
#include "text/number.h"

namespace parlorwire {
namespace {

constexpr BothLanguages kTooManyNicks{W<"Максимальное число ников - 100">,
                                      "Maximum number of nicks - 100"};
constexpr BothLanguages kEnterNick{W<"Пожалуйста, введите Ваш ник">, "Please, enter your nickname"};
constexpr BothLanguages kEnterPassword{W<"Пожалуйста, введите Ваш пароль">,
                                       "Please, enter your password"};

Text Numbered(std::string_view key, int number) {
  return Text(key) + std::to_string(number);
}

// A number of section Main; 0 if it is absent or no number.
std::int16_t ReadNumber(Client& client, std::string_view key) {
  std::int16_t number = 0;
  PassOverFault([&] { number = ToInteger(ReadIni(client, "Main", key)); });
  return number;
}

void ShowSaved(const AppState& app, LoginDialog& dialog, int index) {
  if (index < 0 || index >= kMaxLogins) return;
  const auto saved = static_cast<std::size_t>(index);
  dialog.pass = app.SavedPassword[saved];
  dialog.room = app.SavedChannel[saved];
  dialog.channel_pwd_input = app.SavedChannelPassword[saved];
}

// Whether the list has such an entry.
bool Select(const AppState& app, LoginDialog& dialog, int index) {
  if (index < 0 || index >= std::ssize(dialog.logins)) return false;
  dialog.selected = index;
  dialog.login = dialog.logins[static_cast<std::size_t>(index)];
  dialog.save_pass =
      index < kMaxLogins && !app.SavedPassword[static_cast<std::size_t>(index)].empty();
  dialog.save_pass_clicked = false;
  return true;
}

std::optional<int> FindLogin(const LoginDialog& dialog) {
  const Text wanted = Trim(dialog.login);
  const auto found = std::ranges::find_if(
      dialog.logins, [&](const Text& login) { return EqualsNoCase(login, wanted); });
  if (found == dialog.logins.end()) return std::nullopt;
  return static_cast<int>(found - dialog.logins.begin());
}

void SaveLogin(Client& client, LoginDialog& dialog) {
  std::optional<int> entry = dialog.selected;
  if (dialog.selected < 0) entry = FindLogin(dialog);
  if (entry) {
    WriteIni(client, "Main", Numbered("ChPwd", *entry), dialog.channel_pwd_input);
    WriteIni(client, "Main", Numbered("Channel", *entry), dialog.room);
    if (dialog.save_pass) WriteIni(client, "Main", Numbered("Passw", *entry), dialog.pass);
    client.app.LastLoginIndex = static_cast<std::int16_t>(*entry);
  } else {
    dialog.logins.push_back(Trim(dialog.login));
    const int added = static_cast<int>(dialog.logins.size()) - 1;
    WriteIni(client, "Main", Numbered("Login", added), dialog.logins.back());
    WriteIni(client, "Main", Numbered("ChPwd", added), dialog.channel_pwd_input);
    WriteIni(client, "Main", Numbered("Channel", added), dialog.room);
    if (dialog.save_pass) WriteIni(client, "Main", Numbered("Passw", added), dialog.pass);
  }
  client.app.LoginCount = static_cast<std::int16_t>(dialog.logins.size());
  WriteIni(client, "Main", "Logins", std::to_string(client.app.LoginCount));
}

}  // namespace

LoginDialog FillLoginDialog(Client& client) {
  AppState& app = client.app;
  LoginDialog dialog;
  app.LoginCount = ReadNumber(client, "Logins");
  // Up to LoginCount itself: one more than there are.
  for (int i = 0; i <= app.LoginCount && i < kMaxLogins; ++i) {
    const auto saved = static_cast<std::size_t>(i);
    const Text login = ReadIni(client, "Main", Numbered("Login", i));
    if (!TrimView(login).empty()) dialog.logins.push_back(login);
    app.SavedPassword[saved] = ReadIni(client, "Main", Numbered("Passw", i));
    app.SavedChannel[saved] = ReadIni(client, "Main", Numbered("Channel", i));
    app.SavedChannelPassword[saved] = ReadIni(client, "Main", Numbered("ChPwd", i));
  }
  if (app.LoginCount != 0 && app.LastLoginIndex == 0)
    app.LastLoginIndex = ReadNumber(client, "lastIndex");
  Select(app, dialog, app.LastLoginIndex);
  ShowSaved(app, dialog, app.LastLoginIndex);
  return dialog;
}

void ChooseLogin(const Client& client, LoginDialog& dialog, int index) {
  if (Select(client.app, dialog, index)) ShowSaved(client.app, dialog, index);
}

void EditLogin(Client& client, LoginDialog& dialog, const Text& text) {
  if (dialog.logins.size() >= kMaxLogins) {
    client.platform.desktop.MessageBox(InLanguage(client, kTooManyNicks), BoxIcon::kStop);
    ChooseLogin(client, dialog, 0);
    return;
  }
  dialog.selected = -1;
  dialog.login = text;
  dialog.pass.clear();
  dialog.room.clear();
  dialog.channel_pwd_input.clear();
  if (!dialog.save_pass_clicked) dialog.save_pass = false;
}

void save_pass_Click(LoginDialog& dialog, bool on) {
  dialog.save_pass = on;
  dialog.save_pass_clicked = true;
}

LoginOutcome ConnectByDialog(Client& client, LoginDialog& dialog) {
  Desktop& desktop = client.platform.desktop;
  const int active = desktop.ActiveTab();
  TabSession& tab = client.tab(active);
  tab.Login = dialog.selected < 0 ? Trim(dialog.login) : dialog.login;
  tab.Password = dialog.pass;
  tab.Channel = dialog.room;
  tab.ChannelPassword = dialog.channel_pwd_input;
  if (TrimView(tab.Login).empty()) {
    desktop.MessageBox(InLanguage(client, kEnterNick), BoxIcon::kExclamation);
    return {false, LoginField::kLogin};
  }
  if (TrimView(dialog.pass).empty()) {
    desktop.MessageBox(InLanguage(client, kEnterPassword), BoxIcon::kExclamation);
    return {false, LoginField::kPass};
  }

  SaveLogin(client, dialog);
  tab.LoginShown = true;
  tab.ClearPanesOnConnect = true;
  if (!desktop.TabVisible(active)) {
    desktop.SetTabVisible(active, true);
    desktop.SetActiveTab(active);
  }
  ConnectToChat(client, active);
  desktop.FocusMsg(active);
  return {true, LoginField::kNone};
}

bool CloseLoginDialog(Client& client) {
  Desktop& desktop = client.platform.desktop;
  if (!AnyTabInUse(client)) return AskToQuit(client);

  const int active = desktop.ActiveTab();
  const TabSession& tab = client.tab(active);
  if (InUse(tab) || tab.EverConnected || tab.LoginShown) return false;
  for (int other = 0; other < kTabCount; ++other) {
    if (other == active || !desktop.TabVisible(other)) continue;
    desktop.SetActiveTab(other);
    desktop.SetTabVisible(active, false);
    break;
  }
  return false;
}

void button_getAccount(Client& client) {
  client.hooks.OpenUrl(ServiceAddress(client.app) + "/rulez.html");
}

bool ConnectMainAddsTab(Client& client) {
  const TabSession& tab = client.tab(client.platform.desktop.ActiveTab());
  return tab.Connected || tab.Connecting;
}

}  // namespace parlorwire
