// A text field of the dialogs.
#pragma once

#include <QLineEdit>
#include <functional>

namespace parlorwire {

// Selects its whole text when it is entered: when it gets the focus, but not when it only gets it
// back with its window, or from a menu of its own. Of a pasted text it takes the first
// line. A locked field is read-only and shown so.
class TextField : public QLineEdit {
  Q_OBJECT

 public:
  explicit TextField(QWidget* parent);

  void SetLocked(bool locked);

  std::function<void()> Enter;           // null: Enter does nothing
  std::function<bool(char)> TakesTyped;  // null: the field takes every character

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  bool left_for_a_while_ = false;  // the focus comes back by itself
};

}  // namespace parlorwire
