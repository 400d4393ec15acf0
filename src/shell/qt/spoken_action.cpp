#include "shell/qt/spoken_action.h"

#include <QAccessible>
#include <QAccessibleObject>
#include <QAction>
#include <QMenu>

namespace parlorwire {
namespace {

constexpr const char* kSpoken = "spoken";

// What the toolkit has for an item of a menu, but for the name.
class SpokenAction : public QAccessibleObject, public QAccessibleActionInterface {
 public:
  explicit SpokenAction(QAction* action) : QAccessibleObject(action) {}

  QAccessible::Role role() const override { return QAccessible::MenuItem; }

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name) return {};
    const QString spoken = action()->property(kSpoken).toString();
    return spoken.isEmpty() ? action()->iconText() : spoken;
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    const QMenu* menu = Menu();
    state.invisible = menu == nullptr || !menu->isVisible() || !action()->isVisible();
    state.focusable = true;
    state.focused = menu != nullptr && menu->activeAction() == action();
    state.disabled = !action()->isEnabled();
    state.hasPopup = action()->menu() != nullptr;
    return state;
  }

  QRect rect() const override {
    const QMenu* menu = Menu();
    if (menu == nullptr) return {};
    const QRect place = menu->actionGeometry(action());
    return {menu->mapToGlobal(place.topLeft()), place.size()};
  }

  QAccessibleInterface* parent() const override {
    return QAccessible::queryAccessibleInterface(Menu());
  }
  int childCount() const override { return action()->menu() != nullptr ? 1 : 0; }
  QAccessibleInterface* child(int index) const override {
    return index == 0 ? QAccessible::queryAccessibleInterface(action()->menu()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    return child != nullptr && action()->menu() != nullptr && child->object() == action()->menu()
               ? 0
               : -1;
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }
  QStringList actionNames() const override {
    return {action()->menu() != nullptr ? showMenuAction() : pressAction()};
  }
  void doAction(const QString& name) override {
    if (!action()->isEnabled()) return;
    QMenu* menu = Menu();
    if (name == pressAction())
      action()->trigger();
    else if (name == showMenuAction() && menu != nullptr)
      menu->setActiveAction(action());
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  QAction* action() const { return static_cast<QAction*>(object()); }
  QMenu* Menu() const {
    for (QObject* shown_in : action()->associatedObjects())
      if (auto* menu = qobject_cast<QMenu*>(shown_in)) return menu;
    return nullptr;
  }
};

QAccessibleInterface* MakeSpoken(const QString&, QObject* object) {
  auto* action = qobject_cast<QAction*>(object);
  if (action == nullptr || !action->property(kSpoken).isValid()) return nullptr;
  return new SpokenAction(action);
}

}  // namespace

void SpeakAction(QAction* action, const QString& spoken) {
  action->setProperty(kSpoken, spoken);
  QAccessible::installFactory(MakeSpoken);  // once more does nothing
}

}  // namespace parlorwire
