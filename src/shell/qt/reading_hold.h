// A message pane stays where its reader is while lines come.
#pragma once

#include <QObject>

class QCheckBox;

namespace parlorwire {

class RichTextView;
struct AppState;

// Ticks `StopScroll` of the tab when the reader has scrolled away from the end or begins to select
// with the mouse, and takes that tick off again when he comes back to the end. A tick that he has
// set is his: nothing here takes it off. With HoldWhileReading false the box is left alone.
class ReadingHold : public QObject {
  Q_OBJECT

 public:
  // Belongs to the view.
  ReadingHold(const AppState& app, RichTextView* view, QCheckBox* stop_scroll);

 private:
  void Scrolled();
  void Selecting();
  void Hold();
  void Release();

  const AppState& app_;
  RichTextView* view_;
  QCheckBox* box_;
  bool own_ = false;  // the tick is the one from here
};

}  // namespace parlorwire
