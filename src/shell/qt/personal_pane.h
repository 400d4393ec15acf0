// The pane of a personal window under the mouse and under the keys: what happens in it becomes a
// call of the core.
#pragma once

#include <QObject>
#include <QPoint>
#include <memory>
#include <optional>

#include "display/pane_mouse.h"

class QKeyEvent;

namespace parlorwire {

struct Client;
struct CopyMenu;
struct PersonalWindow;
class RichTextView;

// By keyboard Enter, the menu key and Shift+F10 do what they do in a message pane. The view keeps
// all other keys.
class PersonalPane : public QObject {
  Q_OBJECT

 public:
  // Belongs to the view.
  PersonalPane(Client& client, RichTextView* view, std::shared_ptr<PersonalWindow> record);

  // menu_copy, at the pointer or, by keyboard, at the caret.
  void ShowMenuCopy(const CopyMenu& shown);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void WireMouse();
  void Act(MouseButton button);

  Client& client_;
  RichTextView* view_;
  std::shared_ptr<PersonalWindow> record_;
  std::optional<QPoint> place_;  // of the screen, where a menu comes up by keyboard
};

}  // namespace parlorwire
