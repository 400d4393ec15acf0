#include "platform/resources.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/dib.h"
#include "platform/little_endian.h"
#include "platform/platform.h"
#include "text/fault.h"

namespace parlorwire {
namespace {

// The numbers of the classic system.
constexpr int kAccessDenied = 5;
constexpr int kNotEnoughMemory = 8;
constexpr int kBadFormat = 193;

constexpr std::int64_t kLargestLibrary = 64 << 20;  // bytes
constexpr std::size_t kLibraryPixelsForAByte = 8;
constexpr std::size_t kPixelsForAnyLibrary = 1'000'000;

[[noreturn]] void FailToLoad(int system_error, const Text& path) {
  throw Fault(fault::kErrorInLibrary,
              std::to_string(system_error) + " while trying to load the file '" + path + "'");
}

Text ReadLibrary(const Files& files, const Text& path) {
  try {
    if (files.Size(path) > kLargestLibrary) FailToLoad(kNotEnoughMemory, path);
    return files.Read(path);
  } catch (const Fault& fault) {
    if (fault.number == fault::kErrorInLibrary) throw;
    FailToLoad(kAccessDenied, path);
  }
}

// All pictures of a library together must not be much larger than it is.
std::shared_ptr<const Picture> DecodeBitmap(const ResourceLibrary& library, int id,
                                            std::size_t& pixels_so_far) {
  const std::string_view bytes = library.Bitmap(id);
  if (bytes.empty()) return nullptr;
  auto picture = ReadDib(bytes);
  if (!picture) return nullptr;
  const std::size_t pixels = pixels_so_far + picture->pixels.size();
  if (pixels > kLibraryPixelsForAByte * library.size() + kPixelsForAnyLibrary) return nullptr;
  pixels_so_far = pixels;
  return std::make_shared<const Picture>(std::move(*picture));
}

}  // namespace

void LoadResourceLibrary(Resources& resources, const Platform& platform, const Text& path) {
  FreeResourceLibrary(resources);
  const Files* files = nullptr;
  if (platform.files.Exists(path))
    files = &platform.files;
  else if (platform.program_files.Exists(path))
    files = &platform.program_files;
  if (files == nullptr) return;
  resources.library = ResourceLibrary::Read(ReadLibrary(*files, path));
  if (!resources.library) FailToLoad(kBadFormat, path);
  resources.path = path;
}

void FreeResourceLibrary(Resources& resources) {
  resources = {};
}

Text LoadResourceString(const Resources& resources, int id, int size) {
  Text text;
  if (!resources.library || id < 1 || size < 1) return text;
  const std::string_view wide = resources.library->String(id);
  const std::size_t length = std::min(wide.size() / 2, static_cast<std::size_t>(size) - 1);
  text.reserve(length);
  for (std::size_t i = 0; i < length; ++i) {
    const int byte = FromUnicode(Number16(wide, i * 2));
    text += byte < 0 ? '?' : static_cast<char>(byte);
  }
  return text;
}

std::shared_ptr<const Picture> LoadResourceBitmap(Resources& resources, int id) {
  if (!resources.library || id < 1) return nullptr;
  const auto [known, unread] = resources.pictures.try_emplace(id);
  if (unread) known->second = DecodeBitmap(*resources.library, id, resources.pixels);
  return known->second;
}

}  // namespace parlorwire
