// The list of tones `intonacia`.
#pragma once

#include <QComboBox>
#include <functional>

namespace parlorwire {

// The wheel changes it only while it has the focus, and does not give it the focus.
class ToneBox : public QComboBox {
  Q_OBJECT

 public:
  explicit ToneBox(QWidget* parent);

  // A tone was chosen from the open list.
  std::function<void()> Chosen;

 protected:
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  bool in_key_ = false;  // the closed box takes a key
};

}  // namespace parlorwire
