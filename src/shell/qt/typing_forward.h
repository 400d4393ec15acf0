// What is typed where nothing takes it goes to the input box.
#pragma once

#include <QObject>
#include <functional>

class QKeyEvent;
class QWidget;

namespace parlorwire {

class MsgBox;

// A printable character that is typed while a watched control has the focus goes to the input box,
// and the focus with it. A blank stays: panes scroll and check boxes tick by it. So do all keys
// with Ctrl, Alt or Meta. A box that is hidden or locked takes nothing.
class TypingForward : public QObject {
  Q_OBJECT

 public:
  // `box` tells the input box of the tab that is seen.
  TypingForward(QObject* owner, std::function<MsgBox*()> box);

  void Watch(QWidget* control);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool Forward(QKeyEvent& key);

  std::function<MsgBox*()> box_;
};

}  // namespace parlorwire
