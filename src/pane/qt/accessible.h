// A pane for screen readers: its text, runs, caret, selection and places, and what comes new.
//
// Offsets are positions of the pane. So that they stay such, a picture reads as the one character
// that stands for an object, and the CR of a line break as a blank.
#pragma once

#include <QAccessible>
#include <QString>

#include "pane/qt/reader_selection.h"

class QObject;

namespace parlorwire {

class RichTextView;

// Makes the toolkit's accessibility know this kind of view. May be called often.
void InstallPaneAccessibility();

// The text as a screen reader gets it.
QString AccessibleText(const RichTextBox& box, PaneRange range);

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

  void SelectionChanged(const PaneSelection& selection);

  void accessibilityActiveChanged(bool active) override;

 private:
  const RichTextBox& box_;
  QObject* view_;
  Tell tell_;
  bool active_ = false;
  PaneRange untold_;
};

}  // namespace parlorwire
