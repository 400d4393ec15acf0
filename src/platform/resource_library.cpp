#include "platform/resource_library.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "platform/little_endian.h"

namespace parlorwire {
namespace {

constexpr std::uint32_t kBitmapType = 2;
constexpr std::uint32_t kStringType = 6;
constexpr std::uint32_t kStringsInBlock = 16;

constexpr std::uint16_t kForm32 = 0x10B;
constexpr std::uint16_t kForm64 = 0x20B;
constexpr std::uint16_t kMostSections = 96;

// In an entry of a directory: of the first number that it is a name, of the second that it leads to
// a directory.
constexpr std::uint32_t kTopBit = 0x80000000;
constexpr std::uint32_t kMostLanguages = 1024;

constexpr std::uint32_t kNeutral = 0;
constexpr std::uint32_t kRussian = 0x19;  // whatever the country

struct DirectoryEntry {
  std::uint32_t id = 0;
  std::uint32_t offset = 0;
};

// How many entries a directory has, those left out that lie outside.
std::uint32_t EntriesIn(std::string_view resources, std::uint32_t directory) {
  constexpr std::uint64_t kHeader = 16;
  if (resources.size() < directory + kHeader) return 0;
  const std::uint64_t named = Number16(resources, directory + std::uint64_t{12});
  const std::uint64_t numbered = Number16(resources, directory + std::uint64_t{14});
  const std::uint64_t room = (resources.size() - directory - kHeader) / 8;
  return static_cast<std::uint32_t>(std::min(named + numbered, room));
}

DirectoryEntry EntryOf(std::string_view resources, std::uint32_t directory, std::uint32_t index) {
  const std::uint64_t at = directory + std::uint64_t{16} + std::uint64_t{index} * 8;
  return {Number32(resources, at), Number32(resources, at + 4)};
}

bool IsRussian(std::uint32_t language) {
  return (language & kTopBit) == 0 && (language & 0x3FFU) == kRussian;
}

// The offset of the entry that tells where the resource lies.
std::uint32_t ChosenLanguage(std::string_view resources, std::uint32_t directory) {
  const std::uint32_t count = EntriesIn(resources, directory);
  if (count == 0 || count > kMostLanguages) throw std::out_of_range("no language");
  DirectoryEntry chosen = EntryOf(resources, directory, 0);
  for (std::uint32_t i = 0; i < count; ++i) {
    const DirectoryEntry entry = EntryOf(resources, directory, i);
    if (entry.id == kNeutral) return entry.offset;
    if (IsRussian(entry.id) && !IsRussian(chosen.id)) chosen = entry;
  }
  return chosen.offset;
}

}  // namespace

std::optional<ResourceLibrary> ResourceLibrary::Read(Text bytes) {
  try {
    ResourceLibrary library(std::move(bytes));
    library.ReadSections();
    return library;
  } catch (const std::out_of_range&) {
    return std::nullopt;
  }
}

void ResourceLibrary::ReadSections() {
  const auto demand = [](bool holds) {
    if (!holds) throw std::out_of_range("no such file");
  };
  demand(Stretch(bytes_, 0, 2) == "MZ");
  const std::uint64_t header = Number32(bytes_, 0x3C);
  demand(Stretch(bytes_, header, 4) == std::string_view("PE\0\0", 4));
  const std::uint16_t section_count = Number16(bytes_, header + 6);
  const std::uint16_t optional_size = Number16(bytes_, header + 20);
  const std::string_view optional = Stretch(bytes_, header + 24, optional_size);
  const std::uint16_t form = Number16(optional, 0);
  demand(form == kForm32 || form == kForm64);
  demand(section_count <= kMostSections);
  for (std::uint32_t i = 0; i < section_count; ++i) {
    const std::string_view entry =
        Stretch(bytes_, header + 24 + optional_size + std::uint64_t{i} * 40, 40);
    const Section section{Number32(entry, 12), Number32(entry, 20), Number32(entry, 16)};
    Stretch(bytes_, section.offset, section.size);
    sections_.push_back(section);
  }
  // Ahead of the directories stands how many there are; the resources' is the third.
  const std::uint64_t directories = form == kForm32 ? 96 : 112;
  if (Number32(optional, directories - 4) < 3) return;
  ReadResources(Number32(optional, directories + 16));
}

void ResourceLibrary::ReadResources(std::uint32_t address) {
  if (address == 0) return;
  resources_ = address;
  const std::uint32_t count = EntriesIn(Resources(), 0);
  bool strings = false;
  bool bitmaps = false;
  for (std::uint32_t i = 0; i < count && !(strings && bitmaps); ++i) {
    const DirectoryEntry entry = EntryOf(Resources(), 0, i);
    if ((entry.offset & kTopBit) == 0) continue;
    if (entry.id == kStringType && !std::exchange(strings, true))
      string_blocks_ = ReadDirectories(entry.offset & ~kTopBit);
    if (entry.id == kBitmapType && !std::exchange(bitmaps, true))
      bitmaps_ = ReadDirectories(entry.offset & ~kTopBit);
  }
}

ResourceLibrary::Directories ResourceLibrary::ReadDirectories(std::uint32_t directory) const {
  Directories found;
  const std::uint32_t count = EntriesIn(Resources(), directory);
  for (std::uint32_t i = 0; i < count; ++i) {
    const DirectoryEntry entry = EntryOf(Resources(), directory, i);
    if ((entry.id & kTopBit) == 0 && (entry.offset & kTopBit) != 0)
      found.try_emplace(entry.id, entry.offset & ~kTopBit);
  }
  return found;
}

std::string_view ResourceLibrary::AtAddress(std::uint32_t address) const {
  for (const Section& section : sections_)
    if (address >= section.address && address - section.address < section.size)
      return Stretch(bytes_, section.offset, section.size).substr(address - section.address);
  return {};
}

std::string_view ResourceLibrary::Resources() const {
  return AtAddress(resources_);
}

std::string_view ResourceLibrary::Find(const Directories& directories, int id) const {
  const auto directory = directories.find(static_cast<std::uint32_t>(id));
  if (directory == directories.end()) return {};
  try {
    const std::uint32_t entry = ChosenLanguage(Resources(), directory->second);
    return Stretch(AtAddress(Number32(Resources(), entry)), 0,
                   Number32(Resources(), entry + std::uint64_t{4}));
  } catch (const std::out_of_range&) {
    return {};
  }
}

std::string_view ResourceLibrary::String(int id) const {
  const auto number = static_cast<std::uint32_t>(id);
  const std::string_view block =
      Find(string_blocks_, static_cast<int>(number / kStringsInBlock + 1));
  std::uint64_t at = 0;
  try {
    for (std::uint32_t skipped = 0; skipped < number % kStringsInBlock; ++skipped)
      at += 2 + 2 * std::uint64_t{Number16(block, at)};
    return Stretch(block, at + 2, 2 * std::uint64_t{Number16(block, at)});
  } catch (const std::out_of_range&) {
    return {};
  }
}

std::string_view ResourceLibrary::Bitmap(int id) const {
  return Find(bitmaps_, id);
}

}  // namespace parlorwire
