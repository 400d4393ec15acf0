// The caret of an input box blinks only while somebody types.
#pragma once

#include <QObject>
#include <QTimer>

class QWidget;

namespace parlorwire {

// Each blink wakes the processor. So 10 s after the last key or click in a box that has the focus
// its caret stops, and stays visible; the next key or click starts it anew. The toolkit knows one
// blinking for all its boxes, and gets it back when the focus leaves.
class CaretRest : public QObject {
  Q_OBJECT

 public:
  static constexpr int kMilliseconds = 10'000;

  explicit CaretRest(QObject* owner);

  void Watch(QWidget* box);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Rest();
  void Wake();

  QTimer timer_{this};
  int blinking_ = 0;  // the toolkit's time of a blink in ms while the caret rests
  bool resting_ = false;
};

}  // namespace parlorwire
