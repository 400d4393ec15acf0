#include "shell/qt/smile_pixmap.h"

#include <QWidget>

#include "pane/qt/pictures.h"

namespace parlorwire {

QPalette SmilesPalette(const QPalette& palette) {
  QPalette look = palette;
  for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button})
    look.setColor(role, Qt::black);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    look.setColor(role, QColor(0xE0E0E0));
  return look;
}

QPixmap SmilePixmap(const std::shared_ptr<const Picture>& picture, const QWidget* on) {
  const auto in_pane = std::make_shared<const PanePicture>(PanePicture{{}, picture});
  return ToolkitPictures().PixmapOf(in_pane, on->devicePixelRatioF());
}

}  // namespace parlorwire
