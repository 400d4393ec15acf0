#include "support/resource_file.h"

#include <utility>

namespace parlorwire {
namespace {

constexpr std::uint32_t kDirectory = 0x80000000;

void PutAt(Text& bytes, std::size_t at, const Text& piece) {
  if (bytes.size() < at + piece.size()) bytes.resize(at + piece.size());
  bytes.replace(at, piece.size(), piece);
}

Text DirectoryHeader(std::size_t entries) {
  return Text(14, '\0') + LittleEndianBytes(entries, 2);
}

Text DirectoryEntry(std::uint32_t id, std::size_t offset) {
  return LittleEndianBytes(id, 4) + LittleEndianBytes(offset, 4);
}

}  // namespace

Text LittleEndianBytes(std::uint64_t number, std::size_t count) {
  Text bytes;
  for (; bytes.size() < count; number >>= 8U)
    bytes += static_cast<char>(number & 0xFFU);
  return bytes;
}

void ResourceFile::Bitmap(std::uint32_t id, const Text& dib, std::uint32_t language) {
  resources[{2, id, language}] = dib;
}

void ResourceFile::String(std::uint32_t id, std::u16string_view text, std::uint32_t language) {
  Text& block = resources[{6, id / 16 + 1, language}];
  Text changed;
  std::size_t at = 0;
  for (std::uint32_t i = 0; i < 16; ++i) {
    Text old = Text(2, '\0');
    if (at < block.size()) {
      const auto length =
          static_cast<unsigned char>(block[at]) + 256U * static_cast<unsigned char>(block[at + 1]);
      old = block.substr(at, 2 + 2 * std::size_t{length});
    }
    at += old.size();
    if (i == id % 16) {
      old = LittleEndianBytes(text.size(), 2);
      for (const char16_t unit : text)
        old += LittleEndianBytes(unit, 2);
    }
    changed += old;
  }
  block = changed;
}

std::size_t ResourceFile::Directories() const {
  return OptionalHeader() + (form == ResourceForm::k32 ? 96 : 112);
}

std::size_t ResourceFile::SectionHeader() const {
  return Directories() + std::size_t{16} * 8;
}

Text ResourceFile::Bytes() const {
  // The tree: types, numbers, languages, then where the data lie, then the data.
  std::map<std::uint32_t, std::map<std::uint32_t, std::vector<std::uint32_t>>> tree;
  for (const auto& [key, data] : resources)
    tree[std::get<0>(key)][std::get<1>(key)].push_back(std::get<2>(key));
  std::size_t free = 16 + tree.size() * 8;
  Text section;
  std::vector<std::size_t> leaves;
  PutAt(section, 0, DirectoryHeader(tree.size()));
  std::size_t type_entry = 16;
  for (const auto& [type, ids] : tree) {
    PutAt(section, type_entry, DirectoryEntry(type, free | kDirectory));
    type_entry += 8;
    PutAt(section, free, DirectoryHeader(ids.size()));
    std::size_t id_entry = free + 16;
    free += 16 + ids.size() * 8;
    for (const auto& [id, languages] : ids) {
      PutAt(section, id_entry, DirectoryEntry(id, free | kDirectory));
      id_entry += 8;
      PutAt(section, free, DirectoryHeader(languages.size()));
      for (std::size_t i = 0; i < languages.size(); ++i) {
        leaves.push_back(free + 16 + i * 8);
        PutAt(section, leaves.back(), DirectoryEntry(languages[i], 0));
      }
      free += 16 + languages.size() * 8;
    }
  }
  std::size_t leaf = 0;
  std::size_t data_at = free + leaves.size() * 16;
  for (const auto& [key, data] : resources) {
    PutAt(section, leaves[leaf++] + 4, LittleEndianBytes(free, 4));
    PutAt(section, free,
          LittleEndianBytes(address + data_at, 4) + LittleEndianBytes(data.size(), 4) +
              Text(8, '\0'));
    PutAt(section, data_at, data);
    free += 16;
    data_at += (data.size() + 3) / 4 * 4;
  }

  Text file;
  PutAt(file, 0, "MZ");
  PutAt(file, 0x3C, LittleEndianBytes(kHeader, 4));
  PutAt(file, kHeader, Text("PE\0\0", 4));
  PutAt(file, kHeader + 6, LittleEndianBytes(1, 2));
  PutAt(file, kHeader + 20, LittleEndianBytes(SectionHeader() - OptionalHeader(), 2));
  PutAt(file, OptionalHeader(), LittleEndianBytes(form == ResourceForm::k32 ? 0x10B : 0x20B, 2));
  PutAt(file, Directories() - 4, LittleEndianBytes(16, 4));
  PutAt(file, Directories() + 16,
        LittleEndianBytes(address, 4) + LittleEndianBytes(section.size(), 4));
  PutAt(file, SectionHeader(),
        Text(".rsrc\0\0\0", 8) + LittleEndianBytes(section.size(), 4) +
            LittleEndianBytes(address, 4) + LittleEndianBytes(section.size(), 4) +
            LittleEndianBytes(kResources, 4));
  PutAt(file, kResources, section);
  return file;
}

Text DibParts::Bytes() const {
  Text bytes = LittleEndianBytes(header, 4);
  const std::size_t size = header == 12 ? 2 : 4;
  bytes += LittleEndianBytes(static_cast<std::uint32_t>(width), size) +
           LittleEndianBytes(static_cast<std::uint32_t>(height), size) + LittleEndianBytes(1, 2) +
           LittleEndianBytes(depth, 2);
  if (header != 12)
    bytes += LittleEndianBytes(compression, 4) + LittleEndianBytes(0, 4) +
             LittleEndianBytes(dots, 4) + LittleEndianBytes(dots, 4) +
             LittleEndianBytes(colours, 4) + LittleEndianBytes(0, 4);
  for (const std::uint32_t mask : masks)
    bytes += LittleEndianBytes(mask, 4);
  if (bytes.size() < header) bytes.resize(header);
  for (const std::uint32_t colour : palette)
    bytes += LittleEndianBytes(colour, header == 12 ? 3 : 4);
  return bytes + data;
}

std::vector<std::pair<Text, DibParts>> EveryKindOfDib() {
  const std::vector<std::uint32_t> two{0x000000, 0xFFFFFF};
  std::vector<std::uint32_t> whole16(16, 0x102030);
  std::vector<std::uint32_t> whole256(256, 0x102030);
  whole16[5] = whole256[5] = 0xA0B0C0;
  std::vector<std::pair<Text, DibParts>> kinds;
  const auto add = [&](const Text& name, DibParts parts) { kinds.emplace_back(name, parts); };
  for (const std::uint32_t header : {12U, 40U, 52U, 56U, 108U, 124U}) {
    const Text of = "_header_" + std::to_string(header);
    add("depth_1" + of, {.header = header, .depth = 1, .palette = two, .data = {"\x80\0\0\0", 4}});
    add("depth_4" + of,
        {.header = header, .depth = 4, .palette = whole16, .data = {"\x50\0\0\0", 4}});
    add("depth_8" + of,
        {.header = header, .depth = 8, .palette = whole256, .data = {"\x05\0\0\0", 4}});
    add("depth_24" + of, {.header = header, .depth = 24, .data = {"\x30\x20\x10\0", 4}});
    if (header == 12) continue;
    add("depth_16" + of, {.header = header, .depth = 16, .data = {"\xFF\x7F\0\0", 4}});
    add("depth_32" + of, {.header = header, .depth = 32, .data = {"\x30\x20\x10\0", 4}});
    add("masks_16" + of, {.header = header,
                          .depth = 16,
                          .compression = 3,
                          .masks = {0xF800, 0x07E0, 0x001F},
                          .data = {"\xFF\xFF\0\0", 4}});
    add("masks_32" + of, {.header = header,
                          .depth = 32,
                          .compression = 3,
                          .masks = {0x0000FF, 0x00FF00, 0xFF0000},
                          .data = {"\x10\x20\x30\0", 4}});
    add("runs_8" + of, {.header = header,
                        .depth = 8,
                        .compression = 1,
                        .palette = whole256,
                        .data = {"\x01\x05\0\x01", 4}});
    add("runs_4" + of, {.header = header,
                        .depth = 4,
                        .compression = 2,
                        .palette = whole16,
                        .data = {"\x01\x50\0\x01", 4}});
  }
  return kinds;
}

}  // namespace parlorwire
