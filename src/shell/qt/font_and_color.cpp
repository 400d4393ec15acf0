#include "shell/qt/font_and_color.h"

#include <QColorDialog>
#include <QFontDialog>
#include <algorithm>

#include "platform/qt/text_conversion.h"
#include "shell/qt/control_names.h"

namespace parlorwire {
namespace {

constexpr int kLargestSize = 512;  // points

}  // namespace

std::optional<ChosenFont> ChooseFontDialog(const ChosenFont& font, QWidget* owner) {
  QFont start(ToQString(font.Name), std::clamp(font.Size, 1, kLargestSize));
  start.setBold(font.Bold);
  start.setItalic(font.Italic);
  QFontDialog dialog(start, owner);
  // A new family takes its first style; the style asked for comes with the second call.
  dialog.setCurrentFont(start);
  NameControl(&dialog, "font_dialog");
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const QFont chosen = dialog.selectedFont();
  ChosenFont result = font;
  result.Name = FromQString(chosen.family());
  result.Size = chosen.pointSize();
  result.Bold = chosen.bold();
  result.Italic = chosen.italic();
  return result;
}

std::optional<PaneColour> ChooseColorDialog(PaneColour colour, QWidget* owner) {
  const auto part = [colour](unsigned shift) { return static_cast<int>(colour >> shift & 0xFF); };
  QColorDialog dialog(QColor(part(0), part(8), part(16)), owner);
  NameControl(&dialog, "color_dialog");
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const QColor chosen = dialog.selectedColor();
  const auto value = [](int channel) { return static_cast<unsigned>(channel); };
  return Rgb(value(chosen.red()), value(chosen.green()), value(chosen.blue()));
}

}  // namespace parlorwire
