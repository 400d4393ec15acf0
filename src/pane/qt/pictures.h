// The pictures of a pane, decoded and scaled for a screen.
#pragma once

#include <QPixmap>
#include <QSize>
#include <map>
#include <memory>

#include "pane/runs.h"

namespace parlorwire {

// Keeps a bounded number of decoded pictures.
class ToolkitPictures {
 public:
  // In device-independent pixels. An image that cannot be read has the size of its placeholder.
  QSize SizeOf(const std::shared_ptr<const PanePicture>& picture);

  // For a screen of that device pixel ratio. Null if the image cannot be read.
  QPixmap PixmapOf(const std::shared_ptr<const PanePicture>& picture, double ratio);

 private:
  struct Entry {
    std::shared_ptr<const PanePicture> picture;  // keeps the address from being used again
    QSize size;
    std::map<double, QPixmap> scaled;  // by device pixel ratio
  };
  Entry& EntryOf(const std::shared_ptr<const PanePicture>& picture);

  std::map<const PanePicture*, Entry> entries_;
};

}  // namespace parlorwire
