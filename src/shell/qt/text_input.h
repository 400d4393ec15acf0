// The prompt for a reason, and for some commands for a duration.
#pragma once

#include <QDialog>

class QComboBox;
class QLineEdit;

namespace parlorwire {

struct Client;

// Modal. Enter and `button_ok` hand what stands in it to ConfirmTextInput; Escape, `button_cancel`
// and the window's own close hand over nothing. The list of durations is there if the client wants
// one.
class text_input : public QDialog {
  Q_OBJECT

 public:
  text_input(Client& client, const QString& prompt, const QString& title, QWidget* owner);

 private:
  void Confirm();

  Client& client_;
  QLineEdit* text_;
  QComboBox* duration_;
};

}  // namespace parlorwire
