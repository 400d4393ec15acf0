#include "pane/qt/pictures.h"

#include <QBuffer>
#include <QByteArray>
#include <QImage>
#include <QImageReader>
#include <algorithm>
#include <cmath>

namespace parlorwire {
namespace {

constexpr std::size_t kPicturesKept = 256;
constexpr QSize kPlaceholder{16, 16};
constexpr int kLargestSide = 1024;  // larger ones are scaled down

// Reads an image file held in memory.
struct ImageFile {
  explicit ImageFile(const PanePicture& picture)
      : bytes(picture.image.data(), static_cast<qsizetype>(picture.image.size())) {
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    reader.setDevice(&buffer);
    reader.setDecideFormatFromContent(true);
  }
  QByteArray bytes;
  QBuffer buffer;
  QImageReader reader;
};

QSize Bounded(QSize size) {
  if (std::max(size.width(), size.height()) <= kLargestSide) return size;
  return size.scaled(kLargestSide, kLargestSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

// A drawing is made at the wanted size; a picture of pixels is enlarged without blurring by a whole
// factor, and smoothly by any other.
QImage ReadAt(const PanePicture& picture, QSize wanted) {
  ImageFile file(picture);
  if (file.reader.format().startsWith("svg")) {
    file.reader.setScaledSize(wanted);
    return file.reader.read();
  }
  QImage image = file.reader.read();
  if (image.isNull() || image.size() == wanted) return image;
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
  ImageFile file(*picture);
  QSize size = file.reader.size();
  if (!size.isValid()) size = file.reader.read().size();
  if (size.isEmpty()) size = kPlaceholder;
  return entries_.emplace(picture.get(), Entry{picture, Bounded(size), {}}).first->second;
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
  QPixmap pixmap = QPixmap::fromImage(ReadAt(*picture, wanted));
  pixmap.setDevicePixelRatio(ratio);
  entry.scaled.emplace(ratio, pixmap);
  return pixmap;
}

}  // namespace parlorwire
