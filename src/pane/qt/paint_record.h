// What a view has on the screen, so that it moves what only moved, and repaints only what looks
// different.
#pragma once

#include <cstdint>
#include <vector>

#include "pane/qt/arrangement.h"
#include "pane/units.h"

class QWidget;

namespace parlorwire {

class PaintRecord {
 public:
  // Whether what stands here is what is on the screen.
  bool good() const { return good_; }
  // The screen must be painted whole.
  void Forget() { good_ = false; }
  // The screen shows all that is seen, on that ground.
  void Remember(const std::vector<PlacedFragment>& seen, PaneColour ground);

  // The characters look different, though they are laid out as before.
  void Restyle(PaneRange range);
  // The text has that length now.
  void TextChanged(PanePosition length);

  // A paint was asked for while none may be made. Once one may, all is painted.
  void Miss() { missed_ = true; }
  void MayPaint();

  // Moves on the viewport what only moved, asks for a repaint of what looks different, and
  // remembers what is seen.
  void Update(QWidget& viewport, const std::vector<PlacedFragment>& seen, PaneColour ground);

 private:
  struct Painted {
    std::uint64_t serial = 0;  // of the layout
    int top = 0;
    int height = 0;

    bool operator==(const Painted&) const = default;
  };
  using AllPainted = std::vector<Painted>;

  static AllPainted Of(const std::vector<PlacedFragment>& seen);
  bool Move(QWidget& viewport, const AllPainted& now);

  AllPainted painted_;
  PaneColour ground_ = 0;
  PaneRange restyled_;
  bool good_ = false;
  bool missed_ = false;
};

}  // namespace parlorwire
