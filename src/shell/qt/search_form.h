// The search dialog.
#pragma once

#include <QDialog>
#include <functional>

#include "display/pane_search.h"
#include "platform/desktop.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QRadioButton;

namespace parlorwire {

struct Client;
class GraphicButton;

// Modeless, and hidden rather than closed. Enter and `button_next` find on in the chosen direction,
// F3 downwards and Shift+F3 upwards; Escape and `button_cancel` hide it. The captions are Russian
// in both languages; in English they have English tool tips and spoken names.
class search_form : public QDialog {
  Q_OBJECT

 public:
  // `find_on` finds in the pane of the active tab.
  search_form(Client& client, QWidget* owner, std::function<void(SearchDirection)> find_on);

  // Brings it up, with its text selected and in focus: at first in the corner of its owner, later
  // where it was left.
  void ComeUp();
  void SetLanguage(UiLanguage language);

 protected:
  void changeEvent(QEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();
  void Wire();
  void TakeControls();
  void Next();

  Client& client_;
  std::function<void(SearchDirection)> find_on_;
  QLabel* l_txt_to_search_ = nullptr;
  QLineEdit* txt_to_search_ = nullptr;
  QCheckBox* compl_word_ = nullptr;
  QCheckBox* case_sensitive_ = nullptr;
  QRadioButton* Opt_up_ = nullptr;
  QRadioButton* Opt_down_ = nullptr;
  GraphicButton* button_next_ = nullptr;
  GraphicButton* button_cancel_ = nullptr;
  bool placed_ = false;
};

}  // namespace parlorwire
