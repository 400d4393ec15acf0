// Draws the icon for menus and panels that want pixels: draw_icon DRAWING SIZE OUTPUT.

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
  const int size = argc == 4 ? std::atoi(argv[2]) : 0;
  QSvgRenderer renderer(size > 0 ? QString::fromLocal8Bit(argv[1]) : QString());
  if (!renderer.isValid()) {
    std::fputs("draw_icon: wants a drawing, a size in pixels and where to write to\n", stderr);
    return 1;
  }
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  renderer.render(&painter);
  painter.end();
  return image.save(QString::fromLocal8Bit(argv[3]), "PNG") ? 0 : 1;
}
