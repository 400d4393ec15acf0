#include "shell/qt/ground_palette.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

namespace parlorwire {
namespace {

constexpr double kReadable = 4.5;
constexpr double kReadableDisabled = 3;

double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

QColor Mixed(const QColor& a, const QColor& b, double share_of_b) {
  const auto part = [share_of_b](int from, int to) {
    return static_cast<int>(std::lround(from + (to - from) * share_of_b));
  };
  return {part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue())};
}

// Black or white, whichever stands out.
QColor InkOn(const QColor& ground) {
  return Contrast(ground, Qt::black) >= Contrast(ground, Qt::white) ? Qt::black : Qt::white;
}

double LeastContrast(const QColor& ink, std::initializer_list<QColor> grounds) {
  double least = 21;
  for (const QColor& ground : grounds)
    least = std::min(least, Contrast(ink, ground));
  return least;
}

// The colour nearest to `wanted` that is readable on all the grounds, on the way to `ink`.
QColor Readable(const QColor& wanted, const QColor& ink, double contrast,
                std::initializer_list<QColor> grounds) {
  for (int step = 0; step < 20; ++step) {
    const QColor tried = Mixed(wanted, ink, step / 20.0);
    if (LeastContrast(tried, grounds) >= contrast) return tried;
  }
  return ink;
}

}  // namespace

double Contrast(const QColor& a, const QColor& b) {
  const double first = Luminance(a) + 0.05;
  const double second = Luminance(b) + 0.05;
  return std::max(first, second) / std::min(first, second);
}

QPalette PaletteOn(const QPalette& desktop, unsigned ground) {
  const QColor window(ground);
  const QColor ink = InkOn(window);
  const QColor other = ink == QColor(Qt::black) ? Qt::white : Qt::black;
  const QColor base = other;
  const QColor alternate = Mixed(base, window, 0.5);
  const QColor button = Mixed(window, other, 0.25);
  const QColor locked = Mixed(window, Qt::black, 0.06);  // the ground of a box that takes nothing
  const QColor disabled = Readable(Mixed(ink, window, 0.55), ink, kReadableDisabled,
                                   {window, base, alternate, button, locked});
  const QColor quiet =
      Readable(Mixed(ink, window, 0.5), ink, kReadable, {window, base, alternate, button, locked});
  const QColor link = Readable(QColor(0x0057AE), ink, kReadable, {window, base, alternate, button});
  const QColor visited =
      Readable(QColor(0x452886), ink, kReadable, {window, base, alternate, button});

  QPalette look;
  const auto all = [&look](QPalette::ColorRole role, const QColor& colour) {
    look.setColor(QPalette::All, role, colour);
  };
  all(QPalette::Window, window);
  all(QPalette::Base, base);
  all(QPalette::AlternateBase, alternate);
  all(QPalette::Button, button);
  all(QPalette::ToolTipBase, QColor(0xFFFFDC));
  all(QPalette::ToolTipText, Qt::black);
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::BrightText}) {
    all(role, ink);
    look.setColor(QPalette::Disabled, role, disabled);
  }
  all(QPalette::PlaceholderText, quiet);
  look.setColor(QPalette::Disabled, QPalette::PlaceholderText, disabled);
  all(QPalette::Link, link);
  all(QPalette::LinkVisited, visited);
  look.setColor(QPalette::Disabled, QPalette::Link, disabled);
  look.setColor(QPalette::Disabled, QPalette::LinkVisited, disabled);
  all(QPalette::Light, Mixed(window, Qt::white, 0.7));
  all(QPalette::Midlight, Mixed(window, Qt::white, 0.35));
  all(QPalette::Mid, Mixed(window, Qt::black, 0.25));
  all(QPalette::Dark, Mixed(window, Qt::black, 0.4));
  all(QPalette::Shadow, Mixed(window, Qt::black, 0.7));
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    QColor selected = desktop.color(group, QPalette::Highlight);
    selected.setAlpha(255);
    look.setColor(group, QPalette::Highlight, selected);
    look.setColor(group, QPalette::HighlightedText, InkOn(selected));
  }
  return look;
}

}  // namespace parlorwire
