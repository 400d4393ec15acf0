#include "shell/qt/personal_pane.h"

#include <QAction>
#include <QCursor>
#include <QKeyEvent>
#include <QMenu>
#include <utility>

#include "pane/qt/rich_text_view.h"
#include "personal/pers_mouse.h"
#include "personal/personal_window.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/copy_menu.h"
#include "shell/qt/pane_click.h"

namespace parlorwire {

PersonalPane::PersonalPane(Client& client, RichTextView* view,
                           std::shared_ptr<PersonalWindow> record)
    : QObject(view), client_(client), view_(view), record_(std::move(record)) {
  view_->setContextMenuPolicy(Qt::PreventContextMenu);
  view_->installEventFilter(this);
  WireMouse();
}

void PersonalPane::WireMouse() {
  connect(view_, &RichTextView::mousePressedAt, this, [this](PanePosition at, auto pressed) {
    const auto button = ClickOf(pressed);
    if (!button) return;
    OnEvent(client_, "pers_frm_Rich_MouseDown", [&] {
      // The pane may have changed under a pointer that rests.
      pers_frm_Rich_MouseMove(*record_, at);
      pers_frm_Rich_MouseDown(*record_, at, *button);
    });
  });
  connect(view_, &RichTextView::mouseMovedOver, this, [this](PanePosition at) {
    OnEvent(client_, "pers_frm_Rich_MouseMove", [&] { pers_frm_Rich_MouseMove(*record_, at); });
  });
  connect(view_, &RichTextView::mouseReleasedAt, this, [this](PanePosition at, auto released) {
    const auto button = ClickOf(released);
    if (!button) return;
    OnEvent(client_, "pers_frm_Rich_MouseUp", [&] {
      if (*button == MouseButton::kRight) view_->GiveSelection();
      pers_frm_Rich_MouseUp(client_, *record_, at, *button);
    });
  });
  connect(view_, &RichTextView::mouseLeft, this, [this] {
    OnEvent(client_, "pers_frm_Rich_MouseLeave", [&] { pers_frm_Rich_MouseMove(*record_, 0); });
  });
}

bool PersonalPane::eventFilter(QObject*, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return false;
  const auto& key = *static_cast<QKeyEvent*>(event);
  const auto button = ClickOf(key);
  if (!button) return false;
  if (*button != MouseButton::kLeft || !key.isAutoRepeat()) Act(*button);
  return true;
}

void PersonalPane::Act(MouseButton button) {
  const PanePosition caret = view_->Caret();
  view_->ShowPosition(caret);
  place_ = PlaceAtCaret(*view_);
  OnEvent(client_, "pers_frm_Rich_KeyDown", [&] {
    view_->GiveSelection();
    ClickAtPersCaret(client_, *record_, view_->Selected(), caret, button);
  });
  place_.reset();
}

void PersonalPane::ShowMenuCopy(const CopyMenu& shown) {
  QMenu* menu = NewMenuCopy(client_, view_, shown);
  AddSelectAll(client_, menu, view_);
  menu->popup(place_.value_or(QCursor::pos()));
  if (place_) menu->setActiveAction(menu->actions().first());
}

}  // namespace parlorwire
