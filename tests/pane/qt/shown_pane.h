// A pane with its view on the screen, for tests.
#pragma once

#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QTest>
#include <memory>

#include "pane/qt/rich_text_view.h"
#include "support/pane_samples.h"

namespace parlorwire {

// Of one colour.
inline std::shared_ptr<const PanePicture> PictureOf(QSize size, QColor colour) {
  auto image = std::make_shared<Picture>();
  image->width = size.width();
  image->height = size.height();
  image->pixels.assign(
      static_cast<std::size_t>(size.width()) * static_cast<std::size_t>(size.height()),
      colour.rgb());
  return std::make_shared<PanePicture>(PanePicture{":)", image});
}

struct ShownPane {
  explicit ShownPane(int lines = 0, QSize size = {400, 300}) : view(box) {
    box.BackColor(0);
    AppendMessages(box, lines);
    view.resize(size);
    view.show();
    if (!QTest::qWaitForWindowExposed(&view)) qFatal("the view does not show");
    view.ScrollToEnd();
    Settle();
  }

  // Until all that is wanted is painted.
  // The view puts off what is written in a stream, the toolkit a repaint by some milliseconds; a
  // busy machine may skip any one wait.
  static void Settle() {
    for (int round = 0; round < 5; ++round)
      QTest::qWait(16);
  }

  // What a fresh painting of everything gives.
  QImage Picture() {
    return view.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
  }

  // What is on the screen, which was painted piece by piece.
  QImage OnScreen() {
    const QPoint corner = view.viewport()->mapTo(&view, QPoint(0, 0));
    const QSize size = view.viewport()->size();
    return view.screen()
        ->grabWindow(view.winId(), corner.x(), corner.y(), size.width(), size.height())
        .toImage()
        .convertToFormat(QImage::Format_RGB32);
  }

  QPoint PointOf(PanePosition position) { return view.CharacterRect(position).center(); }
  QPoint LeftOf(PanePosition position) {
    const QRect rect = view.CharacterRect(position);
    return {rect.left() + 1, rect.center().y()};
  }
  PanePosition LineStart(std::int64_t line) { return box.LineByIndex(line).start; }
  std::string SelectedText() { return box.TextBetween(view.Selected().start, view.Selected().end); }
  bool AtEnd() {
    const PaneScrollInfo info = box.GetScrollInfo();
    return info.pos + info.page >= info.max;
  }

  RichTextBox box;
  RichTextView view;
};

}  // namespace parlorwire
