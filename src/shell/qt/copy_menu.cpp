#include "shell/qt/copy_menu.h"

#include <QAction>
#include <QMenu>
#include <utility>

#include "pane/qt/rich_text_view.h"
#include "platform/qt/text_conversion.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/control_names.h"

namespace parlorwire {

QMenu* NewMenuCopy(Client& client, RichTextView* view, const CopyMenu& shown) {
  auto* menu = new QMenu(view);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  NameControl(menu, QStringLiteral("menu_copy"));
  if (!shown.Link.empty()) {
    AddMenuItem(client, menu, "link_open", {W<"Открыть">, "Open"},
                [&client, link = shown.Link] { client.hooks.OpenUrl(link); });
    AddMenuItem(client, menu, "link_copy", {W<"Копировать ссылку">, "Copy link"},
                [&client, link = shown.Link] { client.platform.clipboard.SetText(link); });
    menu->addSeparator();
  }
  AddMenuItem(client, menu, "text_copy", {W<"Копировать">, "Copy"}, [view] {
    view->Copy();
  })->setEnabled(shown.Copies);
  return menu;
}

void AddSelectAll(Client& client, QMenu* menu, RichTextView* view) {
  AddMenuItem(client, menu, "select_all", {W<"Выделить все">, "Select all"},
              [view] { view->SelectAll(); });
}

QAction* AddMenuItem(Client& client, QMenu* menu, const char* name, const BothLanguages& words,
                     std::function<void()> action) {
  QAction* item = menu->addAction(ToQString(InLanguage(client, words)));
  item->setObjectName(QLatin1String(name));
  QObject::connect(
      item, &QAction::triggered, menu,
      [&client, name = Text(name), action = std::move(action)] { OnEvent(client, name, action); });
  return item;
}

}  // namespace parlorwire
