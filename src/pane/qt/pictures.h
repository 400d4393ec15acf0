// The pictures of a pane, scaled for a screen.
#pragma once

#include <QPixmap>
#include <QSize>
#include <map>
#include <memory>

#include "pane/runs.h"

namespace parlorwire {

// Keeps a bounded number of them.
class ToolkitPictures {
 public:
  // In device-independent pixels. A picture without an image has the size of its placeholder.
  QSize SizeOf(const std::shared_ptr<const PanePicture>& picture);

  // For a screen of that device pixel ratio. Null without an image.
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
