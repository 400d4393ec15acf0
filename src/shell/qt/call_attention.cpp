#include "shell/qt/call_attention.h"

#include <QApplication>
#include <QWidget>
#include <QWindow>

namespace parlorwire {

void CallAttention(QWidget* window) {
  QWindow* handle = window->windowHandle();
  if (handle == nullptr || !window->isVisible()) return;
  QApplication::alert(window);
  // The toolkit keeps the mark to itself until the window system hears of something else.
  handle->setTitle(handle->title());
}

}  // namespace parlorwire
