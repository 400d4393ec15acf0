#include "shell/qt/message_pane.h"

#include <QAction>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>

#include "pane/qt/rich_text_view.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/copy_menu.h"
#include "shell/qt/nick_menu_popup.h"
#include "shell/qt/pane_click.h"
#include "users/recode_layout.h"

namespace parlorwire {

MessagePane::MessagePane(Client& client, RichTextView* view, int slot, NickMenuPopup& menus)
    : QObject(view), client_(client), view_(view), slot_(slot), menus_(menus) {
  view_->setContextMenuPolicy(Qt::PreventContextMenu);
  view_->installEventFilter(this);
  WireMouse();
}

void MessagePane::WireMouse() {
  connect(view_, &RichTextView::mousePressedAt, this, [this](PanePosition at, auto pressed) {
    const auto button = ClickOf(pressed);
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
    const auto button = ClickOf(released);
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
  const auto button = ClickOf(key);
  if (!button) return false;
  if (*button != MouseButton::kLeft || !key.isAutoRepeat()) Act(*button);
  return true;
}

void MessagePane::Act(MouseButton button) {
  const PanePosition caret = view_->Caret();
  view_->ShowPosition(caret);
  place_ = PlaceAtCaret(*view_);
  menus_.At(*place_, [&] {
    OnEvent(client_, "Rich_KeyDown", [&] {
      view_->GiveSelection();
      ClickAtCaret(client_, slot_, view_->Selected(), caret, button);
    });
  });
  place_.reset();
}

void MessagePane::ShowMenuCopy() {
  const CopyMenu& shown = client_.app.menu_copy;
  QMenu* menu = NewMenuCopy(client_, view_, shown);
  AddMenuItem(client_, menu, "text_perecodirovka", {W<"Перекодировать">, "Recode"}, [this] {
    Recode();
  })->setEnabled(shown.Copies);
  AddSelectAll(client_, menu, view_);
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
