// The user list under the mouse and under the keys: what happens in one becomes a call of the core.
#pragma once

#include <QObject>
#include <optional>

#include "display/pane_mouse.h"
#include "text/text.h"
#include "users/list_place.h"
#include "users/list_walk.h"

class QKeyEvent;

namespace parlorwire {

struct Client;
class NickMenuPopup;
class RichTextView;

// Up, Down, Home and End go from nick to nick, which the view then has selected. Enter does what a
// click with the left button does on a nick, the menu key and Shift+F10 what the right button does.
// The view keeps all other keys.
class UsersList : public QObject {
  Q_OBJECT

 public:
  // Belongs to the view.
  UsersList(Client& client, RichTextView* view, int slot, NickMenuPopup& menus);

  // The list has been drawn anew: who walks through it finds the nick where he was selected again,
  // who is under a resting mouse is tinted, and the first line in view is the same as before.
  void Drawn();
  // It is about to be emptied for that.
  void ToBeDrawn();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void WireMouse();
  bool KeyPressed(const QKeyEvent& key);
  bool Walk(ListStep step);
  void Reach(const ListedUser& user);
  bool Act(MouseButton button);

  Client& client_;
  RichTextView* view_;
  int slot_;
  NickMenuPopup& menus_;
  ListPlace place_;       // where the reader stood ahead of the redrawing
  int place_pixels_ = 0;  // of the first line there, beyond the upper edge
  Text reached_;          // the nick of the last step; "" when the caret was put elsewhere since
};

}  // namespace parlorwire
