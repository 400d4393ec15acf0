// The input box `msg`.
#pragma once

#include <QLineEdit>
#include <functional>

#include "bot/moderator_commands.h"

class QMenu;

namespace parlorwire {

// What the keys Page Up, Page Down, Ctrl+Home and Ctrl+End do to the pane above the box.
enum class PaneStep { kPageUp, kPageDown, kStart, kEnd };

// One line. With Ctrl, the letters of the Russian layout are those that stand on their keys in the
// Latin one.
class MsgBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit MsgBox(QWidget* parent);

  std::function<void()> Send;           // Enter in a box that is not locked
  std::function<void(bool up)> Browse;  // Up or Down through the input history
  std::function<void(PaneStep)> ScrollPane;
  // Ctrl+K, Ctrl+B, Ctrl+M and Ctrl+L; false leaves the key to the box.
  std::function<bool(MsgCommand)> Command;
  // A menu that stands in the context menu, too.
  std::function<QMenu*()> FurtherMenu;

  // Puts another text in the place of all that stands there, the caret behind it, so that it can be
  // taken back with Ctrl+Z.
  void Replace(const QString& text);

  // Puts a text at the caret, ahead of what is selected; the caret stays ahead of it. A locked box
  // takes nothing.
  void InsertBehindCaret(const QString& text);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool event(QEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  void DeleteWord();
};

}  // namespace parlorwire
