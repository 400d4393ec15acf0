// The keyboard in a pane, and its menu.
#include <QAction>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QScrollEvent>
#include <QScrollPrepareEvent>
#include <algorithm>

#include "pane/qt/rich_text_view.h"

namespace parlorwire {

bool RichTextView::event(QEvent* event) {
  // A window may use these keys too; here they are the pane's.
  if (event->type() == QEvent::ShortcutOverride) {
    auto* key = static_cast<QKeyEvent*>(event);
    if (key->matches(QKeySequence::Copy) || key->matches(QKeySequence::SelectAll)) {
      key->accept();
      return true;
    }
  }
  if (event->type() == QEvent::ScrollPrepare) {
    PrepareTouch(static_cast<QScrollPrepareEvent*>(event));
    return true;
  }
  if (event->type() == QEvent::Scroll) {
    TouchScroll(static_cast<QScrollEvent*>(event));
    return true;
  }
  return QAbstractScrollArea::event(event);
}

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
  const int goal = goal_x_;
  const PanePosition moved = MovedCaret(event);
  if (moved < 0) return false;
  const bool vertical = event->key() == Qt::Key_Up || event->key() == Qt::Key_Down ||
                        event->key() == Qt::Key_PageUp || event->key() == Qt::Key_PageDown;
  const int next_goal = vertical ? std::max(goal, goal_x_) : -1;
  Select(selection_.anchor, moved);
  goal_x_ = next_goal;
  ShowPosition(moved);
  return true;
}

// Where the key takes the caret; -1 for a key that does not move it.
PanePosition RichTextView::MovedCaret(QKeyEvent* event) {
  const bool by_word = event->modifiers() & Qt::ControlModifier;
  const int page = std::max(arrangement_.Height() - arrangement_.RowHeight(), 1);
  switch (event->key()) {
    case Qt::Key_Left:
      return by_word ? WordBefore(box_, Caret()) : CharacterBefore(box_, Caret());
    case Qt::Key_Right:
      return by_word ? WordAfter(box_, Caret()) : CharacterAfter(box_, Caret());
    case Qt::Key_Up:
      return BelowCaret(-1);
    case Qt::Key_Down:
      return BelowCaret(1);
    case Qt::Key_PageUp:
      return BelowCaret(-page);
    case Qt::Key_PageDown:
      return BelowCaret(page);
    case Qt::Key_Home:
      return by_word ? 0 : RowEdge(false);
    case Qt::Key_End:
      return by_word ? box_.Length() : RowEdge(true);
    default:
      return -1;
  }
}

// That many pixels below the caret's row (above it, if negative), as far to the right as the caret
// was when it began to go up and down.
PanePosition RichTextView::BelowCaret(int pixels) {
  Fragment fragment = arrangement_.Fragments().At(Caret());
  auto layout = arrangement_.LayoutOf(fragment);
  const int index = static_cast<int>(Caret() - fragment.start);
  const auto& row = layout->rows[static_cast<std::size_t>(RowOf(*layout, index))];
  if (goal_x_ < 0) goal_x_ = static_cast<int>(XOf(*layout, index));
  int y = pixels < 0 ? row.top + pixels : row.top + row.height - 1 + pixels;
  while (y < 0 && fragment.start > 0) {
    fragment = arrangement_.Fragments().Before(fragment);
    layout = arrangement_.LayoutOf(fragment);
    y += layout->height;
  }
  if (y < 0) return 0;
  while (y >= layout->height && !fragment.LastOf(box_)) {
    y -= layout->height;
    fragment = arrangement_.Fragments().After(fragment);
    layout = arrangement_.LayoutOf(fragment);
  }
  if (y >= layout->height) return box_.Length();
  return fragment.start + BorderAt(*layout, goal_x_, y);
}

// The border of a wrapped row belongs to the row below, so its end is ahead of its last character.
PanePosition RichTextView::RowEdge(bool end) const {
  const Fragment fragment = arrangement_.Fragments().At(Caret());
  const auto layout = arrangement_.LayoutOf(fragment);
  const int number = RowOf(*layout, static_cast<int>(Caret() - fragment.start));
  const auto& row = layout->rows[static_cast<std::size_t>(number)];
  if (!end) return fragment.start + row.start;
  const bool last = number + 1 == static_cast<int>(layout->rows.size());
  return fragment.start + (last ? row.end : std::max(row.end - 1, row.start));
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
