#include "pane/qt/announcer.h"

#include <QString>
#include <algorithm>

#include "pane/qt/accessible.h"
#include "pane/rich_text_box.h"

namespace parlorwire {
namespace {

constexpr PanePosition kMostGone = 65'536;  // blanks that stand for what was removed

}  // namespace

PaneAnnouncer::PaneAnnouncer(const RichTextBox& box, QObject* view, Tell tell)
    : box_(box), view_(view), tell_(tell), active_(QAccessible::isActive()) {
  QAccessible::installActivationObserver(this);
}

PaneAnnouncer::~PaneAnnouncer() {
  QAccessible::removeActivationObserver(this);
}

void PaneAnnouncer::accessibilityActiveChanged(bool active) {
  active_ = active;
  untold_ = {};
}

void PaneAnnouncer::TextChanged(const PaneView::TextChange& change) {
  if (!active_) return;
  const PanePosition removed_end = change.start + change.removed;
  const bool joins = !untold_.empty() && change.start >= untold_.start &&
                     change.start <= untold_.end && removed_end <= untold_.end;
  if (joins) {
    untold_.end += change.inserted - change.removed;
    return;
  }
  // What has been gathered lies elsewhere, perhaps shifted by this change already.
  if (!untold_.empty() && removed_end <= untold_.start) {
    const PanePosition shift = change.inserted - change.removed;
    const PaneRange now{untold_.start + shift, untold_.end + shift};
    QAccessibleTextInsertEvent event(view_, AccessibleOffset(untold_.start), SpokenText(box_, now));
    tell_(&event);
  } else if (!untold_.empty() && change.start >= untold_.end) {
    Flush();
  }
  untold_ = {change.start, change.start + change.inserted};
  if (change.removed == 0) return;
  // What went is not known any more, only how much.
  const auto length = static_cast<qsizetype>(std::min(change.removed, kMostGone));
  const QString gone(length, QLatin1Char(' '));
  QAccessibleTextRemoveEvent event(view_, AccessibleOffset(change.start), gone);
  tell_(&event);
}

void PaneAnnouncer::Flush() {
  if (untold_.empty()) return;
  QAccessibleTextInsertEvent event(view_, AccessibleOffset(untold_.start),
                                   SpokenText(box_, untold_));
  untold_ = {};
  tell_(&event);
}

void PaneAnnouncer::SelectionChanged(const ReaderSelection& selection) {
  if (!active_) return;
  const PaneRange range = selection.range();
  if (range.empty()) {
    QAccessibleTextCursorEvent event(view_, AccessibleOffset(selection.caret));
    tell_(&event);
    return;
  }
  QAccessibleTextSelectionEvent event(view_, AccessibleOffset(range.start),
                                      AccessibleOffset(range.end));
  event.setCursorPosition(AccessibleOffset(selection.caret));
  tell_(&event);
}

}  // namespace parlorwire
