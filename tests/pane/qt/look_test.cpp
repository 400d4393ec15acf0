// What a reader sees of a pane, by the pixels painted.
#include <QFontInfo>
#include <QPainter>
#include <QScrollBar>

#include "pane/qt/fonts.h"
#include "pane/qt/shown_pane.h"
#include "platform/qt/text_conversion.h"
#include "support/qt/qt_test.h"
#include "text/text.h"

namespace parlorwire {
namespace {

// Pixels of exactly that colour.
int Count(const QImage& image, QRect part, QColor colour) {
  int count = 0;
  const QRect within = part & image.rect();
  for (int y = within.top(); y <= within.bottom(); ++y)
    for (int x = within.left(); x <= within.right(); ++x)
      if (image.pixelColor(x, y) == colour) ++count;
  return count;
}

int Count(const QImage& image, QColor colour) {
  return Count(image, image.rect(), colour);
}

// Rows of pixels that are of that colour from the left edge to the right one.
QList<int> FullRows(const QImage& image, QColor colour) {
  QList<int> rows;
  for (int y = 0; y < image.height(); ++y)
    if (Count(image, {0, y, image.width(), 1}, colour) == image.width()) rows.append(y);
  return rows;
}

const QColor kBar(0, 163, 148);

}  // namespace

class RichTextViewLookTest : public QObject {
  Q_OBJECT

 private slots:
  void TheGroundIsThePanesBackColour() {
    ShownPane pane;
    QCOMPARE(Count(pane.Picture(), Qt::black), Area(pane));
    pane.box.BackColor(0x804020);
    pane.box.Refresh();
    ShownPane::Settle();
    QCOMPARE(Count(pane.OnScreen(), QColor(0x20, 0x40, 0x80)), Area(pane));
  }

  void RunsHaveTheirColours() {
    ShownPane pane;
    Append(pane.box, "WWWW", MainFormat(0x0000FF));
    Append(pane.box, "WWWW\r\n", MainFormat(0x00FF00));
    const QImage picture = pane.Picture();
    const QRect red = pane.view.CharacterRect(0).united(pane.view.CharacterRect(3));
    const QRect green = pane.view.CharacterRect(4).united(pane.view.CharacterRect(7));
    QVERIFY(Count(picture, red, Qt::red) > 20);
    QCOMPARE(Count(picture, red.adjusted(0, 0, -3, 0), Qt::green), 0);
    QVERIFY(Count(picture, green, Qt::green) > 20);
    QCOMPARE(Count(picture, green.adjusted(3, 0, 0, 0), Qt::red), 0);
  }

  void ABackColourIsOnItsRunAlone() {
    ShownPane pane;
    Append(pane.box, "one ", MainFormat(0));
    PaneFormat format = MainFormat(0);
    format.back_colour = 0x00FFFF;
    Append(pane.box, "two", format);
    Append(pane.box, " three\r\n", MainFormat(0));
    const QRect run = pane.view.CharacterRect(4).united(pane.view.CharacterRect(6));
    const QImage picture = pane.Picture();
    QVERIFY(Count(picture, Qt::yellow) > run.width() * run.height() / 2);
    QCOMPARE(Count(picture, Qt::yellow), Count(picture, run, Qt::yellow));
  }

  void BoldIsHeavierAndAnUnderlineIsALine() {
    ShownPane pane;
    Append(pane.box, "lllll\r\n", MainFormat(0xFFFFFF));
    PaneFormat format = MainFormat(0xFFFFFF);
    format.bold = true;
    Append(pane.box, "lllll\r\n", format);
    format.bold = false;
    format.underline = true;
    Append(pane.box, "     x\r\n", format);
    const QImage picture = pane.Picture();
    const auto ink = [&](std::int64_t line) {
      const QRect row = pane.view.CharacterRect(pane.LineStart(line));
      const QRect all(0, row.top(), picture.width(), row.height());
      return all.width() * all.height() - Count(picture, all, Qt::black);
    };
    QVERIFY(ink(1) > ink(0));
    const QRect blank = pane.view.CharacterRect(pane.LineStart(2) + 1);
    QVERIFY(Count(picture, blank, Qt::white) >= blank.width() - 1);
  }

  void ANoticesBarsGoFromEdgeToEdgeAtAnyWidth() {
    for (const int width : {60, 200, 640, 1900}) {
      ShownPane pane(1, {width, 400});
      AppendNotice(pane.box, "notice");
      AppendMessages(pane.box, 1);
      const QImage picture = pane.Picture();
      const QList<int> rows = FullRows(picture, kBar);
      QCOMPARE(rows.size(), 8);  // two bars of four
      QCOMPARE(rows.at(3) - rows.at(0), 3);
      QCOMPARE(rows.at(7) - rows.at(4), 3);
      QVERIFY(rows.at(4) - rows.at(3) > 20);
      // The ground between the bars is the pane's.
      QCOMPARE(Count(picture, kBar), 8 * picture.width());
      // And a bar is one row, however narrow the view.
      QCOMPARE(pane.box.CharFromPos(0, rows.at(0)), pane.LineStart(2));
    }
  }

  void BlanksAtARowsEndHang() {
    ShownPane pane(0, {150, 300});
    Append(pane.box, "a" + std::string(500, ' ') + "\r\nb\r\n", MainFormat(0xFFFFFF));
    const QRect first = pane.view.CharacterRect(0);
    QCOMPARE(pane.view.CharacterRect(pane.LineStart(1)).top(), first.top() + first.height());
  }

  void AHeadingIsInTheMiddle() {
    ShownPane pane;
    PaneFormat format = MainFormat(0xFFFFFF);
    format.alignment = PaneAlignment::kCentre;
    Append(pane.box, "Heading\r\n", format);
    format.alignment = PaneAlignment::kRight;
    Append(pane.box, "right\r\n", format);
    const int width = pane.view.viewport()->width();
    const int left = pane.view.CharacterRect(0).left();
    const int right = pane.view.CharacterRect(6).right();
    QVERIFY(std::abs(left - (width - 1 - right)) <= 2);
    QVERIFY(pane.view.CharacterRect(pane.LineStart(1) + 4).right() >= width - 5);
  }

  void APictureTakesItsOwnSizeAndMakesItsRowHigher() {
    ShownPane pane;
    Append(pane.box, "ab\r\nc\r\n", MainFormat(0xFFFFFF));
    const int height = pane.view.CharacterRect(0).height();
    pane.box.ExSetSel(1, 1);
    pane.box.PastePicture(PictureOf({30, 40}, Qt::magenta));
    const QImage picture = pane.Picture();
    QCOMPARE(Count(picture, Qt::magenta), 30 * 40);
    const QRect place = pane.view.CharacterRect(1);
    QVERIFY(place.width() == 30 || place.width() == 31);
    QCOMPARE(Count(picture, place, Qt::magenta), 30 * 40);
    QVERIFY(pane.view.CharacterRect(0).height() > height);
    QCOMPARE(pane.view.CharacterRect(2).left(), place.left() + 30);
    QCOMPARE(pane.box.CharFromPos(place.left() + 15, place.center().y()), PanePosition{1});
  }

  void APictureIsLevelWithTheTextAndASmallOneMakesNoRowHigher() {
    ShownPane pane;
    Append(pane.box, "ab\r\ncd\r\n", MainFormat(0xFFFFFF));
    const int height = pane.view.CharacterRect(0).height();
    for (const int side : {height - 2, height + 20}) {
      pane.box.ExSetSel(1, 2);
      pane.box.PastePicture(PictureOf({7, side}, Qt::magenta));
      const QImage picture = pane.Picture();
      const QRect row = pane.view.CharacterRect(1);
      QCOMPARE(row.height(), std::max(height, side));
      const QRect upper(row.left(), row.top(), row.width(), row.height() / 2);
      QVERIFY(std::abs(Count(picture, upper, Qt::magenta) - 7 * side / 2) <= 14);
      QCOMPARE(Count(picture, row, Qt::magenta), 7 * side);
    }
  }

  void ARowOfPicturesWraps() {
    ShownPane pane(0, {200, 300});
    const auto picture = PictureOf({30, 20}, Qt::magenta);
    for (int i = 0; i < 20; ++i) {
      pane.box.ExSetSel(pane.box.Length(), pane.box.Length());
      pane.box.PastePicture(picture);
    }
    QCOMPARE(Count(pane.Picture(), Qt::magenta), 20 * 30 * 20);
    QVERIFY(pane.view.CharacterRect(19).top() > pane.view.CharacterRect(0).top());
  }

  void APictureWithoutAnImageHasAPlace() {
    ShownPane pane;
    pane.box.PastePicture(std::make_shared<PanePicture>());
    QCOMPARE(pane.view.CharacterRect(0).width(), 16);
    QVERIFY(!pane.Picture().isNull());
  }

  // The marks on capitals reach above what a font calls its height.
  void NoCharacterIsCutAtTheTopOrTheBottom() {
    for (const char* name : {"verdana", "times new roman", "courier new"}) {
      PaneFormat format = MainFormat(0xFFFFFF);
      format.font_name = name;
      const std::string text = "\xA8\xC9\xD9\xF4\xF9 Qjg|";
      ShownPane pane;
      Append(pane.box, "\r\n" + text + "\r\n\r\n", format);
      const QRect row = pane.view.CharacterRect(2);
      QImage alone(pane.view.viewport()->size(), QImage::Format_RGB32);
      alone.fill(Qt::black);
      QPainter painter(&alone);
      painter.setFont(ToQFont(format));
      painter.setPen(Qt::white);
      const int base = row.top() + row.height();
      painter.drawText(QPointF(3, base), ToQString(text));
      painter.end();
      const auto ink = [](const QImage& image) {
        return image.width() * image.height() - Count(image, image.rect(), Qt::black);
      };
      QCOMPARE(ink(pane.Picture()), ink(alone));
    }
  }

  void ALoneLineFeedBreaksTheLineAndATabGoesToItsStop() {
    ShownPane pane;
    Append(pane.box, "one\n\ttwo\r\n", MainFormat(0xFFFFFF));
    const QRect first = pane.view.CharacterRect(0);
    const QRect tab = pane.view.CharacterRect(4);
    QCOMPARE(tab.top(), first.top() + first.height());
    QCOMPARE(pane.view.CharacterRect(5).left(), first.left() + 48);
  }

  void TheSelectionIsSeenOnEveryTextColour() {
    ShownPane pane(3);
    const QColor highlight = pane.view.palette().color(QPalette::Highlight);
    const QColor text = pane.view.palette().color(QPalette::HighlightedText);
    QCOMPARE(Count(pane.Picture(), highlight), 0);
    pane.box.ExSetSel(0, pane.box.Length());
    pane.box.SelColor(static_cast<PaneColour>(highlight.red() + 256 * highlight.green() +
                                              65536 * highlight.blue()));
    pane.view.SelectAll();
    const QImage picture = pane.Picture();
    QVERIFY(Count(picture, highlight) > 1000);
    QVERIFY(Count(picture, text) > 100);
    pane.view.Select(0, 0);
    ShownPane::Settle();
    QCOMPARE(Count(pane.OnScreen(), text), 0);
  }

  void ASelectedLineBreakIsSeen() {
    ShownPane pane(3);
    const auto line = pane.box.LineByIndex(0);
    pane.view.Select(line.length, line.next);
    QVERIFY(Count(pane.Picture(), pane.view.palette().color(QPalette::Highlight)) > 10);
  }

  // Names of another system's fonts are answered by fonts of the same kind.
  void FontsThatAreMissingAreReplacedByTheirKind() {
    const auto info = [](const char* name) {
      PaneFormat format;
      format.font_name = name;
      return QFontInfo(ToQFont(format));
    };
    QVERIFY(info("courier new").fixedPitch());
    QVERIFY(info("Lucida Console").fixedPitch());
    QVERIFY(!info("Times New Roman").fixedPitch());
    QVERIFY(!info("verdana").fixedPitch());
    QVERIFY(info("Times New Roman").family() != info("verdana").family());
    QCOMPARE(info("verdana").family(), info("Tahoma").family());
  }

 private:
  static int Area(ShownPane& pane) {
    return pane.view.viewport()->width() * pane.view.viewport()->height();
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::RichTextViewLookTest)
#include "look_test.moc"
