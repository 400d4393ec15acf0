#include "shell/qt/pane_widget.h"

#include <QWidget>

namespace parlorwire {

QWidget* NewPaneWidget(RichTextBox&, QWidget* parent) {
  auto* pane = new QWidget(parent);
  pane->setAutoFillBackground(true);
  QPalette look;
  look.setColor(QPalette::Window, Qt::black);
  pane->setPalette(look);
  pane->setFocusPolicy(Qt::StrongFocus);
  return pane;
}

}  // namespace parlorwire
