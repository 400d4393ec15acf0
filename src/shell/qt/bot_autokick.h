// The editor of the list of kicks.
#pragma once

#include <QDialog>
#include <optional>

#include "bot/autokick_editor.h"

class QLabel;
class QLineEdit;
class QPushButton;

namespace parlorwire {

class AutoKickGrid;
class AutoKickModel;
struct BothLanguages;
struct Client;

// Not modal. It is hidden, not deleted, when it is closed, so that it comes back as large as it
// was. Closed in any way but by `button_apply`, it drops what was changed.
class bot_autokick : public QDialog {
  Q_OBJECT

 public:
  bot_autokick(Client& client, QWidget* owner);
  ~bot_autokick() override;

  // Comes up with the list as it stands; an open one comes to the front as it is.
  void ShowList();

  void ShowTitle();  // by the active tab
  void ShowLanguage();

 private:
  // What was typed into a cell that was left, and has not reached the row yet.
  struct TypedCell {
    int row = 0;
    AutoKickColumn column{};
    Text typed;
  };

  void Build();
  void Add();
  void Delete(int row);
  void Apply();
  void TakeUp(const Text& nick, const Text& channel);
  bool LeaveCell();
  bool TakeTyped();

  Client& client_;
  AutoKickEditor editor_;
  AutoKickModel* model_;
  std::optional<TypedCell> typed_;

  QLabel *l_input_field_, *note_;
  QLineEdit* input_field_;
  AutoKickGrid* Grid1_;
  QPushButton *button_add_, *button_apply_, *button_cancel_;
};

}  // namespace parlorwire
