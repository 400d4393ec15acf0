#include "shell/qt/help_windows.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <array>

#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "shell/qt/control_names.h"
#include "shell/qt/dialog_frame.h"
#include "shell/qt/message_box.h"
#include "shell/version.h"

namespace parlorwire {
namespace {

struct KeyHelp {
  const char* key;
  BothLanguages does;
};

constexpr std::array kKeys = {
    KeyHelp{"F10", {W<"открывает меню">, "opens the menu"}},
    KeyHelp{"Ctrl+T", {W<"добавляет таб">, "adds a tab"}},
    KeyHelp{"Ctrl+W",
            {W<"закрывает таб, и пока он соединяется">, "closes the tab, also while it connects"}},
    KeyHelp{"Ctrl+Tab, Ctrl+Page Down", {W<"следующий таб">, "the next tab"}},
    KeyHelp{"Ctrl+Shift+Tab, Ctrl+Page Up", {W<"предыдущий таб">, "the tab before"}},
    KeyHelp{"Ctrl+1 ... Ctrl+9, Ctrl+0",
            {W<"табы с первого по десятый">, "the first to the tenth tab"}},
    KeyHelp{"Ctrl+H", {W<"убирает окно в трей">, "puts the window into the tray"}},
    KeyHelp{"F5",
            {W<"читает канал или список каналов заново">,
             "reads the channel, or the list of channels, anew"}},
    KeyHelp{"F6", {W<"выходит и входит снова">, "logs off and in again"}},
    KeyHelp{"F7", {W<"во время входа: снова окно входа">, "while logging in: the login again"}},
    KeyHelp{"F8", {W<"выходит из чата">, "logs off"}},
    KeyHelp{"Enter", {W<"говорит строку">, "says the line"}},
    KeyHelp{"Up, Down", {W<"последние сказанные строки">, "the last lines that were said"}},
    KeyHelp{"Ctrl+Z", {W<"возвращает прежний текст строки">, "takes back a change of the line"}},
    KeyHelp{"Ctrl+Backspace", {W<"стирает слово">, "deletes a word"}},
    KeyHelp{"Page Up, Page Down, Ctrl+Home, Ctrl+End",
            {W<"листают сообщения">, "scroll the messages"}},
    KeyHelp{"Ctrl+F", {W<"поиск">, "search"}},
    KeyHelp{"F3, Shift+F3", {W<"найти далее, раньше">, "find on downwards, upwards"}},
    KeyHelp{"Ctrl+C, Ctrl+A", {W<"копирует, выделяет все">, "copies, selects all"}},
    KeyHelp{"Shift+F10",
            {W<"меню ника, ссылки или выделенного">, "the menu of a nick, a link or a selection"}},
    KeyHelp{"Ctrl+K, Ctrl+B, Ctrl+M, Ctrl+L",
            {W<"для операторов: выгнать, бан, лишить голоса, маленькие буквы">,
             "for operators: kick, ban, mute, small letters"}},
};

constexpr BothLanguages kKeysTitle{W<"Клавиши">, "Keys"};
constexpr int kListWidth = 620;  // pixels
constexpr int kListHeight = 440;

}  // namespace

void ShowKeys(UiLanguage language, QWidget* owner) {
  QDialog window(owner);
  NameControl(&window, "help_keys_window");
  window.setWindowTitle(ToQString(kKeysTitle.In(language)));
  SayControl(&window, window.windowTitle());
  window.setPalette(PaletteOn(window.palette(), kDialogBackColor));
  FrameAsDialog(&window);
  auto* list = new QTreeWidget(&window);
  NameControl(list, "help_keys_list");
  SayControl(list, window.windowTitle());
  list->setRootIsDecorated(false);
  list->setColumnCount(2);
  list->header()->hide();
  for (const KeyHelp& each : kKeys)
    list->addTopLevelItem(
        new QTreeWidgetItem({QString::fromLatin1(each.key), ToQString(each.does.In(language))}));
  list->resizeColumnToContents(0);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, &window);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &window, &QDialog::reject);
  auto* column = new QVBoxLayout(&window);
  column->addWidget(list);
  column->addWidget(buttons);
  window.resize(kListWidth, kListHeight);
  window.exec();
}

void ShowAbout(UiLanguage language, QWidget* owner) {
  const BothLanguages what{W<"Клиент веб-чата.\r\nЛицензия: MIT.">,
                           "A client of a web chat.\r\nLicence: MIT."};
  ShowMessageBox(owner, Text("Parlorwire ") + kVersion + "\r\n\r\n" + Text(what.In(language)),
                 BoxIcon::kInformation);
}

}  // namespace parlorwire
