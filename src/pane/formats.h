// The formats of a pane, each kept once and known by a number, so that a run is a few bytes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "pane/runs.h"
#include "pane/units.h"

namespace parlorwire {

// What a character looks like: a PaneFormat with its font name as a number, and the picture that
// stands in the character's place. Equal looks are equal member by member.
struct PaneLook {
  std::uint32_t font = 0;
  std::int32_t font_size = 0;
  PaneColour colour = 0;
  PaneColour back_colour = 0;  // 0 unless has_back_colour
  std::uint32_t picture = 0;   // 0 for text
  bool has_back_colour = false;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  PaneAlignment alignment = PaneAlignment::kLeft;

  bool operator==(const PaneLook&) const = default;
};

inline constexpr PaneLookId kPictureLook = 0x80000000U;

constexpr bool IsPicture(PaneLookId id) {
  return (id & kPictureLook) != 0;
}

// Which members of a look take a new value.
struct PaneLookChange {
  enum Member : unsigned {
    kFont = 1,
    kFontSize = 2,
    kColour = 4,
    kBackColour = 8,
    kBold = 16,
    kItalic = 32,
    kUnderline = 64,
    kAlignment = 128,
    kAll = 255,  // all but the picture
  };
  unsigned members = 0;
  PaneLook value;

  // `look` with the new values in it; its picture stays.
  PaneLook AppliedTo(PaneLook look) const;
};

class PaneFormats {
 public:
  PaneFormats();

  // The number of a look, a new one if it has none yet.
  PaneLookId Intern(const PaneLook& look);
  const PaneLook& Look(PaneLookId id) const { return looks_[id & ~kPictureLook]; }

  std::uint32_t InternFont(std::string_view name);
  const std::string& FontName(std::uint32_t font) const { return fonts_[font]; }

  // Pictures of equal content share a number, and the first of them stands for all.
  std::uint32_t InternPicture(const std::shared_ptr<const PanePicture>& picture);

  PaneLook Pack(const PaneFormat& format);
  PaneFormat Unpack(const PaneLook& look) const;
  // Null for text.
  const std::shared_ptr<const PanePicture>& Picture(const PaneLook& look) const;

  // Forgets all looks and pictures; font numbers stay good.
  void ForgetLooks();

  // Bytes, estimated from capacities; without the pictures' own.
  std::size_t MemoryUsed() const;

 private:
  struct Hash {
    std::size_t operator()(const PaneLook& look) const noexcept;
  };

  std::vector<std::string> fonts_;
  std::vector<PaneLook> looks_;
  std::unordered_map<PaneLook, PaneLookId, Hash> ids_;
  // The looks used last, by hash, so that the usual lookup touches no map. Numbers from looks_.
  std::array<PaneLookId, 64> recent_;
  std::vector<std::shared_ptr<const PanePicture>> pictures_;  // by number; the first is null
  std::unordered_multimap<std::size_t, std::uint32_t> pictures_by_content_;
  std::unordered_map<const PanePicture*, std::uint32_t> pictures_by_address_;
};

}  // namespace parlorwire
