// A pane whose lines wrap at a margin of its own, and scroll to the side.
#include <QAccessible>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QWheelEvent>

#include "pane/qt/shown_pane.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

constexpr int kNeverWraps = 53'000;  // twips

void WheelAnyWay(RichTextView& view, QPoint pixels, QPoint angle,
                 Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  const QPointF at = view.viewport()->rect().center();
  QWheelEvent event(at, view.viewport()->mapToGlobal(at), pixels, angle, Qt::NoButton, modifiers,
                    Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(view.viewport(), &event);
}

void MoveTo(RichTextView& view, QPoint point) {
  QMouseEvent event(QEvent::MouseMove, point, view.viewport()->mapToGlobal(point), Qt::NoButton,
                    Qt::LeftButton, Qt::NoModifier);
  QCoreApplication::sendEvent(view.viewport(), &event);
}

// A list of names, the third of them longer than the view is wide.
struct ShownList : ShownPane {
  explicit ShownList(int margin = kNeverWraps) : ShownPane(0, {200, 300}) {
    box.RightMargin(margin);
    Append(box, "alice\r\nbob\r\n", MainFormat(0xFFFFFF));
    long_line = box.Length();
    for (int i = 0; i < 40; ++i)
      Append(box, "name" + std::to_string(i) + " ", MainFormat(0xFFFFFF));
    long_end = box.Length();
    Append(box, "\r\ncarol\r\n", MainFormat(0xFFFFFF));
    Settle();
  }
  QScrollBar& bar() { return *view.horizontalScrollBar(); }

  PanePosition long_line = 0;
  PanePosition long_end = 0;
};

}  // namespace

class RichTextViewSidewaysTest : public QObject {
  Q_OBJECT

 private slots:
  void WithoutAMarginLinesWrapAtTheView() {
    ShownList list(0);
    QVERIFY(list.view.CharacterRect(list.long_end - 2).top() >
            list.view.CharacterRect(list.long_line).top());
    QCOMPARE(list.bar().maximum(), 0);
    QVERIFY(!list.bar().isVisible());
    WheelAnyWay(list.view, {-50, 0}, {});
    QCOMPARE(list.view.CharacterRect(0).left(), 3);
  }

  void WithAMarginTheyDoNot() {
    ShownList list;
    QCOMPARE(list.view.CharacterRect(list.long_end - 2).top(),
             list.view.CharacterRect(list.long_line).top());
    QVERIFY(list.view.CharacterRect(list.long_end - 2).left() > list.view.viewport()->width());
    QVERIFY(list.bar().isVisible());
    QCOMPARE(list.view.RowAround(list.long_line), (PaneRange{list.long_line, list.long_end + 2}));
  }

  void TheyWrapAtTheMargin() {
    ShownList list(15 * 100);
    const PaneRange row = list.view.RowAround(list.long_line);
    QVERIFY(row.end < list.long_end);
    QVERIFY(list.view.CharacterRect(row.end - 2).right() <= 3 + 100);
    QVERIFY(list.view.CharacterRect(row.end).top() > list.view.CharacterRect(row.start).top());
    list.box.RightMargin(15 * 200);
    ShownPane::Settle();
    QVERIFY(list.view.RowAround(list.long_line).end > row.end);
  }

  void TheBarIsThereOnlyWhileALineNeedsIt() {
    ShownList list;
    list.box.ExSetSel(list.long_line, list.long_end);
    list.box.ReplaceSel("dave");
    ShownPane::Settle();
    QVERIFY(!list.bar().isVisible());
    Append(list.box, std::string(100, 'w'), MainFormat(0xFFFFFF));
    ShownPane::Settle();
    QVERIFY(list.bar().isVisible());
    list.box.Text("");
    ShownPane::Settle();
    QVERIFY(!list.bar().isVisible());
  }

  void TheBarGoesToTheEndOfTheWidestLineSeen() {
    ShownList list;
    list.bar().setValue(list.bar().maximum());
    ShownPane::Settle();
    const QRect last = list.view.CharacterRect(list.long_end - 2);
    QVERIFY(last.right() < list.view.viewport()->width());
    QVERIFY(last.right() > list.view.viewport()->width() - 12);
    QVERIFY(list.view.CharacterRect(list.long_line).right() < 0);
    QCOMPARE(list.OnScreen(), list.Picture());
  }

  void AWidthThatFitsNeedsNoBar() {
    ShownList list;
    const QImage narrow = list.Picture();
    list.view.resize(list.bar().maximum() + list.view.width() + 10, 300);
    ShownPane::Settle();
    QVERIFY(!list.bar().isVisible());
    QCOMPARE(list.view.CharacterRect(0).left(), 3);
    list.view.resize(200, 300);
    ShownPane::Settle();
    QVERIFY(list.bar().isVisible());
    QCOMPARE(list.Picture(), narrow);
  }

  void ShiftAndTheWheelGoToTheSide() {
    ShownList list;
    WheelAnyWay(list.view, {}, {0, -120}, Qt::ShiftModifier);
    ShownPane::Settle();
    QVERIFY(list.bar().value() > 10);
    QCOMPARE(list.view.CharacterRect(0).left(), 3 - list.bar().value());
    QCOMPARE(list.OnScreen(), list.Picture());
    WheelAnyWay(list.view, {}, {0, 120}, Qt::ShiftModifier);
    QCOMPARE(list.bar().value(), 0);
  }

  void ATouchPadGoesToTheSideByPixels() {
    ShownList list;
    WheelAnyWay(list.view, {-17, 0}, {});
    QCOMPARE(list.bar().value(), 17);
    WheelAnyWay(list.view, {5, 0}, {});
    QCOMPARE(list.bar().value(), 12);
  }

  void TheArrowKeysGoToTheSide() {
    ShownList list;
    QTest::keyClick(&list.view, Qt::Key_Right);
    QVERIFY(list.bar().value() > 0);
    QTest::keyClick(&list.view, Qt::Key_Left);
    QCOMPARE(list.bar().value(), 0);
  }

  void WhatIsHitIsWhatIsSeenThere() {
    ShownList list;
    list.bar().setValue(60);
    QSignalSpy moved(&list.view, &RichTextView::mouseMovedOver);
    for (PanePosition i = list.long_line; i < list.long_end; ++i) {
      const QRect place = list.view.CharacterRect(i);
      if (place.left() < 0 || place.right() >= list.view.viewport()->width()) continue;
      QCOMPARE(list.box.CharFromPos(place.center().x(), place.center().y()), i);
      QTest::mouseMove(list.view.viewport(), place.center());
      QCOMPARE(moved.last().at(0).value<PanePosition>(), i);
    }
    QVERIFY(moved.size() > 5);
    QCOMPARE(list.box.CharFromPos(1, list.view.CharacterRect(1).center().y()), PanePosition{5});
  }

  void ADragSelectsWhereItIsSeen() {
    ShownList list;
    list.bar().setValue(60);
    const PanePosition from = list.box.CharFromPos(20, list.PointOf(list.long_line).y());
    const PanePosition to = from + 8;
    QTest::mousePress(list.view.viewport(), Qt::LeftButton, Qt::NoModifier, list.LeftOf(from));
    MoveTo(list.view, list.LeftOf(to));
    QTest::mouseRelease(list.view.viewport(), Qt::LeftButton, Qt::NoModifier, list.LeftOf(to));
    QCOMPARE(list.view.Selected(), (PaneRange{from, to}));
    ShownPane::Settle();
    QCOMPARE(list.OnScreen(), list.Picture());
    const QColor highlight = list.view.palette().color(QPalette::Highlight);
    const QRect place = list.view.CharacterRect(from);
    QCOMPARE(list.OnScreen().pixelColor(place.left() + 1, place.top()), highlight);
  }

  void ADragBeyondTheSideScrolls() {
    ShownList list;
    const QPoint from = list.LeftOf(list.long_line + 2);
    QTest::mousePress(list.view.viewport(), Qt::LeftButton, Qt::NoModifier, from);
    MoveTo(list.view, {list.view.viewport()->width() + 60, from.y()});
    QTRY_COMPARE(list.bar().value(), list.bar().maximum());
    QTRY_COMPARE(list.view.Selected(), (PaneRange{list.long_line + 2, list.long_end}));
    MoveTo(list.view, {-60, from.y()});
    QTRY_COMPARE(list.bar().value(), 0);
    QTRY_COMPARE(list.view.Selected(), (PaneRange{list.long_line, list.long_line + 2}));
    QTest::mouseRelease(list.view.viewport(), Qt::LeftButton, Qt::NoModifier, from);
  }

  void APositionIsBroughtIntoView() {
    ShownList list;
    list.view.ShowPosition(list.long_end - 2);
    ShownPane::Settle();
    QRect place = list.view.CharacterRect(list.long_end - 2);
    QVERIFY(list.view.viewport()->rect().contains(place));
    list.view.ShowPosition(list.long_line);
    place = list.view.CharacterRect(list.long_line);
    QVERIFY(list.view.viewport()->rect().contains(place));
    // What the program selects to be seen is brought into view too.
    list.box.HideSelection(false);
    list.box.ExSetSel(list.long_end - 4, list.long_end - 1);
    ShownPane::Settle();
    QVERIFY(list.view.viewport()->rect().contains(list.view.CharacterRect(list.long_end - 4)));
  }

  void TheCaretStaysInViewAsItMoves() {
    ShownList list;
    list.view.Select(list.long_line, list.long_line);
    QTest::keyClick(&list.view, Qt::Key_End, Qt::ShiftModifier);
    QVERIFY(list.bar().value() > 0);
    QCOMPARE(list.view.Selected(), (PaneRange{list.long_line, list.long_end}));
    QTest::keyClick(&list.view, Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(list.bar().value(), 0);
  }

  void ReadersOfTheScreenHearWhereItIsSeen() {
    ShownList list;
    list.bar().setValue(60);
    QAccessibleInterface* pane = QAccessible::queryAccessibleInterface(&list.view);
    QVERIFY(pane != nullptr && pane->textInterface() != nullptr);
    const PanePosition at = list.box.CharFromPos(50, list.PointOf(list.long_line).y());
    const QRect seen = list.view.CharacterRect(at);
    const QRect told = pane->textInterface()->characterRect(static_cast<int>(at));
    QCOMPARE(told, QRect(list.view.viewport()->mapToGlobal(seen.topLeft()), seen.size()));
    QCOMPARE(pane->textInterface()->offsetAtPoint(told.center()), static_cast<int>(at));
  }

  void ANoticesBarsFillTheViewHoweverFarToTheSide() {
    ShownList list;
    AppendNotice(list.box, "notice");
    list.view.ScrollToEnd();
    list.bar().setValue(60);
    const QImage picture = list.Picture();
    int full_rows = 0;
    for (int y = 0; y < picture.height(); ++y) {
      int x = 0;
      while (x < picture.width() && picture.pixelColor(x, y) == QColor(0, 163, 148))
        ++x;
      if (x == picture.width()) ++full_rows;
    }
    QCOMPARE(full_rows, 8);
  }

  void LinesThatComeLeaveThePlaceAlone() {
    ShownList list;
    list.bar().setValue(60);
    ShownPane::Settle();
    const QRect before = list.view.CharacterRect(list.long_line + 10);
    Append(list.box, "eve\r\n", MainFormat(0xFFFFFF));
    ShownPane::Settle();
    QCOMPARE(list.bar().value(), 60);
    QCOMPARE(list.view.CharacterRect(list.long_line + 10), before);
    QCOMPARE(list.OnScreen(), list.Picture());
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::RichTextViewSidewaysTest)
#include "sideways_test.moc"
