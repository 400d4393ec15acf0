// The input box `msg`.
#pragma once

#include <QLineEdit>
#include <functional>

namespace parlorwire {

// One line. Its keys are told to whoever owns the behaviour; each returns whether it took the key.
class MsgBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit MsgBox(QWidget* parent);

  std::function<void()> Enter;
  std::function<void(bool up)> Step;  // Up or Down through the input history

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;

 private:
  void DeleteLastWord();
};

}  // namespace parlorwire
