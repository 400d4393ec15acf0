#include "shell/qt/users_list.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>

#include "pane/qt/rich_text_view.h"
#include "session/client.h"
#include "session/event_entry.h"
#include "shell/qt/nick_menu_popup.h"
#include "users/nick_menu.h"
#include "users/users_mouse.h"

namespace parlorwire {
namespace {

bool IsWanted(Qt::MouseButton button) {
  return button == Qt::LeftButton || button == Qt::RightButton;
}

MouseButton ToMouseButton(Qt::MouseButton button) {
  return button == Qt::LeftButton ? MouseButton::kLeft : MouseButton::kRight;
}

std::optional<ListStep> NickStepOf(int key) {
  switch (key) {
    case Qt::Key_Up:
      return ListStep::kUp;
    case Qt::Key_Down:
      return ListStep::kDown;
    case Qt::Key_Home:
      return ListStep::kFirst;
    case Qt::Key_End:
      return ListStep::kLast;
    default:
      return std::nullopt;
  }
}

}  // namespace

UsersList::UsersList(Client& client, RichTextView* view, int slot, NickMenuPopup& menus)
    : QObject(view), client_(client), view_(view), slot_(slot), menus_(menus) {
  view_->setContextMenuPolicy(Qt::PreventContextMenu);
  view_->installEventFilter(this);
  view_->viewport()->installEventFilter(this);
  WireMouse();
}

void UsersList::WireMouse() {
  connect(view_, &RichTextView::mousePressedAt, this, [this](PanePosition at, auto pressed) {
    if (!IsWanted(pressed)) return;
    OnEvent(client_, "Rich_Users_MouseDown", [&] {
      // The list may have changed under a pointer that rests.
      Rich_Users_MouseMove(client_, slot_, at);
      Rich_Users_MouseDown(client_, slot_, at, ToMouseButton(pressed));
    });
  });
  connect(view_, &RichTextView::mouseMovedOver, this, [this](PanePosition at) {
    OnEvent(client_, "Rich_Users_MouseMove", [&] { Rich_Users_MouseMove(client_, slot_, at); });
  });
  connect(view_, &RichTextView::mouseReleasedAt, this, [this](PanePosition at, auto released) {
    if (!IsWanted(released)) return;
    OnEvent(client_, "Rich_Users_MouseUp", [&] {
      if (released == Qt::RightButton && !view_->Selected().empty()) view_->GiveSelection();
      Rich_Users_MouseUp(client_, slot_, at, ToMouseButton(released));
    });
  });
  connect(view_, &RichTextView::mouseLeft, this,
          [this] { OnEvent(client_, "Rich_Users_MouseLeave", [&] { MouseLeave(client_); }); });
}

void UsersList::ToBeDrawn() {
  const RichTextBox& list = view_->box();
  if (!NextListedUser(list, 0, ListDirection::kDown)) return;  // it is empty, and about to be full
  const RichTextView::Top top = view_->TopOfView();
  place_ = PlaceInList(list, top.position);
  place_pixels_ = top.pixels;
}

void UsersList::Drawn() {
  if (const auto line = FindListPlace(view_->box(), place_))
    view_->PutAtTop({*line, place_pixels_});
  place_.clear();
  const bool rests = QGuiApplication::mouseButtons() == Qt::NoButton;
  if (rests && view_->viewport()->underMouse()) {
    const QPoint mouse = view_->viewport()->mapFromGlobal(QCursor::pos());
    Rich_Users_MouseMove(client_, slot_, view_->CharFromPos(mouse.x(), mouse.y()));
  }
  if (reached_.empty() || !view_->hasFocus()) return;
  if (const auto user = FindListedUser(view_->box(), reached_)) Reach(*user);
}

bool UsersList::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseButtonPress && watched == view_->viewport()) reached_.clear();
  if (event->type() != QEvent::KeyPress || watched != view_) return false;
  bool done = false;
  OnEvent(client_, "Rich_Users_KeyDown",
          [&] { done = KeyPressed(*static_cast<QKeyEvent*>(event)); });
  return done;
}

bool UsersList::KeyPressed(const QKeyEvent& key) {
  const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
  if (key.key() == Qt::Key_Menu || (key.key() == Qt::Key_F10 && modifiers == Qt::ShiftModifier))
    return Act(MouseButton::kRight);
  if (modifiers == Qt::NoModifier) {
    if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) return Act(MouseButton::kLeft);
    if (const auto step = NickStepOf(key.key())) return Walk(*step);
    return false;
  }
  // With these the view may put the caret elsewhere.
  if ((modifiers & Qt::ShiftModifier) || key.matches(QKeySequence::SelectAll)) reached_.clear();
  return false;
}

bool UsersList::Walk(ListStep step) {
  const auto user = StepInList(view_->box(), view_->Caret(), reached_, step);
  if (user) Reach(*user);
  return user || UserInHand(view_->box(), view_->Caret(), reached_);
}

// With the caret ahead of the nick, so that a screen reader hears the nick first.
void UsersList::Reach(const ListedUser& user) {
  reached_ = user.nick;
  view_->Select(user.NickEnd(), user.nick_start);
  view_->ShowPosition(user.nick_start);
}

// Where the nick that was reached has left, nothing is done but to show who stands there now.
bool UsersList::Act(MouseButton button) {
  const auto user = UserInHand(view_->box(), view_->Caret(), reached_);
  if (!user) {
    reached_.clear();
    if (const auto other = UserInHand(view_->box(), view_->Caret(), reached_)) Reach(*other);
    return true;
  }
  view_->ShowPosition(user->nick_start);
  const QRect nick = view_->CharacterRect(user->nick_start);
  const QPoint below = nick.isEmpty() ? view_->viewport()->rect().center() : nick.bottomLeft();
  menus_.At(view_->viewport()->mapToGlobal(below),
            [&] { ClickListedNick(client_, slot_, user->nick, button); });
  return true;
}

}  // namespace parlorwire
