#include "shell/qt/font_and_color.h"

#include <QColorDialog>
#include <QFontDatabase>
#include <QFontDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <algorithm>

#include "pane/qt/fonts.h"
#include "platform/qt/text_conversion.h"
#include "session/app_state.h"
#include "shell/qt/control_names.h"

namespace parlorwire {
namespace {

constexpr int kLargestSize = 512;  // points

// The dialog knows a style by the font's own name for it, and in Russian finds no other. In place
// of a family that the system lacks it shows the one that the panes are painted with.
QFont ToolkitFont(const ChosenFont& font) {
  QString family = ToQString(font.Name);
  if (!QFontDatabase::hasFamily(family)) family = FamilyShown(family);
  QFont result(family, std::clamp(font.Size, 1, kLargestSize));
  result.setBold(font.Bold);
  result.setItalic(font.Italic);
  QString best;
  for (const QString& style : QFontDatabase::styles(family)) {
    const QFont styled = QFontDatabase::font(family, style, result.pointSize());
    if (styled.weight() != result.weight()) continue;
    if ((styled.style() != QFont::StyleNormal) != font.Italic) continue;
    // The shorter name is the plainer style: "Bold", not "Condensed Bold".
    if (best.isEmpty() || style.size() < best.size()) best = style;
  }
  if (!best.isEmpty()) result.setStyleName(best);
  return result;
}

// The toolkit's sample is of Latin letters, and the chat is not.
void ShowCyrillicSample(const QFontDialog& dialog) {
  for (QGroupBox* group : dialog.findChildren<QGroupBox*>())
    if (auto* sample = group->findChild<QLineEdit*>(); sample != nullptr)
      sample->setText(QStringLiteral("AaBbYyZz АаБбЯяЁё"));
}

}  // namespace

std::optional<ChosenFont> ChooseFontDialog(const ChosenFont& font, const QString& title,
                                           QWidget* owner) {
  QFontDialog dialog(ToolkitFont(font), owner);
  NameControl(&dialog, "font_dialog");
  dialog.setWindowTitle(title);
  ShowCyrillicSample(dialog);
  const QFont before = dialog.currentFont();
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const QFont chosen = dialog.selectedFont();
  ChosenFont result = font;
  if (chosen.family() != before.family()) result.Name = FromQString(chosen.family());
  if (chosen.pointSize() != before.pointSize()) result.Size = chosen.pointSize();
  if (chosen.bold() != before.bold()) result.Bold = chosen.bold();
  if (chosen.italic() != before.italic()) result.Italic = chosen.italic();
  return result;
}

std::optional<PaneColour> ChooseColorDialog(PaneColour colour, const QString& title,
                                            QWidget* owner) {
  const auto part = [colour](unsigned shift) { return static_cast<int>(colour >> shift & 0xFF); };
  QColorDialog dialog(QColor(part(0), part(8), part(16)), owner);
  NameControl(&dialog, "color_dialog");
  dialog.setWindowTitle(title);
  if (dialog.exec() != QDialog::Accepted) return std::nullopt;
  const QColor chosen = dialog.selectedColor();
  const auto value = [](int channel) { return static_cast<unsigned>(channel); };
  return Rgb(value(chosen.red()), value(chosen.green()), value(chosen.blue()));
}

}  // namespace parlorwire
