// Tells screen readers what comes new in a pane.
#pragma once

#include <QAccessible>

#include "pane/qt/reader_selection.h"
#include "pane/units.h"
#include "pane/view.h"

class QObject;

namespace parlorwire {

class RichTextBox;

// Tells what changes, while somebody listens. What comes is gathered and told in one piece: a line
// of the chat is written in several.
class PaneAnnouncer final : public QAccessible::ActivationObserver {
 public:
  using Tell = void (*)(QAccessibleEvent*);
  PaneAnnouncer(const RichTextBox& box, QObject* view,
                Tell tell = QAccessible::updateAccessibility);
  ~PaneAnnouncer() override;
  PaneAnnouncer(const PaneAnnouncer&) = delete;
  PaneAnnouncer& operator=(const PaneAnnouncer&) = delete;

  void TextChanged(const PaneView::TextChange& change);
  // Tells what has been gathered.
  void Flush();
  // Nobody is told of what has been gathered.
  void Drop() { untold_ = {}; }

  void SelectionChanged(const ReaderSelection& selection);

  void accessibilityActiveChanged(bool active) override;

 private:
  const RichTextBox& box_;
  QObject* view_;
  Tell tell_;
  bool active_ = false;
  PaneRange untold_;
};

}  // namespace parlorwire
