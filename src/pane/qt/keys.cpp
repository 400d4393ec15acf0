// The keyboard in a pane, and its menu.
#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>

#include "pane/qt/rich_text_view.h"
#include "pane/rich_text_box.h"

namespace parlorwire {

void RichTextView::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return Copy();
  if (event->matches(QKeySequence::SelectAll)) return SelectAll();
  if (event->key() == Qt::Key_Menu) return QAbstractScrollArea::keyPressEvent(event);
  if (!SelectKey(event) && !ScrollKey(event)) event->ignore();
}

// ---- scrolling ----

bool RichTextView::ScrollKey(QKeyEvent* event) {
  const bool shift = event->modifiers() & Qt::ShiftModifier;
  if (event->modifiers() & (Qt::AltModifier | Qt::MetaModifier)) return false;
  switch (event->key()) {
    case Qt::Key_Up:
      ScrollBy(-arrangement_.RowHeight());
      return true;
    case Qt::Key_Down:
      ScrollBy(arrangement_.RowHeight());
      return true;
    case Qt::Key_Left:
      return SidewaysKey(-arrangement_.RowHeight());
    case Qt::Key_Right:
      return SidewaysKey(arrangement_.RowHeight());
    case Qt::Key_PageUp:
      ScrollPages(-1);
      return true;
    case Qt::Key_PageDown:
      ScrollPages(1);
      return true;
    case Qt::Key_Space:
      ScrollPages(shift ? -1 : 1);
      return true;
    case Qt::Key_Home:
      ScrollToStart();
      return true;
    case Qt::Key_End:
      ScrollToEnd();
      return true;
    default:
      return false;
  }
}

bool RichTextView::SidewaysKey(int pixels) {
  if (horizontalScrollBar()->maximum() == 0) return false;
  ScrollSideways(pixels);
  return true;
}

// ---- selecting ----

bool RichTextView::SelectKey(QKeyEvent* event) {
  if (!(event->modifiers() & Qt::ShiftModifier)) return false;
  if (event->modifiers() & (Qt::AltModifier | Qt::MetaModifier)) return false;
  // A caret that the reader cannot know of begins where he looks.
  const PlacedFragment& top = arrangement_.Seen().front();
  if (Selected().empty() && CharacterRect(Caret()).isEmpty())
    selection_ = {top.fragment.start, top.fragment.start};
  const auto moved =
      caret_keys_.Moved(Caret(), event->key(), event->modifiers() & Qt::ControlModifier);
  if (!moved) return false;
  const auto column = caret_keys_.column();
  Select(selection_.anchor, *moved);
  caret_keys_.SetColumn(column);
  ShowPosition(*moved);
  return true;
}

// ---- the menu ----

void RichTextView::contextMenuEvent(QContextMenuEvent* event) {
  QMenu menu(this);
  QAction* copy = menu.addAction(russian_ ? QStringLiteral("Копировать") : QStringLiteral("Copy"),
                                 this, &RichTextView::Copy);
  copy->setObjectName(QStringLiteral("menu_copy"));
  copy->setShortcut(QKeySequence::Copy);
  copy->setEnabled(!Selected().empty());
  QAction* all =
      menu.addAction(russian_ ? QStringLiteral("Выделить все") : QStringLiteral("Select all"), this,
                     &RichTextView::SelectAll);
  all->setObjectName(QStringLiteral("menu_select_all"));
  all->setShortcut(QKeySequence::SelectAll);
  all->setEnabled(box_.Length() > 0);
  QPoint at = event->globalPos();
  if (event->reason() == QContextMenuEvent::Keyboard) {
    const QRect caret = CharacterRect(Caret());
    at =
        viewport()->mapToGlobal(caret.isEmpty() ? viewport()->rect().center() : caret.bottomLeft());
  }
  menu.exec(at);
}

}  // namespace parlorwire
