#include "shell/qt/smile_pixmap.h"

#include <QWidget>

#include "pane/qt/pictures.h"

namespace parlorwire {

QPixmap SmilePixmap(const std::shared_ptr<const Picture>& picture, const QWidget* on) {
  const auto in_pane = std::make_shared<const PanePicture>(PanePicture{{}, picture});
  return ToolkitPictures().PixmapOf(in_pane, on->devicePixelRatioF());
}

}  // namespace parlorwire
