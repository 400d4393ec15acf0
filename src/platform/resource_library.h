// Resource libraries in the portable-executable format, for 32 and for 64 bits: files without code
// whose resources are strings and bitmaps. Nothing of them is ever run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "text/text.h"

namespace parlorwire {

class ResourceLibrary {
 public:
  // Nothing if the bytes are no such file, or one that is cut. A file whose resources are broken
  // lacks those that are.
  static std::optional<ResourceLibrary> Read(Text bytes);

  // Both are "" where there is none. A resource that is there in several languages is taken in the
  // neutral one, else in Russian, else in the first; with strings that holds for each block of 16.

  // In UTF-16, the lowest byte first.
  std::string_view String(int id) const;
  // As ReadDib reads it.
  std::string_view Bitmap(int id) const;

  std::size_t size() const { return bytes_.size(); }  // of the whole file

 private:
  struct Section {
    std::uint32_t address = 0;  // relative to the image
    std::uint32_t offset = 0;   // in the file
    std::uint32_t size = 0;     // in the file
  };
  // Where the languages of a resource are told, by its number: offsets in the resources.
  using Directories = std::unordered_map<std::uint32_t, std::uint32_t>;

  explicit ResourceLibrary(Text bytes) : bytes_(std::move(bytes)) {}

  void ReadSections();
  void ReadResources(std::uint32_t address);
  Directories ReadDirectories(std::uint32_t directory) const;
  // From an address to the end of its section; empty if none has it.
  std::string_view AtAddress(std::uint32_t address) const;
  std::string_view Resources() const;
  std::string_view Find(const Directories& directories, int id) const;

  Text bytes_;
  std::vector<Section> sections_;
  std::uint32_t resources_ = 0;  // the address of the resources; 0 if there are none
  Directories string_blocks_;
  Directories bitmaps_;
};

}  // namespace parlorwire
