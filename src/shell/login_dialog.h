// What `connection_form` decides. Its window shows a LoginDialog record and tells what the user
// does.
#pragma once

#include <array>
#include <vector>

#include "shell/control_text.h"
#include "text/text.h"

namespace parlorwire {

struct Client;

// The controls.
struct LoginDialog {
  std::vector<Text> logins;  // the entries of the combo box `login`
  int selected = -1;         // the entry selected, 0-based; -1 when the text was typed
  Text login;                // the combo's text; that of the entry if one is selected
  Text pass;
  Text room;
  Text channel_pwd_input;
  bool save_pass = false;
  bool save_pass_clicked = false;  // by the user, since an entry was last selected
};

enum class LoginField { kNone, kLogin, kPass };

// What the window does after Connect.
struct LoginOutcome {
  bool hide = false;                     // the connect has begun; `msg` already got the focus
  LoginField focus = LoginField::kNone;  // else the field that gets the focus
};

// ShowLoginDialog as far as the controls go: the saved logins from config.ini, the last one
// selected. A saved login without a nick is skipped in the combo, but not in the saved passwords
// and channels, so that all entries behind it show what belongs to their neighbours. See
// docs/names.md.
LoginDialog FillLoginDialog(Client& client);

// The user selects an entry of the combo.
void ChooseLogin(const Client& client, LoginDialog& dialog, int index);

// The user changes the combo's text to `text`. The other fields are emptied; `save_pass` stays as
// the user has clicked it, while a tick that came with a saved login goes. With 100 entries in the
// combo a message comes up instead, and entry 0 is selected.
void EditLogin(Client& client, LoginDialog& dialog, const Text& text);

// The user clicks the check box `save_pass`; it is on or off now.
void save_pass_Click(LoginDialog& dialog, bool on);

// The button `button_connect`, or Enter in `room`: the active tab takes what stands in the
// controls, the login is saved, and the tab connects. A tab that is not visible yet is shown first.
// Without a nick or a password there is a message, and nothing is saved.
LoginOutcome ConnectByDialog(Client& client, LoginDialog& dialog);

// The dialog was closed, and not by a connect. True if the user wants to end the program; `Timer4`
// does that. Not to be called when the program ends anyway.
bool CloseLoginDialog(Client& client);

// The button `button_getAccount`.
void button_getAccount(Client& client);

// The button `button_connect_main` of the main window: true if it adds a tab, as `AddTab` does;
// false if it shows the login dialog.
bool ConnectMainAddsTab(Client& client);

// In the order of the dialog.
inline constexpr std::array<ControlText, 8> kLoginDialogTexts = {{
    {"l_login", {W<"Логин:">, "Login:"}},
    {"l_pass", {W<"Пароль:">, "Password:"}},
    {"l_room", {W<"Канал*:">, "Room*:"}},
    {"l_channel_pwd", {W<"Пароль канала**:">, "Channel passw**:"}},
    {"save_pass", {W<"Запомнить пароль">, "Save the password"}},
    {"connect_param", {W<"Дополнительно">, "Advanced"}},
    {"l_primechanie", {W<"* При пустом поле загрузится список каналов">, "* ???"}},
    {"l_primechanie1", {W<"** Необязательное поле">, "** ???"}},
}};

}  // namespace parlorwire
