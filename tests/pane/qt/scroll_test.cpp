// Where a pane's view stands, what it keeps in place, and how little it does for it.
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QScrollBar>
#include <QScroller>
#include <QSignalSpy>
#include <QStyleOptionSlider>
#include <QWheelEvent>
#include <functional>
#include <memory>
#include <random>

#include "pane/qt/shown_pane.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

void Wheel(RichTextView& view, QPoint pixels, QPoint angle) {
  const QPointF at = view.viewport()->rect().center();
  QWheelEvent event(at, view.viewport()->mapToGlobal(at), pixels, angle, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(view.viewport(), &event);
}

// Counts what the event loop is woken for.
class EventCount : public QObject {
 public:
  bool eventFilter(QObject*, QEvent*) override {
    ++count;
    return false;
  }
  int count = 0;
};

}  // namespace

class RichTextViewScrollTest : public QObject {
  Q_OBJECT

 private slots:
  void AnEmptyPaneHasNothingToScroll() {
    ShownPane pane;
    pane.box.VScroll(PaneScroll::kBottom);
    pane.box.VScroll(PaneScroll::kLineUp);
    const PaneScrollInfo info = pane.box.GetScrollInfo();
    QCOMPARE(info.max, 0);
    QCOMPARE(info.page, 0);
    QCOMPARE(info.pos, 0);
    QCOMPARE(pane.box.CharFromPos(10, 10), PanePosition{0});
  }

  void MaxIsZeroUntilTheTextIsHigherThanTheView() {
    ShownPane pane;
    int lines = 0;
    while (pane.box.GetScrollInfo().max == 0 && lines < 100) {
      AppendMessages(pane.box, 1);
      ++lines;
    }
    const int row = pane.view.CharacterRect(0).height();
    QCOMPARE(lines, pane.view.viewport()->height() / row + 1);
    QCOMPARE(pane.view.verticalScrollBar()->maximum(), 0);
    ShownPane::Settle();
    QVERIFY(pane.view.verticalScrollBar()->maximum() > 0);
  }

  void TheBottomCommandBringsTheEnd() {
    ShownPane pane(200);
    pane.view.ScrollToStart();
    ShownPane::Settle();
    QVERIFY(!pane.AtEnd());
    QCOMPARE(pane.box.GetScrollInfo().pos, 0);
    QVERIFY(pane.view.CharacterRect(pane.LineStart(199)).isEmpty());
    pane.box.VScroll(PaneScroll::kBottom);
    QVERIFY(pane.AtEnd());
    ShownPane::Settle();
    QVERIFY(pane.AtEnd());
    QVERIFY(!pane.view.CharacterRect(pane.LineStart(199)).isEmpty());
    const QScrollBar* bar = pane.view.verticalScrollBar();
    QCOMPARE(bar->value(), bar->maximum());
  }

  void TheEndIsToldBeforeAndAfterItIsLaidOut() {
    ShownPane pane(200);
    AppendMessages(pane.box, 1);
    QVERIFY(!pane.AtEnd());
    pane.box.VScroll(PaneScroll::kBottom);
    QVERIFY(pane.AtEnd());
    AppendMessages(pane.box, 1);
    QVERIFY(!pane.AtEnd());
    const PaneScrollInfo info = pane.box.GetScrollInfo();
    QVERIFY(info.pos + info.page < info.max - 1);
    ShownPane::Settle();
    QVERIFY(!pane.AtEnd());
  }

  void ALineUpLeavesTheEnd() {
    ShownPane pane(200);
    pane.box.VScroll(PaneScroll::kLineUp);
    QVERIFY(!pane.AtEnd());
    const PaneScrollInfo info = pane.box.GetScrollInfo();
    QVERIFY(info.pos + info.page < info.max - 1);
    const int bottom = pane.view.CharacterRect(pane.LineStart(198)).bottom();
    pane.box.VScroll(PaneScroll::kLineUp);
    const QRect row = pane.view.CharacterRect(pane.LineStart(198));
    QVERIFY(row.isEmpty() || row.bottom() > bottom);
  }

  void AtTheEndWhatComesWithoutACommandStaysOutOfView() {
    ShownPane pane(200);
    const QImage before = pane.Picture();
    AppendMessages(pane.box, 50);
    ShownPane::Settle();
    QCOMPARE(pane.Picture(), before);
    QCOMPARE(pane.OnScreen(), before);
  }

  void WhatComesWhileTheReaderIsScrolledUpMovesNothing() {
    ShownPane pane(300);
    pane.view.ShowPosition(pane.LineStart(100));
    Wheel(pane.view, {0, 7}, {});  // into the middle of a row
    ShownPane::Settle();
    const QImage before = pane.Picture();
    const auto counted = pane.view.work();
    for (int i = 0; i < 100; ++i) {
      AppendMessages(pane.box, 100);
      pane.box.Refresh();
      if (i % 10 == 0) ShownPane::Settle();
    }
    ShownPane::Settle();
    QCOMPARE(pane.view.work().laid_out, counted.laid_out);
    QCOMPARE(pane.view.work().painted, counted.painted);
    QCOMPARE(pane.OnScreen(), before);
    QCOMPARE(pane.Picture(), before);
  }

  void ALineAboveTheViewThatGrowsMovesNothing() {
    ShownPane pane(300);
    pane.view.ShowPosition(pane.LineStart(100));
    ShownPane::Settle();
    const QImage before = pane.Picture();
    pane.box.ExSetSel(pane.LineStart(20), pane.LineStart(25));
    pane.box.SelFontSize(40);
    pane.box.ExSetSel(0, pane.LineStart(10));
    pane.box.ReplaceSel("gone\r\nand\r\nmore\r\n");
    ShownPane::Settle();
    QCOMPARE(pane.Picture(), before);
    QCOMPARE(pane.OnScreen(), before);
  }

  void ManyChangesInOneTurnAreOneRepaint() {
    ShownPane pane(200);
    const auto before = pane.view.work();
    for (int i = 0; i < 1000; ++i) {
      pane.box.SetRedraw(false);
      AppendMessages(pane.box, 1);
      pane.box.VScroll(PaneScroll::kBottom);
      pane.box.Visible(true);
      pane.box.SetRedraw(true);
      pane.box.Refresh();
    }
    ShownPane::Settle();
    const auto after = pane.view.work();
    QCOMPARE(after.paints, before.paints + 1);
    QVERIFY(after.laid_out - before.laid_out < 40);
    QVERIFY(pane.AtEnd());
  }

  void OneMoreLineAtTheEndPaintsLittleMoreThanTheLine() {
    ShownPane pane(200);
    const auto before = pane.view.work();
    AppendMessages(pane.box, 1);
    pane.box.VScroll(PaneScroll::kBottom);
    ShownPane::Settle();
    QVERIFY(pane.view.work().painted - before.painted <= 3);
    QCOMPARE(pane.OnScreen(), pane.Picture());
  }

  void WithRedrawOffNothingIsPainted() {
    ShownPane pane(200);
    const QImage before = pane.OnScreen();
    const auto counted = pane.view.work();
    pane.box.SetRedraw(false);
    AppendMessages(pane.box, 10);
    pane.box.VScroll(PaneScroll::kBottom);
    pane.box.Refresh();
    ShownPane::Settle();
    QCOMPARE(pane.view.work().paints, counted.paints);
    QCOMPARE(pane.OnScreen(), before);
    pane.box.SetRedraw(true);
    ShownPane::Settle();
    QVERIFY(pane.OnScreen() != before);
    QCOMPARE(pane.OnScreen(), pane.Picture());
  }

  void ALongPaneFollowsTheThumbThatTheMouseDrags() {
    // Most of the lines came while the bar had nothing to show of it.
    ShownPane pane(2'000);
    for (int i = 0; i < 98; ++i) {
      AppendMessages(pane.box, 1'000);
      pane.box.VScroll(PaneScroll::kBottom);
      QTest::qWait(2);
    }
    ShownPane::Settle();
    QScrollBar* bar = pane.view.verticalScrollBar();
    const auto move = [&](int y, QEvent::Type type, Qt::MouseButton button, Qt::MouseButtons held) {
      const QPointF at(bar->width() / 2.0, y);
      QMouseEvent event(type, at, bar->mapToGlobal(at), button, held, Qt::NoModifier);
      QCoreApplication::sendEvent(bar, &event);
      QCoreApplication::processEvents();
    };
    QStyleOptionSlider option;
    option.initFrom(bar);
    option.orientation = Qt::Vertical;
    option.minimum = bar->minimum();
    option.maximum = bar->maximum();
    option.sliderPosition = bar->sliderPosition();
    option.pageStep = bar->pageStep();
    const QRect thumb = bar->style()->subControlRect(QStyle::CC_ScrollBar, &option,
                                                     QStyle::SC_ScrollBarSlider, bar);
    const int from = thumb.center().y();
    const int to = bar->height() / 2;
    move(from, QEvent::MouseButtonPress, Qt::LeftButton, Qt::LeftButton);
    for (int y = from; y > to; y -= 6)
      move(y, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton);
    move(to, QEvent::MouseMove, Qt::NoButton, Qt::LeftButton);
    const auto middle = pane.box.LineAt(pane.view.box().CharFromPos(5, 5));
    QVERIFY2(middle > 40'000 && middle < 60'000, QByteArray::number(qlonglong(middle)));
    move(to, QEvent::MouseButtonRelease, Qt::LeftButton, Qt::NoButton);
    QCOMPARE(pane.box.LineAt(pane.view.box().CharFromPos(5, 5)), middle);
    ShownPane::Settle();
    QCOMPARE(pane.box.LineAt(pane.view.box().CharFromPos(5, 5)), middle);
  }

  void AWheelOverTheBarScrollsAsOverThePane() {
    ShownPane pane(2'000);
    for (int i = 0; i < 98; ++i) {
      AppendMessages(pane.box, 1'000);
      pane.box.VScroll(PaneScroll::kBottom);
      QTest::qWait(2);
    }
    const auto last = pane.box.LineAt(pane.box.CharFromPos(5, 5));
    QScrollBar* bar = pane.view.verticalScrollBar();
    const QPointF at = bar->rect().center();
    QWheelEvent notch(at, bar->mapToGlobal(at), QPoint(), QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(bar, &notch);
    ShownPane::Settle();
    const auto now = pane.box.LineAt(pane.box.CharFromPos(5, 5));
    QVERIFY2(now < last && now > last - 6, QByteArray::number(qlonglong(last - now)));
  }

  void WhatWasToBePaintedWhileRedrawWasOffIsPaintedLater() {
    ShownPane pane(200);
    AppendMessages(pane.box, 1);
    pane.box.VScroll(PaneScroll::kBottom);
    QCoreApplication::sendPostedEvents(&pane.view, QEvent::MetaCall);  // a repaint is asked for
    pane.box.SetRedraw(false);
    AppendMessages(pane.box, 1);
    ShownPane::Settle();
    pane.box.VScroll(PaneScroll::kBottom);
    pane.box.SetRedraw(true);
    ShownPane::Settle();
    QCOMPARE(pane.OnScreen(), pane.Picture());
  }

  void AHiddenViewLaysOutNothing() {
    ShownPane pane(200);
    pane.box.Visible(false);
    ShownPane::Settle();
    QVERIFY(!pane.view.isVisible());
    const auto before = pane.view.work();
    for (int i = 0; i < 100; ++i) {
      AppendMessages(pane.box, 10);
      pane.box.GetScrollInfo();
      pane.box.VScroll(PaneScroll::kBottom);
      pane.box.Refresh();
    }
    ShownPane::Settle();
    QCOMPARE(pane.view.work().laid_out, before.laid_out);
    QCOMPARE(pane.view.work().paints, before.paints);
    pane.box.Visible(true);
    ShownPane::Settle();
    QVERIFY(pane.view.isVisible());
    QVERIFY(!pane.view.CharacterRect(pane.LineStart(1199)).isEmpty());
  }

  void AResizeKeepsTheLineAtTheTop() {
    ShownPane pane(300, {800, 300});
    pane.view.ShowPosition(pane.LineStart(100));
    Wheel(pane.view, {0, 5}, {});
    ShownPane::Settle();
    const PanePosition top = pane.view.CharFromPos(3, 0);
    const QImage before = pane.Picture();
    for (const int width : {300, 150, 1600, 450, 90}) {
      pane.view.resize(width, 300);
      ShownPane::Settle();
      QCOMPARE(pane.box.LineAt(pane.view.CharFromPos(3, 0)), pane.box.LineAt(top));
      QCOMPARE(pane.OnScreen(), pane.Picture());
    }
    pane.view.resize(800, 300);
    ShownPane::Settle();
    QCOMPARE(pane.Picture(), before);
  }

  void AResizeAtTheEndStaysAtTheEnd() {
    ShownPane pane(300);
    for (const QSize size : {QSize(200, 300), QSize(200, 100), QSize(900, 700), QSize(100, 50)}) {
      pane.view.resize(size);
      ShownPane::Settle();
      QVERIFY(pane.AtEnd());
      QVERIFY(!pane.view.CharacterRect(pane.LineStart(299)).isEmpty());
    }
  }

  void OnlyWhatIsSeenIsLaidOut() {
    ShownPane pane(100'000, {800, 600});
    const auto limit = std::uint64_t{80};  // two views full
    QVERIFY(pane.view.work().laid_out < limit);
    const auto steps = {
        std::function<void()>([&] { pane.view.ScrollToStart(); }),
        std::function<void()>([&] { pane.view.ShowPosition(pane.LineStart(77'000)); }),
        std::function<void()>([&] { pane.view.resize(500, 600); }), std::function<void()>([&] {
          QScrollBar* bar = pane.view.verticalScrollBar();
          bar->setValue(bar->maximum() / 3);
        }),
        std::function<void()>([&] { pane.view.ScrollToEnd(); })};
    for (const auto& step : steps) {
      const auto before = pane.view.work().laid_out;
      step();
      ShownPane::Settle();
      QVERIFY(pane.view.work().laid_out - before < limit);
    }
  }

  void TheWheelScrollsByPixelsAndComesBack() {
    ShownPane pane(200);
    pane.view.ShowPosition(pane.LineStart(100));
    ShownPane::Settle();
    const QImage before = pane.Picture();
    const int top = pane.view.CharacterRect(pane.LineStart(101)).top();
    Wheel(pane.view, {0, -9}, {});
    QCOMPARE(pane.view.CharacterRect(pane.LineStart(101)).top(), top - 9);
    ShownPane::Settle();
    QCOMPARE(pane.OnScreen(), pane.Picture());
    Wheel(pane.view, {0, 9}, {});
    ShownPane::Settle();
    QCOMPARE(pane.OnScreen(), before);
  }

  void SmallTurnsOfAWheelAddUp() {
    ShownPane pane(200);
    pane.view.ShowPosition(pane.LineStart(100));
    ShownPane::Settle();
    const QImage before = pane.Picture();
    Wheel(pane.view, {}, {0, 120});
    const QImage whole = pane.Picture();
    QVERIFY(whole != before);
    Wheel(pane.view, {}, {0, -120});
    QCOMPARE(pane.Picture(), before);
    for (int i = 0; i < 120; ++i)
      Wheel(pane.view, {}, {0, 1});
    QCOMPARE(pane.Picture(), whole);
  }

  void AFingerTakesTheTextAlong() {
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    ShownPane pane(2000);
    pane.view.ShowPosition(pane.LineStart(1000));
    ShownPane::Settle();
    QWidget* viewport = pane.view.viewport();
    const PanePosition touched = pane.box.CharFromPos(50, 250);
    QPoint finger = pane.PointOf(touched);
    const int start = finger.y();
    QTest::touchEvent(viewport, screen.get()).press(0, finger, viewport);
    // The first part of the way tells a drag from a tap.
    for (int step = 0; step < 20; ++step) {
      finger.ry() -= 8;
      QTest::touchEvent(viewport, screen.get()).move(0, finger, viewport);
    }
    const int moved = start - pane.PointOf(touched).y();
    QVERIFY2(moved > 80 && moved <= 160, qPrintable(QString::number(moved)));
    QTest::touchEvent(viewport, screen.get()).release(0, finger, viewport);
    QTRY_COMPARE(QScroller::scroller(viewport)->state(), QScroller::Inactive);
    QVERIFY(pane.view.Selected().empty());
    ShownPane::Settle();
    QCOMPARE(pane.OnScreen(), pane.Picture());
  }

  void ATapIsAClick() {
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    ShownPane pane(50);
    QSignalSpy moved(&pane.view, &RichTextView::mouseMovedOver);
    QSignalSpy pressed(&pane.view, &RichTextView::mousePressedAt);
    QSignalSpy released(&pane.view, &RichTextView::mouseReleasedAt);
    QWidget* viewport = pane.view.viewport();
    const QPoint finger = pane.PointOf(pane.LineStart(48) + 12);
    QTest::touchEvent(viewport, screen.get()).press(0, finger, viewport);
    QTest::touchEvent(viewport, screen.get()).release(0, finger, viewport);
    QTRY_COMPARE(released.count(), 1);
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(pressed.at(0).at(0).value<PanePosition>(), pane.LineStart(48) + 12);
    QCOMPARE(moved.last().at(0).value<PanePosition>(), pane.LineStart(48) + 12);
  }

  void TheBarGoesFromEndToEnd() {
    ShownPane pane(2000);
    QScrollBar* bar = pane.view.verticalScrollBar();
    std::int64_t line = -1;
    for (int part = 0; part <= 20; ++part) {
      bar->setValue(bar->maximum() * part / 20);
      ShownPane::Settle();
      const std::int64_t now = pane.box.LineAt(pane.view.CharFromPos(3, 0));
      QVERIFY(now > line);
      QVERIFY(std::abs(now - 2000 * part / 20) < 100);
      line = now;
    }
    QVERIFY(pane.AtEnd());
    bar->setValue(0);
    ShownPane::Settle();
    QCOMPARE(pane.view.CharFromPos(3, 0), PanePosition{0});
  }

  void TheBarsArrowsAndPagesAreStepsOfTruePixels() {
    ShownPane pane(2000);
    QScrollBar* bar = pane.view.verticalScrollBar();
    pane.view.ShowPosition(pane.LineStart(1000));
    ShownPane::Settle();
    const int top = pane.view.CharacterRect(pane.LineStart(1003)).top();
    bar->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    QCOMPARE(pane.view.CharacterRect(pane.LineStart(1003)).top(), top - bar->singleStep());
    const QImage before = pane.Picture();
    bar->triggerAction(QAbstractSlider::SliderPageStepSub);
    QVERIFY(pane.view.CharacterRect(pane.LineStart(1003)).isEmpty());
    bar->triggerAction(QAbstractSlider::SliderPageStepAdd);
    QCOMPARE(pane.Picture(), before);
  }

  // The screen is painted piece by piece; it must show what one painting of everything shows.
  void WhatIsOnTheScreenIsWhatThePaneIs() {
    ShownPane pane(60);
    std::mt19937 random(7);
    const auto any = [&](PanePosition below) {
      return static_cast<PanePosition>(random() % static_cast<std::uint64_t>(below + 1));
    };
    for (int step = 0; step < 120; ++step) {
      const PanePosition at = any(pane.box.Length());
      switch (random() % 9) {
        case 0:
          AppendMessages(pane.box, static_cast<int>(random() % 5));
          break;
        case 1:
          pane.box.VScroll(PaneScroll::kBottom);
          break;
        case 2:
          pane.box.ExSetSel(at, at + 20);
          pane.box.SelColor(static_cast<PaneColour>(random() & 0xFFFFFF));
          break;
        case 3:
          pane.box.ExSetSel(at, at + 3);
          pane.box.ReplaceSel("some words\r\nput in");
          break;
        case 4:
          Wheel(pane.view, {0, static_cast<int>(random() % 80) - 40}, {});
          break;
        case 5:
          pane.view.Select(at, any(pane.box.Length()));
          pane.box.HideSelection(true);
          break;
        case 6:
          pane.view.ShowPosition(at);
          break;
        case 7:
          AppendNotice(pane.box, "notice");
          break;
        default:
          pane.box.ExSetSel(at, at + 40);
          pane.box.SelFontSize(8 + static_cast<int>(random() % 20));
          break;
      }
      if (random() % 2 == 0) continue;
      ShownPane::Settle();
      QCOMPARE(pane.OnScreen(), pane.Picture());
    }
  }

  void AnIdleViewIsNeverWoken() {
    ShownPane pane(200);
    pane.view.setFocus();
    pane.view.Select(0, 100);
    QTest::qWait(200);
    EventCount events;
    QCoreApplication::instance()->installEventFilter(&events);
    QTest::qWait(300);
    QCoreApplication::instance()->removeEventFilter(&events);
    QCOMPARE(events.count, 0);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::RichTextViewScrollTest)
#include "scroll_test.moc"
