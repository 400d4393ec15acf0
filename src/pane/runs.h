// How the characters of a pane look: formats, pictures, and the runs of them.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "pane/units.h"
#include "platform/picture.h"

namespace parlorwire {

enum class PaneAlignment : std::uint8_t { kLeft = 0, kRight = 1, kCentre = 2 };

// How a character looks. The alignment is that of the line; the line's first character decides.
struct PaneFormat {
  std::string font_name = "Times New Roman";
  int font_size = 10;  // points
  PaneColour colour = 0;
  std::optional<PaneColour> back_colour;
  bool bold = false;
  bool italic = false;
  bool underline = false;
  PaneAlignment alignment = PaneAlignment::kLeft;

  bool operator==(const PaneFormat&) const = default;
};

// A picture in the text.
struct PanePicture {
  std::string code;                      // Windows-1251; what copying the picture gives
  std::shared_ptr<const Picture> image;  // null leaves a gap
};

// A stretch of uniform format. A picture is a run of its own, of length 1.
struct PaneRun {
  PanePosition start = 0;
  PanePosition length = 0;
  PaneFormat format;
  std::shared_ptr<const PanePicture> picture;  // null for text

  bool operator==(const PaneRun&) const = default;
};

// A look is a format, and the picture if there is one, by a number. Numbers are equal exactly when
// the looks are, until the pane gives them anew.
using PaneLookId = std::uint32_t;

// A stretch of one look. A picture is a stretch of its own, of length 1.
struct PaneStretch {
  PanePosition start = 0;
  PanePosition length = 0;
  PaneLookId look = 0;
};

}  // namespace parlorwire
