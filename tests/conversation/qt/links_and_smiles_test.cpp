// Lines with links and smiles, as the program writes them, in a view on the screen.
#include <QTest>

#include "display/smiles.h"
#include "display/text_out.h"
#include "pane/qt/copy.h"
#include "pane/qt/rich_text_view.h"
#include "pane/qt/shown_pane.h"
#include "support/qt/qt_test.h"
#include "support/resource_file.h"
#include "support/simulated_platform.h"

namespace parlorwire {
namespace {

constexpr int kSmileWidth = 24;
constexpr int kSmileHeight = 30;

struct SmilingPane {
  explicit SmilingPane(QSize size = {400, 300}) : view(box) {
    DibParts parts{.width = kSmileWidth, .height = kSmileHeight, .depth = 32};
    for (int i = 0; i < kSmileWidth * kSmileHeight; ++i)
      parts.data += LittleEndianBytes(0xFF00FF, 4);
    ResourceFile file;
    file.String(101, u"1");
    file.String(102, u":) :-)");
    file.Bitmap(102, parts.Bytes());
    platform.files.files["smiles.dll"] = file.Bytes();
    LoadSmiles(client);
    client.tab(0).Login = "Me";
    box.BackColor(0);
    view.resize(size);
    view.show();
    if (!QTest::qWaitForWindowExposed(&view)) qFatal("the view does not show");
  }

  void Say(const Text& text) {
    TextOut(client, "[1]", "alice:", text, LineKind::kMessage, 0);
    ShownPane::Settle();
  }
  // How much of the view is magenta, in device-independent pixels.
  int Magenta() {
    const QImage image = view.viewport()->grab().toImage();
    const double ratio = image.devicePixelRatio();
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
      for (int x = 0; x < image.width(); ++x)
        count += image.pixelColor(x, y) == QColor(Qt::magenta) ? 1 : 0;
    return static_cast<int>(count / ratio / ratio);
  }
  PanePosition Place(const char* text) const {
    return static_cast<PanePosition>(box.Text().find(text));
  }
  // The position of a picture, counted from 0.
  PanePosition Smile(int number) const {
    for (const PaneRun& run : box.Runs())
      if (run.picture && number-- == 0) return run.start;
    return -1;
  }

  SimulatedPlatform platform;
  Client client{platform.Ports()};
  RichTextBox& box = client.tab(0).Rich;
  RichTextView view;
};

constexpr int kSmileArea = kSmileWidth * kSmileHeight;

}  // namespace

class LinksAndSmilesTest : public QObject {
  Q_OBJECT

 private slots:
  void ASmileIsPaintedWhereItsCodeStood() {
    SmilingPane pane;
    pane.Say("one *:) two");
    QCOMPARE(pane.Magenta(), kSmileArea);
    const QRect place = pane.view.CharacterRect(pane.Smile(0));
    QVERIFY(place.width() == kSmileWidth || place.width() == kSmileWidth + 1);
    QVERIFY(pane.view.CharacterRect(pane.Place("two")).left() > place.right());
    QCOMPARE(pane.box.CharFromPos(place.center().x(), place.center().y()), pane.Smile(0));
  }

  void ASmileThatEndsALineIsInItAndTheNextLineIsBelow() {
    SmilingPane pane;
    pane.Say("one *:)");
    pane.Say("two");
    QCOMPARE(pane.Magenta(), kSmileArea);
    const QRect place = pane.view.CharacterRect(pane.Smile(0));
    QCOMPARE(place.top(), pane.view.CharacterRect(pane.Place("one")).top());
    QVERIFY(pane.view.CharacterRect(pane.Place("two")).top() >= place.top() + kSmileHeight);
    // Behind the picture is the end of its line.
    QCOMPARE(pane.box.CharFromPos(place.right() + 20, place.center().y()), pane.Smile(0) + 1);
    QCOMPARE(pane.box.TextBetween(pane.Smile(0) + 1, pane.Smile(0) + 3), std::string("\r\n"));
  }

  void SmilesWrapWholeAndStayAfterAResize() {
    SmilingPane pane({200, 300});
    pane.Say("*:) *:) *:) *:) *:) *:) *:) *:) *:) *:)");
    QCOMPARE(pane.Magenta(), 10 * kSmileArea);
    QVERIFY(pane.view.CharacterRect(pane.Smile(9)).top() >
            pane.view.CharacterRect(pane.Smile(0)).top());
    for (const int width : {90, 390, 130}) {
      pane.view.resize(width, 300);
      ShownPane::Settle();
      pane.view.ScrollToStart();
      ShownPane::Settle();
      QCOMPARE(pane.Magenta(), 10 * kSmileArea);
      for (int i = 0; i < 10; ++i)
        QVERIFY(pane.view.CharacterRect(pane.Smile(i)).right() < pane.view.viewport()->width());
    }
  }

  void ALinkInALineThatWrapsIsOneLink() {
    SmilingPane pane({160, 300});
    pane.Say("see http://www.example.org/a-long-way/to/the/lighthouse/at/night *:) now");
    const PanePosition start = pane.Place("http");
    const PanePosition end = pane.Place("night") + 5;
    int links = 0;
    for (const PaneRun& run : pane.box.Runs()) {
      if (run.format.colour != 255) continue;
      ++links;
      QCOMPARE(run.start, start);
      QCOMPARE(run.start + run.length, end);
    }
    QCOMPARE(links, 1);
    const QRect first = pane.view.CharacterRect(start);
    const QRect last = pane.view.CharacterRect(end - 1);
    QVERIFY(last.top() > first.top());
    QCOMPARE(pane.box.CharFromPos(last.center().x(), last.center().y()), end - 1);
    QCOMPARE(pane.Smile(0), end + 1);
    QCOMPARE(pane.Magenta(), kSmileArea);
  }

  void CopyingGivesTheCodes() {
    SmilingPane pane;
    pane.Say("*:) a *:-) http://b *:)");
    QCOMPARE(CopiedText(pane.box, {0, pane.box.Length()}),
             QStringLiteral("[1] alice: *:) a *:-) http://b *:)\n"));
    QCOMPARE(CopiedText(pane.box, {pane.Smile(1), pane.Smile(1) + 3}), QStringLiteral("*:-) h"));
    QVERIFY(CopiedHtml(pane.box, {0, pane.box.Length()}).contains(QStringLiteral("*:-)")));
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::LinksAndSmilesTest)
#include "links_and_smiles_test.moc"
