// A table of smiles without a file.
#pragma once

#include <string_view>
#include <vector>

#include "display/smiles.h"
#include "support/resource_file.h"
#include "support/simulated_platform.h"

namespace parlorwire {

// A bitmap of one pixel.
inline Text OnePixelDib(char red = 1) {
  return DibParts{.data = Text("\0\0", 2) + red + Text(1, '\0')}.Bytes();
}

// Loads these lines of ASCII, each with a picture.
inline void LoadSmileLines(SimulatedPlatform& platform, Client& client,
                           const std::vector<std::string_view>& lines) {
  const auto wide = [](std::string_view text) { return std::u16string(text.begin(), text.end()); };
  ResourceFile file;
  file.String(101, wide(std::to_string(lines.size())));
  for (std::uint32_t i = 0; i < lines.size(); ++i) {
    file.String(102 + i, wide(lines[i]));
    file.Bitmap(102 + i, OnePixelDib(static_cast<char>(i)));
  }
  platform.program_files.files["smiles.dll"] = file.Bytes();
  LoadSmiles(client);
}

// Loads ":)" and ":-)", names of one picture.
inline void LoadOneSmile(SimulatedPlatform& platform, Client& client) {
  LoadSmileLines(platform, client, {":) :-)"});
}

}  // namespace parlorwire
