// Text that somebody sends to make a view choke. What is asserted is the work: how many lines are
// laid out, and how many characters measured.
#include <QScrollBar>
#include <random>

#include "pane/qt/shown_pane.h"
#include "platform/qt/text_conversion.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

constexpr PanePosition kMegabyte = 1 << 20;

// Shows the text, and goes through it by all means.
void GoThrough(ShownPane& pane) {
  const auto before = pane.view.work();
  pane.view.ScrollToEnd();
  ShownPane::Settle();
  QVERIFY(pane.AtEnd());
  pane.view.ScrollToStart();
  ShownPane::Settle();
  QScrollBar* bar = pane.view.verticalScrollBar();
  bar->setValue(bar->maximum() / 2);
  ShownPane::Settle();
  pane.view.resize(pane.view.width() + 50, pane.view.height());
  ShownPane::Settle();
  const QSize size = pane.view.viewport()->size();
  const PanePosition hit = pane.box.CharFromPos(size.width() / 2, size.height() / 2);
  QVERIFY(hit > 0);
  QTest::keyClick(&pane.view, Qt::Key_PageDown, Qt::ShiftModifier);
  QTest::keyClick(&pane.view, Qt::Key_End, Qt::ShiftModifier | Qt::ControlModifier);
  ShownPane::Settle();
  QTest::mouseDClick(pane.view.viewport(), Qt::LeftButton, Qt::NoModifier, {50, 50});
  QTest::mouseRelease(pane.view.viewport(), Qt::LeftButton, Qt::NoModifier, {50, 50});
  ShownPane::Settle();
  QCOMPARE(pane.OnScreen(), pane.Picture());
  const auto after = pane.view.work();
  QVERIFY(after.laid_out - before.laid_out < 400);
  // All of it for each of two widths, and what was seen.
  const auto length = static_cast<std::uint64_t>(pane.box.Length());
  QVERIFY(after.wrapped - before.wrapped < 2 * length + 400'000);
}

// A line of 20,000 characters, each of another colour.
void AppendManyColours(RichTextBox& box) {
  Append(box, std::string(20'000, 'x') + "\r\n", MainFormat(0xFFFFFF));
  box.SetRedraw(false);
  for (PanePosition i = 0; i < 20'000; ++i) {
    box.ExSetSel(i, i + 1);
    box.SelColor(static_cast<PaneColour>(i * 997 & 0xFFFFFF));
  }
  box.SetRedraw(true);
}

}  // namespace

class RichTextViewHostileTest : public QObject {
  Q_OBJECT

 private slots:
  void AWordOfAMegabyte() {
    ShownPane pane(20);
    Append(pane.box, std::string(kMegabyte, 'w') + "\r\n", MainFormat(0xFFFFFF));
    AppendMessages(pane.box, 20);
    GoThrough(pane);
  }

  void AMegabyteOfBlanks() {
    ShownPane pane(20);
    Append(pane.box, std::string(kMegabyte, ' ') + "\r\n", MainFormat(0xFFFFFF));
    AppendMessages(pane.box, 20);
    GoThrough(pane);
  }

  void AMegabyteOfWordsInOneLine() {
    ShownPane pane(20);
    std::string text;
    while (text.size() < kMegabyte)
      text += "some words and more of them ";
    Append(pane.box, text + "\r\n", MainFormat(0xFFFFFF));
    GoThrough(pane);
  }

  void AMegabyteOfControlCharacters() {
    ShownPane pane(20);
    std::string text;
    for (PanePosition i = 0; i < kMegabyte; ++i) {
      const auto c = static_cast<char>(i % 32);
      text += c == '\r' || c == '\n' ? '\x7F' : c;
    }
    Append(pane.box, text + "\r\n", MainFormat(0xFFFFFF));
    GoThrough(pane);
  }

  void AHundredThousandEmptyLines() {
    ShownPane pane;
    std::string text;
    for (int i = 0; i < 100'000; ++i)
      text += i % 2 == 0 ? "\r\n" : "\n";
    Append(pane.box, text, MainFormat(0xFFFFFF));
    GoThrough(pane);
  }

  void ARunForEveryCharacter() {
    ShownPane pane;
    AppendManyColours(pane.box);
    GoThrough(pane);
  }

  // Whatever the sender's alphabet, the pane's text is of one code page: a mark that would join and
  // a letter that would run to the left are signs like others there.
  void MarksThatJoinAndLettersThatRunToTheLeft() {
    ShownPane pane(5);
    const QString marks = QStringLiteral("e") + QString(10'000, QChar(0x0301));
    const QString hebrew =
        QStringLiteral("abc \u05E9\u05DC\u05D5\u05DD \u202Edef\u202C ghi ").repeated(500);
    Append(pane.box, FromQString(marks) + "\r\n" + FromQString(hebrew) + "\r\n",
           MainFormat(0xFFFFFF));
    QCOMPARE(pane.box.LineByIndex(5).length, PanePosition{10'001});
    GoThrough(pane);
    pane.view.ShowPosition(pane.LineStart(6));
    ShownPane::Settle();
    const QRect first = pane.view.CharacterRect(pane.LineStart(6));
    for (PanePosition i = 1; i < 12; ++i)
      QVERIFY(pane.view.CharacterRect(pane.LineStart(6) + i).left() > first.left());
  }

  void EveryByteHasItsPlace() {
    ShownPane pane(0, {500, 2500});
    for (int byte = 0; byte < 256; ++byte)
      if (byte != '\r' && byte != '\n')
        Append(pane.box, std::string(12, static_cast<char>(byte)) + "|", MainFormat(0xFFFFFF));
    pane.view.ScrollToStart();
    ShownPane::Settle();
    QVERIFY(!pane.view.CharacterRect(pane.box.Length() - 1).isEmpty());
    int hits = 0;
    for (PanePosition i = 0; i < pane.box.Length(); ++i) {
      const QRect place = pane.view.CharacterRect(i);
      if (place.width() < 4 || place.right() > pane.view.viewport()->width()) continue;
      QCOMPARE(pane.box.CharFromPos(place.center().x(), place.center().y()), i);
      ++hits;
    }
    QVERIFY(hits > 254 * 9);
  }

  // A very long line is laid out in stretches; every character is in one, and in its place.
  void NoCharacterOfAVeryLongLineIsLost() {
    ShownPane pane(0, {500, 400});
    std::string text;
    while (text.size() < 50'000)
      text += "word" + std::to_string(text.size()) + " ";
    Append(pane.box, text + "\r\n", MainFormat(0xFFFFFF));
    PanePosition expected = 0;
    const PanePosition end = pane.box.Length() - 2;
    pane.view.ScrollToStart();
    for (int page = 0; page < 400 && expected < end; ++page) {
      const PanePosition top = pane.box.CharFromPos(0, 0);
      QVERIFY(top <= expected);
      while (expected < end && !pane.view.CharacterRect(expected).isEmpty()) {
        const QRect place = pane.view.CharacterRect(expected);
        if (place.bottom() >= pane.view.viewport()->height()) break;
        if (place.width() > 3 && place.top() >= 0)
          QCOMPARE(pane.box.CharFromPos(place.center().x(), place.center().y()), expected);
        ++expected;
      }
      QTest::keyClick(&pane.view, Qt::Key_PageDown);
    }
    QCOMPARE(expected, end);
  }

  // However long a line is, its rows end where the next word or sign does not fit.
  void RowsOfAVeryLongLineGoToTheEdge() {
    for (const std::string_view word : {"w", "lorem ", "ipsum-", "."}) {
      ShownPane pane(1, {333, 300});
      const PanePosition start = pane.box.Length();
      std::string text;
      while (text.size() < 50'000)
        text += word;
      Append(pane.box, text, MainFormat(0xFFFFFF));
      Append(pane.box, "\r\n", MainFormat(0xFFFFFF));
      const PaneRange first = pane.view.RowAround(start);
      QVERIFY(first.end - first.start > 10);
      PanePosition at = start;
      for (PaneRange row = first; row.end < pane.box.Length(); row = pane.view.RowAround(at)) {
        QCOMPARE(row.start, at);
        QCOMPARE(row.end - row.start, first.end - first.start);
        at = row.end;
      }
      QVERIFY(at > start + 49'000);
    }
  }

  // The start of each row follows from all that is ahead of it: that is measured once.
  void AVeryLongLineIsMeasuredOnceForAWidth() {
    ShownPane pane(20);
    Append(pane.box, std::string(kMegabyte, 'w') + "\r\n", MainFormat(0xFFFFFF));
    pane.view.ScrollToEnd();
    ShownPane::Settle();
    const auto limit = static_cast<std::uint64_t>(kMegabyte) + 100'000;
    QVERIFY(pane.view.work().wrapped < limit);
    QScrollBar* bar = pane.view.verticalScrollBar();
    for (int part = 10; part >= 0; --part) {
      const auto before = pane.view.work().wrapped;
      bar->setValue(bar->maximum() / 10 * part);
      ShownPane::Settle();
      QVERIFY(pane.view.work().wrapped - before < 20'000);
    }
    const auto before = pane.view.work().wrapped;
    pane.view.ScrollToEnd();
    Append(pane.box, "x", MainFormat(0xFFFFFF));
    ShownPane::Settle();
    QVERIFY(pane.view.work().wrapped - before < 20'000);
  }

  // What is written into a long line is broken as if it had been there from the start.
  void AVeryLongLineThatChangesIsBrokenAnew() {
    std::mt19937 random(5);
    ShownPane pane(3, {300, 300});
    for (int i = 0; i < 4'000; ++i)
      Append(pane.box, std::string(1 + random() % 9, 'x') + " ", MainFormat(0xFFFFFF));
    const auto rows = [](ShownPane& shown) {
      std::vector<PanePosition> starts;
      for (PanePosition at = 0; at < shown.box.Length(); at = shown.view.RowAround(at).end)
        starts.push_back(at);
      return starts;
    };
    for (int step = 0; step < 30; ++step) {
      const auto at =
          static_cast<PanePosition>(random() % static_cast<std::uint64_t>(pane.box.Length() - 10));
      pane.box.ExSetSel(at, at + static_cast<PanePosition>(random() % 10));
      if (step % 3 == 0)
        pane.box.SelBold(true);
      else
        pane.box.ReplaceSel(step % 7 == 1 ? "\r\n" : step % 2 == 0 ? "yyyy yy" : "");
      ShownPane fresh(0, {300, 300});
      for (const PaneRun& run : pane.box.Runs())
        Append(fresh.box, pane.box.TextBetween(run.start, run.start + run.length), run.format);
      QCOMPARE(rows(pane), rows(fresh));
    }
  }

  void AStepOverARunForEveryCharacterIsBoundedWork() {
    ShownPane pane;
    AppendManyColours(pane.box);
    pane.view.ScrollToStart();
    ShownPane::Settle();
    for (int step = 0; step < 20; ++step) {
      const auto before = pane.view.work();
      QTest::keyClick(&pane.view, Qt::Key_PageDown);
      ShownPane::Settle();
      QVERIFY(pane.view.work().wrapped - before.wrapped < 20'000);
      QVERIFY(pane.view.work().laid_out - before.laid_out <= 3);
    }
  }

  void AViewOfAFewPixelsIsNoTrouble() {
    ShownPane pane(50);
    for (const QSize size : {QSize(1, 1), QSize(20, 3), QSize(5, 500), QSize(500, 5)}) {
      pane.view.resize(size);
      ShownPane::Settle();
      pane.box.VScroll(PaneScroll::kBottom);
      pane.box.VScroll(PaneScroll::kLineUp);
      AppendNotice(pane.box, "notice");
      pane.box.GetScrollInfo();
      QTest::keyClick(&pane.view, Qt::Key_PageUp);
      ShownPane::Settle();
    }
    pane.view.resize(400, 300);
    pane.box.VScroll(PaneScroll::kBottom);
    ShownPane::Settle();
    QVERIFY(pane.AtEnd());
    QCOMPARE(pane.OnScreen(), pane.Picture());
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::RichTextViewHostileTest)
#include "hostile_test.moc"
