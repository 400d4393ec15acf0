#include "shell/qt/command_menus.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QShortcut>
#include <string>
#include <utility>

#include "pane/qt/rich_text_view.h"
#include "platform/qt/text_conversion.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/hot_keys.h"
#include "shell/qt/client_main.h"
#include "shell/qt/control_names.h"
#include "shell/qt/graphic_button.h"
#include "shell/qt/help_windows.h"
#include "shell/qt/link_label.h"
#include "shell/qt/main_menu.h"
#include "shell/qt/main_shortcuts.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/ss_tab.h"
#include "shell/tabs.h"

namespace parlorwire {

CommandMenus::CommandMenus(Client& client, client_main& window, std::function<void()> focus_tab)
    : QObject(&window), client_(client), window_(window), focus_tab_(std::move(focus_tab)) {
  BuildEdit();
  BuildChannel();
  BuildTab();
  BuildHelp();
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { NoteFocus(now); });
  auto* key = new QShortcut(QKeySequence(Qt::Key_F10), &window_);
  key->setAutoRepeat(false);
  connect(key, &QShortcut::activated, this, [this] {
    QMenuBar* bar = window_.menuBar();
    bar->setActiveAction(bar->actions().first());
  });
}

// ---- what they are made of ----

QMenu* CommandMenus::Menu(const char* name, const BothLanguages& caption) {
  QMenuBar* bar = window_.menuBar();
  auto* menu = new QMenu(bar);
  auto* settings = bar->findChild<QAction*>(QStringLiteral("menu_settings_action"));
  for (QAction* action : bar->actions())
    if (action->objectName() == QLatin1String("menu_settings_action")) settings = action;
  const bool last = std::string(name) == "menu_help";
  bar->insertMenu(last ? nullptr : settings, menu);
  NameControl(menu, QString::fromLatin1(name));
  menu->menuAction()->setObjectName(QString::fromLatin1(name) + "_action");
  KeepCaptions(menu->menuAction(), caption);
  return menu;
}

void CommandMenus::Item(QMenu* menu, const char* name, const BothLanguages& caption,
                        const char* key, std::function<void()> act, std::function<bool()> enabled) {
  QAction* item = menu->addAction(QString());
  item->setObjectName(QString::fromLatin1(name));
  // Behind a tab stands what is shown beside the caption: the key itself is a shortcut elsewhere.
  const Text beside = *key == '\0' ? Text() : Text("\t") + key;
  const Text russian = Text(caption.russian) + beside;
  const Text english = Text(caption.english) + beside;
  KeepCaptions(item, {russian, english});
  connect(item, &QAction::triggered, this,
          [this, name = Text(name), act = std::move(act)] { OnEvent(client_, name, act); });
  if (!enabled) return;
  connect(menu, &QMenu::aboutToShow, item,
          [item, enabled = std::move(enabled)] { item->setEnabled(enabled()); });
}

void CommandMenus::LinkItem(QMenu* menu, const char* name, const BothLanguages& caption,
                            const char* key, LinkLabel* link) {
  Item(menu, name, caption, key, [link] { link->click(); }, [link] { return link->isEnabled(); });
}

// ---- the menus ----

void CommandMenus::BuildEdit() {
  QMenu* menu = Menu("menu_edit", {W<"&Правка">, "&Edit"});
  const auto msg = [this] { return window_.controls.tab(window_.controls.SSTab->Tab()).msg; };
  Item(
      menu, "edit_undo", {W<"&Отменить">, "&Undo"}, "Ctrl+Z", [msg] { msg()->undo(); },
      [msg] { return msg()->isUndoAvailable(); });
  menu->addSeparator();
  Item(
      menu, "edit_copy", {W<"&Копировать">, "&Copy"}, "Ctrl+C", [this] { Copy(); },
      [this] { return CanCopy(); });
  Item(
      menu, "edit_select_all", {W<"&Выделить все">, "Select &all"}, "Ctrl+A",
      [this] { SelectAll(); }, [this] { return AnyTab(); });
  LinkItem(menu, "edit_recode", {W<"&Перекодировка">, "&Recode"}, "",
           window_.controls.perecodirovka_label);
  menu->addSeparator();
  LinkItem(menu, "edit_search", {W<"П&оиск...">, "&Find..."}, "Ctrl+F",
           window_.controls.search_label);
  Item(menu, "edit_next", {W<"Найти &далее">, "Find &next"}, "F3",
       [this] { window_.FindOn(SearchDirection::kDown); });
  Item(menu, "edit_previous", {W<"Найти &раньше">, "Find &previous"}, "Shift+F3",
       [this] { window_.FindOn(SearchDirection::kUp); });
}

void CommandMenus::BuildChannel() {
  QMenu* menu = Menu("menu_channel", {W<"Кана&л">, "Cha&nnel"});
  const MainControls& c = window_.controls;
  const auto tab = [this]() -> const TabSession& {
    return client_.tab(window_.controls.SSTab->Tab());
  };
  Item(menu, "channel_enter", {W<"&Войти в чат...">, "&Log in..."}, "",
       [&c] { c.button_connect_main->click(); });
  Item(
      menu, "channel_read_anew", {W<"Прочитать &заново">, "&Read anew"}, "F5",
      [this] { RefreshTab(client_); }, [tab] { return tab().Connected || tab().IsChannelList; });
  Item(
      menu, "channel_log_in_anew", {W<"Войти &снова">, "Log in a&new"}, "F6",
      [this] { LogInAfresh(client_); }, [tab] { return tab().Connected; });
  Item(
      menu, "channel_log_in_otherwise", {W<"Войти &иначе...">, "Log in &otherwise..."}, "F7",
      [this] { LogInAnew(client_); }, [tab] { return tab().Connecting; });
  LinkItem(menu, "channel_leave", {W<"Вы&ход с канала">, "Lea&ve the channel"}, "", c.logout);
  LinkItem(menu, "channel_logoff", {W<"Выход из &чата">, "Lo&g off"}, "F8", c.logoff);
  menu->addSeparator();
  LinkItem(menu, "channel_opers", {W<"&Операторы">, "O&perators"}, "", c.sp_opers);
  LinkItem(menu, "channel_bans", {W<"&Баны">, "&Bans"}, "", c.sp_bans);
  LinkItem(menu, "channel_topics", {W<"История смены &тем">, "Changes of the &topic"}, "",
           c.hist_topic);
  LinkItem(menu, "channel_letogr", {W<"&Летограф">, "&Statistics"}, "", c.letogr);
}

void CommandMenus::BuildTab() {
  QMenu* menu = Menu("menu_tab", {W<"Т&аб">, "&Tab"});
  const auto any = [this] { return AnyTab(); };
  Item(menu, "tab_add", {W<"&Добавить таб">, "&Add a tab"}, "Ctrl+T", [this] { AddTab(client_); });
  // Also while the tab is connecting: that is how a connect is given up.
  Item(
      menu, "tab_close", {W<"&Закрыть таб">, "&Close the tab"}, "Ctrl+W",
      [this] { window_.CloseTab(); }, any);
  menu->addSeparator();
  Item(
      menu, "tab_next", {W<"&Следующий">, "&Next"}, "Ctrl+Tab",
      [this] {
        ShowNextTab(client_);
        focus_tab_();
      },
      any);
  Item(
      menu, "tab_previous", {W<"&Предыдущий">, "&Previous"}, "Ctrl+Shift+Tab",
      [this] {
        ShowPreviousTab(client_);
        focus_tab_();
      },
      any);
}

void CommandMenus::BuildHelp() {
  QMenu* menu = Menu("menu_help", {W<"&Справка">, "&Help"});
  Item(menu, "help_keys", {W<"&Клавиши...">, "&Keys..."}, "",
       [this] { ShowKeys(client_.app.Language, &window_); });
  Item(menu, "help_about", {W<"&О программе...">, "&About..."}, "",
       [this] { ShowAbout(client_.app.Language, &window_); });
}

// ---- what has the focus ----

void CommandMenus::NoteFocus(QWidget* now) {
  if (now == nullptr || now->window() != &window_) return;
  if (now != window_.menuBar()) focus_ = now;
}

bool CommandMenus::CanCopy() const {
  if (const auto* field = qobject_cast<QLineEdit*>(focus_)) return field->hasSelectedText();
  if (const auto* view = qobject_cast<RichTextView*>(focus_)) return !view->Selected().empty();
  return PaneToCopy(client_) != nullptr;
}

void CommandMenus::Copy() {
  if (auto* field = qobject_cast<QLineEdit*>(focus_)) {
    field->copy();
  } else if (auto* view = qobject_cast<RichTextView*>(focus_)) {
    view->Copy();
  } else {
    CopyPane(window_, client_);
  }
}

void CommandMenus::SelectAll() {
  if (auto* field = qobject_cast<QLineEdit*>(focus_)) return field->selectAll();
  auto* view = qobject_cast<RichTextView*>(focus_);
  if (view == nullptr) view = window_.controls.tab(window_.controls.SSTab->Tab()).Rich;
  view->SelectAll();
}

bool CommandMenus::AnyTab() const {
  return window_.controls.SSTab->AnyVisible();
}

}  // namespace parlorwire
