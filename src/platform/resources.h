// `Resources`: the resource library that the program has loaded.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <unordered_map>

#include "platform/picture.h"
#include "platform/resource_library.h"
#include "text/text.h"

namespace parlorwire {

struct Platform;

struct Resources {
  std::optional<ResourceLibrary> library;
  Text path;
  // The bitmaps asked for so far, by number; null for one that is missing or broken.
  std::unordered_map<int, std::shared_ptr<const Picture>> pictures;
  std::size_t pixels = 0;  // of all of them
};

// Forgets the library loaded before and loads another, from the application folder or else from
// where the program was installed. Without such a file nothing is loaded. One that cannot be read:
// Fault 48, with the system's error number in its text.
void LoadResourceLibrary(Resources& resources, const Platform& platform, const Text& path);

void FreeResourceLibrary(Resources& resources);

// At most size - 1 characters of a string; a character that Windows-1251 lacks becomes "?". "" when
// there is none, when no library is loaded, and for an id or a size below 1.
Text LoadResourceString(const Resources& resources, int id, int size);

// Null when there is no such bitmap, when it is broken, when no library is loaded, and for an id
// below 1. All pictures of a library together have no more than 8 pixels for each byte of its file,
// and a million; what would go beyond is null.
std::shared_ptr<const Picture> LoadResourceBitmap(Resources& resources, int id);

}  // namespace parlorwire
