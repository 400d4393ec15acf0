#include "shell/qt/reading_hold.h"

#include <QCheckBox>

#include "pane/qt/rich_text_view.h"
#include "session/app_state.h"
#include "session/writer_selection.h"

namespace parlorwire {

ReadingHold::ReadingHold(const AppState& app, RichTextView* view, QCheckBox* stop_scroll)
    : QObject(view), app_(app), view_(view), box_(stop_scroll) {
  connect(view_, &RichTextView::scrolled, this, &ReadingHold::Scrolled);
  connect(view_, &RichTextView::selecting, this, &ReadingHold::Selecting);
  // Whoever else changes the box has it from then on.
  connect(box_, &QCheckBox::toggled, this, [this] { own_ = false; });
}

void ReadingHold::Scrolled() {
  if (StandsAtEnd(view_->box()))
    Release();
  else
    Hold();
}

void ReadingHold::Selecting() {
  if (!view_->Selected().empty())
    Hold();
  else if (StandsAtEnd(view_->box()))
    Release();
}

void ReadingHold::Hold() {
  if (!app_.HoldWhileReading || box_->isChecked()) return;
  box_->setChecked(true);
  own_ = true;
}

void ReadingHold::Release() {
  if (own_) box_->setChecked(false);
}

}  // namespace parlorwire
