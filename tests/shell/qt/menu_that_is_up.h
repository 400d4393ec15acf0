// The menu that has come up, as a user sees it and chooses from it.
#pragma once

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QStringList>
#include <QTest>

namespace parlorwire {

// What fixtures of windows with menus inherit.
struct MenuThatIsUp {
  static QMenu* Menu() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  static QStringList Items() {
    QStringList items;
    if (Menu() == nullptr) return items;
    for (const QAction* item : Menu()->actions())
      items << (item->isSeparator() ? QStringLiteral("-")
                                    : item->text() + (item->isEnabled() ? "" : " (grey)"));
    return items;
  }
  // With the mouse, by the name of the item.
  static void Choose(const char* item) {
    QMenu* menu = Menu();
    QVERIFY(menu != nullptr);
    auto* action = menu->findChild<QAction*>(QLatin1String(item));
    QVERIFY(action != nullptr);
    const QPoint place = menu->actionGeometry(action).center();
    QTest::mouseMove(menu, place);
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, place);
  }
};

}  // namespace parlorwire
