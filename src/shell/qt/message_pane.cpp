#include "shell/qt/message_pane.h"

#include <QAction>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>
#include <functional>

#include "pane/qt/rich_text_view.h"
#include "platform/qt/text_conversion.h"
#include "session/both_languages.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/control_names.h"
#include "shell/qt/nick_menu_popup.h"
#include "users/recode_layout.h"

namespace parlorwire {
namespace {

std::optional<MouseButton> CoreButton(Qt::MouseButton button) {
  if (button == Qt::LeftButton) return MouseButton::kLeft;
  if (button == Qt::RightButton) return MouseButton::kRight;
  return std::nullopt;
}

}  // namespace

MessagePane::MessagePane(Client& client, RichTextView* view, int slot, NickMenuPopup& menus)
    : QObject(view), client_(client), view_(view), slot_(slot), menus_(menus) {
  view_->setContextMenuPolicy(Qt::PreventContextMenu);
  view_->installEventFilter(this);
  WireMouse();
}

void MessagePane::WireMouse() {
  connect(view_, &RichTextView::mousePressedAt, this, [this](PanePosition at, auto pressed) {
    const auto button = CoreButton(pressed);
    if (!button) return;
    OnEvent(client_, "Rich_MouseDown", [&] {
      // The pane may have changed under a pointer that rests.
      Rich_MouseMove(client_, slot_, at);
      Rich_MouseDown(client_, slot_, at, *button);
    });
  });
  connect(view_, &RichTextView::mouseMovedOver, this, [this](PanePosition at) {
    OnEvent(client_, "Rich_MouseMove", [&] { Rich_MouseMove(client_, slot_, at); });
  });
  connect(view_, &RichTextView::mouseReleasedAt, this, [this](PanePosition at, auto released) {
    const auto button = CoreButton(released);
    if (!button) return;
    OnEvent(client_, "Rich_MouseUp", [&] {
      if (*button == MouseButton::kRight) view_->GiveSelection();
      Rich_MouseUp(client_, slot_, at, *button);
    });
  });
  connect(view_, &RichTextView::mouseLeft, this, [this] {
    OnEvent(client_, "Rich_MouseLeave", [&] { Rich_MouseLeave(client_, slot_); });
  });
}

bool MessagePane::eventFilter(QObject*, QEvent* event) {
  return event->type() == QEvent::KeyPress && KeyPressed(*static_cast<QKeyEvent*>(event));
}

bool MessagePane::KeyPressed(const QKeyEvent& key) {
  const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
  const bool plain = modifiers == Qt::NoModifier;
  const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  const bool shifted_f10 = key.key() == Qt::Key_F10 && modifiers == Qt::ShiftModifier;
  if (enter && plain) {
    if (!key.isAutoRepeat()) Act(MouseButton::kLeft);
    return true;
  }
  if (key.key() != Qt::Key_Menu && !shifted_f10) return false;
  Act(MouseButton::kRight);
  return true;
}

void MessagePane::Act(MouseButton button) {
  const PanePosition caret = view_->Caret();
  view_->ShowPosition(caret);
  QRect at = view_->CharacterRect(caret);
  if (at.isEmpty()) at = view_->CharacterRect(caret - 1);
  const QPoint below = at.isEmpty() ? view_->viewport()->rect().center() : at.bottomLeft();
  place_ = view_->viewport()->mapToGlobal(below);
  menus_.At(*place_, [&] {
    OnEvent(client_, "Rich_KeyDown", [&] {
      view_->GiveSelection();
      ClickAtCaret(client_, slot_, view_->Selected(), caret, button);
    });
  });
  place_.reset();
}

void MessagePane::ShowMenuCopy() {
  auto* menu = new QMenu(view_);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  NameControl(menu, QStringLiteral("menu_copy"));
  const auto item = [&](const char* name, const BothLanguages& words, bool enabled,
                        std::function<void()> action) {
    QAction* made = menu->addAction(ToQString(InLanguage(client_, words)));
    made->setObjectName(QLatin1String(name));
    made->setEnabled(enabled);
    connect(made, &QAction::triggered, this, [this, name = Text(name), action = std::move(action)] {
      OnEvent(client_, name, action);
    });
  };
  const CopyMenu shown = client_.app.menu_copy;
  if (!shown.Link.empty()) {
    item("link_open", {W<"Открыть">, "Open"}, true,
         [this, shown] { client_.hooks.OpenUrl(shown.Link); });
    item("link_copy", {W<"Копировать ссылку">, "Copy link"}, true,
         [this, shown] { client_.platform.clipboard.SetText(shown.Link); });
    menu->addSeparator();
  }
  item("text_copy", {W<"Копировать">, "Copy"}, shown.Copies, [this] { view_->Copy(); });
  item("text_perecodirovka", {W<"Перекодировать">, "Recode"}, shown.Copies, [this] { Recode(); });
  menu->popup(place_.value_or(QCursor::pos()));
  if (place_) menu->setActiveAction(menu->actions().first());
}

// A nick that is tinted in the selection gets its colour back first.
void MessagePane::Recode() {
  if (client_.platform.desktop.ActiveTab() != slot_) return;
  Rich_MouseLeave(client_, slot_);
  view_->GiveSelection();
  text_perecodirovka(client_);
}

}  // namespace parlorwire
