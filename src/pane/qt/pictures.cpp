#include "pane/qt/pictures.h"

#include <QImage>
#include <algorithm>
#include <cmath>

namespace parlorwire {
namespace {

constexpr std::size_t kPicturesKept = 256;
constexpr QSize kPlaceholder{16, 16};
constexpr int kLargestSide = 1024;  // larger ones are scaled down

QSize Bounded(QSize size) {
  if (std::max(size.width(), size.height()) <= kLargestSide) return size;
  return size.scaled(kLargestSide, kLargestSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

// Enlarged without blurring by a whole factor, and smoothly by any other.
QImage ScaledTo(const Picture& picture, QSize wanted) {
  const QImage image(reinterpret_cast<const uchar*>(picture.pixels.data()), picture.width,
                     picture.height, QImage::Format_RGB32);
  if (image.size() == wanted) return image.copy();
  const bool whole = wanted.width() % image.width() == 0 && wanted.height() % image.height() == 0;
  return image.scaled(wanted, Qt::IgnoreAspectRatio,
                      whole ? Qt::FastTransformation : Qt::SmoothTransformation);
}

}  // namespace

ToolkitPictures::Entry& ToolkitPictures::EntryOf(
    const std::shared_ptr<const PanePicture>& picture) {
  if (const auto found = entries_.find(picture.get()); found != entries_.end())
    return found->second;
  if (entries_.size() >= kPicturesKept) entries_.clear();
  QSize size = kPlaceholder;
  if (const Picture* image = picture->image.get())
    size = QSize(image->width, image->height) / image->scale;
  return entries_.emplace(picture.get(), Entry{picture, Bounded(size.expandedTo({1, 1})), {}})
      .first->second;
}

QSize ToolkitPictures::SizeOf(const std::shared_ptr<const PanePicture>& picture) {
  return EntryOf(picture).size;
}

QPixmap ToolkitPictures::PixmapOf(const std::shared_ptr<const PanePicture>& picture, double ratio) {
  Entry& entry = EntryOf(picture);
  const auto found = entry.scaled.find(ratio);
  if (found != entry.scaled.end()) return found->second;
  const QSize wanted(static_cast<int>(std::lround(entry.size.width() * ratio)),
                     static_cast<int>(std::lround(entry.size.height() * ratio)));
  QPixmap pixmap;
  if (picture->image != nullptr) pixmap = QPixmap::fromImage(ScaledTo(*picture->image, wanted));
  pixmap.setDevicePixelRatio(ratio);
  entry.scaled.emplace(ratio, pixmap);
  return pixmap;
}

}  // namespace parlorwire
