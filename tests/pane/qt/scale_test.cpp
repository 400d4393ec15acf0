// A pane on screens of other scales, by the pixels painted. The build runs it at 1, 1.5 and 2.
#include <QCoreApplication>
#include <QWheelEvent>
#include <cmath>
#include <random>

#include "pane/qt/shown_pane.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

const QColor kBarColour(0, 163, 148);

double Scale() {
  return QGuiApplication::primaryScreen()->devicePixelRatio();
}

int CountPixels(const QImage& image, QColor colour) {
  int count = 0;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixelColor(x, y) == colour) ++count;
  return count;
}

void WheelPixels(RichTextView& view, int pixels) {
  const QPointF at = view.viewport()->rect().center();
  QWheelEvent event(at, view.viewport()->mapToGlobal(at), {0, pixels}, {}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(view.viewport(), &event);
}

// What is on the screen is what painting all of it anew gives. (At 1.5 the view's own corner lies
// between two pixels of the screen, so a picture of the view alone tells nothing.)
void CompareWithScreen(ShownPane& pane) {
  const QImage piece_by_piece = pane.OnScreen();
  pane.view.viewport()->update();
  ShownPane::Settle();
  QCOMPARE(piece_by_piece, pane.OnScreen());
}

}  // namespace

class RichTextViewScaleTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    const double wanted = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble();
    QCOMPARE(Scale(), wanted);
  }

  void TheGroundIsPaintedToTheLastPixel() {
    ShownPane pane;
    const QImage picture = pane.Picture();
    QCOMPARE(CountPixels(picture, Qt::black), picture.width() * picture.height());
    QCOMPARE(picture.height(), static_cast<int>(pane.view.viewport()->height() * Scale()));
  }

  // Text is drawn for the screen's pixels, not enlarged.
  void TextIsCrisp() {
    ShownPane pane(5);
    const QImage picture = pane.Picture();
    const QImage small =
        picture.scaled(pane.view.viewport()->size(), Qt::IgnoreAspectRatio, Qt::FastTransformation);
    const QImage enlarged =
        small.scaled(picture.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation);
    if (Scale() == 1)
      QCOMPARE(picture, enlarged);
    else
      QVERIFY(picture != enlarged);
    QVERIFY(CountPixels(picture, QColor(0xC0, 0xC0, 0xC0)) > 200 * Scale());
  }

  void ABarHasAsManyRowsAsItsHeightInPixels() {
    for (const int width : {60, 201, 640}) {
      ShownPane pane(1, {width, 400});
      AppendNotice(pane.box, "notice");
      AppendMessages(pane.box, 1);
      const QImage picture = pane.Picture();
      QCOMPARE(CountPixels(picture, kBarColour), static_cast<int>(8 * Scale()) * picture.width());
    }
  }

  void BackColoursOfNeighboursLeaveNoGap() {
    ShownPane pane(0, {300, 200});
    PaneFormat format = MainFormat(0xFF);
    format.back_colour = 0xFF;
    for (int i = 0; i < 60; ++i) {
      format.font_size = 8 + i % 3;
      Append(pane.box, i % 20 == 19 ? "x\r\n" : "x", format);
    }
    const QImage picture = pane.Picture();
    const QRect first = pane.view.CharacterRect(0);
    const QRect last = pane.view.CharacterRect(pane.LineStart(2) + 18);
    const auto device = [](int place) { return static_cast<int>(place * Scale()); };
    for (int y = device(first.top()); y < device(last.bottom()); ++y)
      for (int x = device(first.left() + 1); x < device(last.left()); ++x)
        QCOMPARE(picture.pixelColor(x, y), QColor(Qt::red));
  }

  void APictureIsAsLargeAsItsPixelsTimesTheScale() {
    ShownPane pane;
    pane.box.PastePicture(PictureOf({30, 40}, Qt::magenta));
    QCOMPARE(CountPixels(pane.Picture(), Qt::magenta),
             static_cast<int>(30 * Scale() * 40 * Scale()));
  }

  // On a screen of scale 2 it is painted pixel by pixel, so it is as sharp as it can be.
  void APictureOfTwiceTheDotsIsHalfAsLarge() {
    auto picture = std::make_shared<PanePicture>();
    auto image = std::make_shared<Picture>(Picture{20, 40, 2, std::vector<std::uint32_t>(800)});
    for (std::size_t i = 0; i < image->pixels.size(); ++i)
      image->pixels[i] = (i / 20 + i) % 2 == 0 ? 0xFFFF00FF : 0xFF000000;
    picture->image = image;
    ShownPane pane;
    pane.box.PastePicture(picture);
    QCOMPARE(pane.view.CharacterRect(0).width(), 10);
    if (Scale() == 2) QCOMPARE(CountPixels(pane.Picture(), Qt::magenta), 400);
    if (Scale() == 1) QCOMPARE(CountPixels(pane.Picture(), QColor(127, 0, 127)), 200);
  }

  void WhatIsHitIsWhatWasPaintedThere() {
    std::mt19937 random(11);
    ShownPane pane(0, {310, 300});
    for (int i = 0; i < 600; ++i) {
      PaneFormat format = MainFormat(static_cast<PaneColour>(i + 1));
      format.font_size = 8 + static_cast<int>(random() % 8);
      format.back_colour = static_cast<PaneColour>(i + 1);
      Append(pane.box, i % 90 == 89 ? "\n" : random() % 6 == 0 ? " " : "w", format);
    }
    pane.view.ScrollToStart();
    const QImage picture = pane.Picture();
    int hits = 0;
    for (int i = 0; i < 1000; ++i) {
      const QPoint point(static_cast<int>(random() % 290), static_cast<int>(random() % 290));
      const QRgb colour = picture.pixel(static_cast<int>((point.x() + 0.5) * Scale()),
                                        static_cast<int>((point.y() + 0.5) * Scale()));
      const PanePosition painted = qRed(colour) + 256 * qGreen(colour) - 1;
      if (painted < 0) continue;
      const QRect place = pane.view.CharacterRect(painted);
      if (!place.adjusted(1, 1, -1, -1).contains(point)) continue;  // a shared pixel
      ++hits;
      QCOMPARE(pane.box.CharFromPos(point.x(), point.y()), painted);
    }
    QVERIFY(hits > 200);
  }

  void TheSelectionIsReadableOnEveryColour() {
    ShownPane pane;
    const QColor highlight = pane.view.palette().color(QPalette::Highlight);
    const QColor text = pane.view.palette().color(QPalette::HighlightedText);
    const auto luminance = [](QColor colour) {
      return 0.2126 * colour.redF() + 0.7152 * colour.greenF() + 0.0722 * colour.blueF();
    };
    QVERIFY(std::abs(luminance(highlight) - luminance(text)) > 0.3);
    for (const PaneColour colour : {0x000000U, 0xFFFFFFU, 0xFFU, 0xFF00U, 0xFF0000U, 0xD77830U}) {
      pane.box.Text("");
      Append(pane.box, "MMMMMMMM\r\n", MainFormat(colour));
      pane.view.Select(0, 8);
      const QImage picture = pane.Picture();
      QVERIFY(CountPixels(picture, highlight) > 100 * Scale());
      QVERIFY(CountPixels(picture, text) > 60 * Scale());
    }
  }

  // The screen is painted piece by piece, also where a pixel of the view is not one of the screen.
  void WhatIsOnTheScreenIsWhatThePaneIs() {
    ShownPane pane(60);
    for (const int pixels : {7, 8, -3, 25, -40, 1, 1, 1}) {
      WheelPixels(pane.view, pixels);
      ShownPane::Settle();
      CompareWithScreen(pane);
    }
    for (int i = 0; i < 5; ++i) {
      AppendMessages(pane.box, 1);
      if (i == 2) AppendNotice(pane.box, "notice");
      pane.box.VScroll(PaneScroll::kBottom);
      ShownPane::Settle();
      CompareWithScreen(pane);
    }
    pane.view.Select(pane.box.Length() - 150, pane.box.Length() - 20);
    ShownPane::Settle();
    CompareWithScreen(pane);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::RichTextViewScaleTest)
#include "scale_test.moc"
