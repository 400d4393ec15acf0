// The splash.
#pragma once

#include <QWidget>

namespace parlorwire {

// A picture in the middle of the screen, without a frame.
class zastavka : public QWidget {
  Q_OBJECT

 public:
  zastavka();

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace parlorwire
