// Reads any bytes as a library, and as a bitmap: whatever they are, no more comes out than is in
// proportion to them.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "display/smiles.h"
#include "platform/dib.h"
#include "support/simulated_platform.h"

using namespace parlorwire;

namespace {

void Demand(bool holds) {
  if (!holds) std::abort();
}

bool IsWhole(const Picture& picture) {
  return picture.width >= 1 && picture.width <= kLargestPictureSide && picture.height >= 1 &&
         picture.height <= kLargestPictureSide &&
         picture.pixels.size() ==
             static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (const auto picture = ReadDib(bytes)) {
    Demand(IsWhole(*picture));
    Demand(picture->pixels.size() <= 8 * size + 262'144);
  }

  SimulatedPlatform platform;
  Client client(platform.Ports());
  platform.files.files["smiles.dll"] = bytes;
  LoadSmiles(client);
  Resources& resources = client.app.resources;
  Demand(resources.library || client.app.SmileTable.empty());
  Demand(client.app.SmileTable.size() <= 257 * std::size_t{32767});
  for (int id = 1; id < 300; ++id) {
    const auto picture = LoadResourceBitmap(resources, id);
    Demand(picture == nullptr || IsWhole(*picture));
    Demand(LoadResourceString(resources, id, 10).size() < 10);
  }
  Demand(resources.pixels <= 8 * size + 1'000'000);
  return 0;
}
