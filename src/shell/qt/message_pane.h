// A message pane under the mouse and under the keys: what happens in one becomes a call of the
// core.
#pragma once

#include <QObject>
#include <QPoint>
#include <optional>

#include "display/pane_mouse.h"

class QKeyEvent;

namespace parlorwire {

struct Client;
class NickMenuPopup;
class RichTextView;

// Enter does what a click with the left button does on what stands at the caret, the menu key and
// Shift+F10 what the right button does. The view keeps all other keys.
class MessagePane : public QObject {
  Q_OBJECT

 public:
  // Belongs to the view.
  MessagePane(Client& client, RichTextView* view, int slot, NickMenuPopup& menus);

  // menu_copy, at the pointer or, by keyboard, at the caret.
  void ShowMenuCopy();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void WireMouse();
  bool KeyPressed(const QKeyEvent& key);
  void Act(MouseButton button);
  void Recode();

  Client& client_;
  RichTextView* view_;
  int slot_;
  NickMenuPopup& menus_;
  std::optional<QPoint> place_;  // of the screen, where a menu comes up by keyboard
};

}  // namespace parlorwire
