// How a pane's formats look on this desktop.
#pragma once

#include <QColor>
#include <QFont>
#include <QPointF>
#include <QRawFont>
#include <QSize>
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "pane/qt/pictures.h"
#include "pane/runs.h"
#include "pane/units.h"

namespace parlorwire {

class RichTextBox;

QColor ToQColor(PaneColour colour);

// The font of a format. A family that is not installed is replaced by one of its kind: serif, sans
// serif or of fixed pitch.
QFont ToQFont(const PaneFormat& format);

// The family that is painted where `family` is asked for: that one, or what stands in for it.
QString FamilyShown(const QString& family);

// The signs of a font. A pane's text is of one code page without letters that join or run to the
// left, so each of its 256 characters is shaped once, and from then on text is measured by adding.
// A character that the font lacks comes from a font that has it.
//
// A control character is shown as a dot, so that nothing in a line is out of sight.
class GlyphTable {
 public:
  // All lengths are in device-independent pixels.
  struct Glyph {
    std::uint32_t index = 0;
    std::uint32_t face = 0;
    QPointF offset;  // from the base line where the character begins
  };
  struct Character {
    float advance = -1;        // below 0: not shaped yet
    std::uint16_t first = 0;   // of its glyphs
    std::uint16_t count = 0;   // none for a blank
    std::uint16_t ascent = 0;  // of its row, if there is nothing else in it
    std::uint16_t descent = 0;
  };

  explicit GlyphTable(const QFont& font);

  const Character& Of(char byte) const {
    const Character& character = characters_[static_cast<std::uint8_t>(byte)];
    return character.advance < 0 ? Shape(byte) : character;
  }
  std::span<const Glyph> GlyphsOf(const Character& character) const {
    return std::span(glyphs_).subspan(character.first, character.count);
  }
  const QRawFont& Face(std::uint32_t face) const { return faces_[face]; }

  // The line under underlined text, from the base line down.
  int underline_top() const { return underline_top_; }
  int underline_height() const { return underline_height_; }

 private:
  const Character& Shape(char byte) const;

  QFont font_;
  // What every row of the font has at least, so that one with tall capitals is no higher.
  mutable std::uint16_t ascent_ = 0;
  mutable std::uint16_t descent_ = 0;
  int underline_top_ = 1;
  int underline_height_ = 1;
  mutable std::array<Character, 256> characters_;
  mutable std::vector<Glyph> glyphs_;
  mutable std::vector<QRawFont> faces_;
};

// A look of the pane as it is laid out and painted.
struct ToolkitLook {
  std::shared_ptr<const GlyphTable> glyphs;
  QColor colour;
  std::optional<QColor> back_colour;
  bool underline = false;
  PaneAlignment alignment = PaneAlignment::kLeft;
  std::shared_ptr<const PanePicture> picture;  // null for text
  QSize picture_size;
};

// The looks in use. The number kept is bounded.
class ToolkitLooks {
 public:
  std::shared_ptr<const ToolkitLook> For(const RichTextBox& box, PaneLookId look,
                                         ToolkitPictures& pictures);
  // That of a character that nobody formatted.
  std::shared_ptr<const ToolkitLook> Own(const RichTextBox& box);
  void Clear();

 private:
  std::shared_ptr<const GlyphTable> GlyphsOf(const PaneFormat& format);
  ToolkitLook Made(const PaneFormat& format);

  using FontKey = std::tuple<std::string, int, bool, bool>;
  std::map<FontKey, std::shared_ptr<const GlyphTable>> fonts_;
  std::unordered_map<PaneLookId, std::shared_ptr<const ToolkitLook>> looks_;
  std::uint64_t epoch_ = 0;  // of the pane, that the numbers are good for
};

}  // namespace parlorwire
