// The popup of smiles.
#pragma once

#include <QObject>
#include <functional>

#include "text/text.h"

class QMenu;
class QPoint;
class QWidget;

namespace parlorwire {

struct Client;
class SmilesStyle;

// MenuSmilesItem: a picture and its codes an item. It is filled when it first comes up; a long one
// has as many columns as the screen asks for.
class SmilesMenu : public QObject {
  Q_OBJECT

 public:
  SmilesMenu(Client& client, QWidget* window);

  // An item was clicked: what goes into `msg`.
  std::function<void(const Text& code)> Insert;

  QMenu* menu() { return menu_; }
  // At a point of the screen. An empty table has no menu.
  void PopUp(QPoint place);
  // The title in the language, and grey without a table.
  void ShowTitle();

 private:
  void Fill();

  Client& client_;
  QMenu* menu_;
  SmilesStyle* style_;  // of the menu, to which it belongs
};

}  // namespace parlorwire
