// A text field of the dialogs.
#pragma once

#include <QLineEdit>
#include <functional>

namespace parlorwire {

// Selects its whole text when it gets the focus. Of a pasted text it takes the first
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
};

}  // namespace parlorwire
