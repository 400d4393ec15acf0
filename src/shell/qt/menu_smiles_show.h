// The table of all smiles, to look at.
#pragma once

#include <QRect>
#include <QTimer>
#include <QWidget>

namespace parlorwire {

struct Client;

// Floats above the main window, its owner. Each picture `P` has its codes beside it in the label
// `L`; a click on them does nothing. It hides with Escape, and when both windows have been left for
// others.
class MenuSmilesShow : public QWidget {
  Q_OBJECT

 public:
  MenuSmilesShow(Client& client, QWidget* owner);

  // Comes up above its button, whose place is one of the screen; where it is up already it stays.
  void Float(QRect button);
  void ShowTitle();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build();

  Client& client_;
  QTimer Timer1_;  // the windows may have been left
};

}  // namespace parlorwire
