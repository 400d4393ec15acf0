// Draws the smiles for their library: draw_smiles FOLDER OUTPUT.
//
// FOLDER/names has a line for each picture: the name of its drawing, without ".svg", and the names
// by which people write it. OUTPUT gets a bitmap for each and the script of the resources,
// "smiles.rc". The pictures have two pixels for each of the drawing's, and say so by their dots an
// inch, so that they are sharp on screens of all scales. They stand on black as the panes do.

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QStringList>
#include <QSvgRenderer>
#include <QTextStream>
#include <cstdio>

namespace {

constexpr int kScale = 2;
constexpr int kDotsPerMetre = 7559;  // 192 an inch
constexpr int kFirstId = 102;        // of the pictures and their names; their count stands ahead
constexpr int kLongestLine = 255;

bool Draw(const QString& drawing, const QString& bitmap) {
  QSvgRenderer renderer(drawing);
  if (!renderer.isValid()) return false;
  QImage image(renderer.defaultSize() * kScale, QImage::Format_RGB32);
  image.fill(Qt::black);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  renderer.render(&painter);
  painter.end();
  image.setDotsPerMeterX(kDotsPerMetre);
  image.setDotsPerMeterY(kDotsPerMetre);
  return image.save(bitmap, "BMP");
}

QString Quoted(QString text) {
  text.replace('\\', "\\\\").replace('"', "\"\"");
  return '"' + text + '"';
}

int Fail(const QString& what) {
  std::fprintf(stderr, "draw_smiles: %s\n", qPrintable(what));
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return Fail("wants a folder and where to write to");
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  const QDir output(QString::fromLocal8Bit(argv[2]));
  QFile table(folder.filePath("names"));
  if (!table.open(QIODevice::ReadOnly)) return Fail("cannot read " + table.fileName());

  QStringList strings;
  QString bitmaps;
  int id = kFirstId;
  for (const QString& line : QString::fromUtf8(table.readAll()).split('\n', Qt::SkipEmptyParts)) {
    const QString drawing = line.section(' ', 0, 0);
    const QString names = line.section(' ', 1);
    if (names.isEmpty() || names.size() > kLongestLine) return Fail("bad line: " + line);
    const QString bitmap = output.filePath(drawing + ".bmp");
    if (!Draw(folder.filePath(drawing + ".svg"), bitmap)) return Fail("cannot draw " + drawing);
    strings << QString("  %1, %2").arg(id).arg(Quoted(names));
    bitmaps += QString("%1 BITMAP %2\n").arg(id).arg(Quoted(bitmap));
    ++id;
  }
  strings.prepend(QString("  %1, \"%2\"").arg(kFirstId - 1).arg(strings.size()));

  QFile script(output.filePath("smiles.rc"));
  if (!script.open(QIODevice::WriteOnly)) return Fail("cannot write " + script.fileName());
  QTextStream(&script) << "#pragma code_page(65001)\nLANGUAGE 0, 0\nSTRINGTABLE\nBEGIN\n"
                       << strings.join('\n') << "\nEND\n"
                       << bitmaps;
  return 0;
}
