#include "shell/qt/main_shortcuts.h"

#include <QKeySequence>
#include <QList>
#include <QShortcut>
#include <utility>

#include "pane/qt/rich_text_view.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/hot_keys.h"
#include "shell/qt/client_main.h"
#include "shell/qt/russian_keys.h"
#include "shell/tabs.h"
#include "shell/tray.h"

namespace parlorwire {
namespace {

// Ctrl and the key of a letter, in both layouts.
QList<QKeySequence> Control(Qt::Key letter) {
  return {QKeySequence(Qt::CTRL | letter), QKeySequence(Qt::CTRL | RussianKey(letter))};
}

}  // namespace

void CopyPane(const client_main& window, const Client& client) {
  const RichTextBox* pane = PaneToCopy(client);
  for (const TabControls& tab : window.controls.tabs)
    for (RichTextView* view : {tab.Rich, tab.Rich_Users})
      if (&view->box() == pane) view->Copy();
}

void MakeMainShortcuts(client_main& window, Client& client,
                       const std::function<void()>& focus_tab) {
  const auto shortcut = [&](const QList<QKeySequence>& keys, const char* name, auto action) {
    auto* made = new QShortcut(&window);
    made->setKeys(keys);
    made->setAutoRepeat(false);
    const auto act = [&client, name, action = std::move(action)] { OnEvent(client, name, action); };
    QObject::connect(made, &QShortcut::activated, &window, act);
    // With both layouts at hand one press stands for both of a shortcut's keys.
    QObject::connect(made, &QShortcut::activatedAmbiguously, &window, act);
  };
  shortcut(Control(Qt::Key_T), "AddTab", [&client] { AddTab(client); });
  shortcut(Control(Qt::Key_W), "close_tab", [&window] { window.CloseTab(); });
  shortcut({QKeySequence(Qt::CTRL | Qt::Key_Tab), QKeySequence(Qt::CTRL | Qt::Key_PageDown)},
           "HotkeyPoll", [&client, focus_tab] {
             ShowNextTab(client);
             focus_tab();
           });
  shortcut(
      {QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab),
       QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Tab), QKeySequence(Qt::CTRL | Qt::Key_PageUp)},
      "HotkeyPoll", [&client, focus_tab] {
        ShowPreviousTab(client);
        focus_tab();
      });
  for (int n = 1; n <= kTabCount; ++n)
    shortcut({QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_0 + n % 10))}, "HotkeyPoll",
             [&client, focus_tab, n] {
               if (ShowNthTab(client, n)) focus_tab();
             });
  shortcut(Control(Qt::Key_H), "put_in_tray", [&client] { put_in_tray(client); });
  shortcut(Control(Qt::Key_C), "HotkeyPoll", [&window, &client] { CopyPane(window, client); });
  shortcut({QKeySequence(Qt::Key_F5)}, "HotkeyPoll", [&client] { RefreshTab(client); });
  shortcut({QKeySequence(Qt::Key_F6)}, "HotkeyPoll", [&client] { LogInAfresh(client); });
  shortcut({QKeySequence(Qt::Key_F7)}, "HotkeyPoll", [&client] { LogInAnew(client); });
  shortcut({QKeySequence(Qt::Key_F8)}, "HotkeyPoll", [&client] { LogOff(client); });
  shortcut(Control(Qt::Key_F), "HotkeyPoll", [&client] { client.hooks.ShowSearchDialog(); });
  shortcut({QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_F),
            QKeySequence(Qt::CTRL | Qt::SHIFT | RussianKey(Qt::Key_F))},
           "search_logs", [&window] { window.ShowLogSearch(); });
  shortcut({QKeySequence(Qt::Key_F3)}, "HotkeyPoll",
           [&window] { window.FindOn(SearchDirection::kDown); });
  shortcut({QKeySequence(Qt::SHIFT | Qt::Key_F3)}, "HotkeyPoll",
           [&window] { window.FindOn(SearchDirection::kUp); });
}

}  // namespace parlorwire
