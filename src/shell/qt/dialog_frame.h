// The frame that the desktop gives to a dialog.
#pragma once

#include <QWidget>

namespace parlorwire {

// With a title and a button to close it, and none to minimize or maximize it.
inline void FrameAsDialog(QWidget* dialog) {
  const Qt::WindowFlags kind = dialog->windowFlags() & Qt::WindowType_Mask;
  dialog->setWindowFlags(kind | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                         Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
}

}  // namespace parlorwire
