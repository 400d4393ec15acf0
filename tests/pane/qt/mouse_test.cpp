// The mouse in a pane: what lies under it, and selecting.
#include <QClipboard>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimer>
#include <random>

#include "pane/qt/shown_pane.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

constexpr auto kLeft = Qt::LeftButton;

void Move(RichTextView& view, QPoint point, Qt::MouseButtons buttons = kLeft) {
  QMouseEvent event(QEvent::MouseMove, point, view.viewport()->mapToGlobal(point), Qt::NoButton,
                    buttons, Qt::NoModifier);
  QCoreApplication::sendEvent(view.viewport(), &event);
}

void Drag(RichTextView& view, QPoint from, QPoint to) {
  QTest::mousePress(view.viewport(), kLeft, Qt::NoModifier, from);
  Move(view, (from + to) / 2);
  Move(view, to);
  QTest::mouseRelease(view.viewport(), kLeft, Qt::NoModifier, to);
}

// Two clicks are one event of their own for a widget.
void DoubleClick(RichTextView& view, QPoint point) {
  QTest::mouseDClick(view.viewport(), kLeft, Qt::NoModifier, point);
}

}  // namespace

class RichTextViewMouseTest : public QObject {
  Q_OBJECT

 private slots:
  // Every character has a back colour of its own, so the picture tells what was painted at a point.
  void WhatIsHitIsWhatWasPaintedThere() {
    std::mt19937 random(11);
    for (int round = 0; round < 12; ++round) {
      ShownPane pane(0, {150 + static_cast<int>(random() % 400), 300});
      std::string text;
      for (int i = 0; i < 700; ++i)
        text += random() % 6 == 0    ? ' '
                : random() % 60 == 0 ? '\t'
                                     : static_cast<char>('a' + random() % 26);
      for (int i = 0; i < 6; ++i)
        text.replace(100 * static_cast<std::size_t>(i) + 50, 2, "\r\n");
      Append(pane.box, text, MainFormat(0));
      for (PanePosition i = 0; i < pane.box.Length(); ++i) {
        pane.box.ExSetSel(i, i + 1);
        PaneFormat format = MainFormat(0);
        format.font_size = 8 + static_cast<int>(random() % 8);
        format.back_colour = static_cast<PaneColour>(i + 1);
        format.colour = static_cast<PaneColour>(i + 1);
        format.alignment = static_cast<PaneAlignment>(round % 3);
        pane.box.SelFormat(format);
      }
      const QImage picture = pane.Picture();
      int hits = 0;
      for (int i = 0; i < 500; ++i) {
        const QPoint point(static_cast<int>(random() % static_cast<unsigned>(picture.width())),
                           static_cast<int>(random() % static_cast<unsigned>(picture.height())));
        const QRgb colour = picture.pixel(point);
        const PanePosition painted = qRed(colour) + 256 * qGreen(colour) - 1;
        if (painted < 0) continue;
        const QRect place = pane.view.CharacterRect(painted);
        if (point.x() <= place.left() || point.x() + 1 >= place.right())
          continue;  // a shared pixel
        ++hits;
        QCOMPARE(pane.box.CharFromPos(point.x(), point.y()), painted);
        QVERIFY(place.contains(point));
      }
      QVERIFY(hits > 50);
    }
  }

  void BehindALineIsItsEnd() {
    ShownPane pane(3);
    const auto line = pane.box.LineByIndex(1);
    const QRect last = pane.view.CharacterRect(line.start + line.length - 1);
    QCOMPARE(pane.box.CharFromPos(390, last.center().y()), line.start + line.length);
    QCOMPARE(pane.box.CharFromPos(last.center().x(), last.center().y()),
             line.start + line.length - 1);
    QCOMPARE(pane.box.CharFromPos(0, last.center().y()), line.start);
  }

  void BelowTheTextIsItsEnd() {
    ShownPane pane(3);
    QCOMPARE(pane.box.CharFromPos(20, 290), pane.box.Length());
  }

  void ADragSelectsAndThePaneGetsTheSelection() {
    ShownPane pane(5);
    const PanePosition from = pane.LineStart(1) + 11;
    const PanePosition to = pane.LineStart(3) + 5;
    pane.box.HideSelection(true);
    Drag(pane.view, pane.LeftOf(from), pane.LeftOf(to));
    QCOMPARE(pane.view.Selected(), (PaneRange{from, to}));
    QCOMPARE(pane.box.SelStart(), from);
    QCOMPARE(pane.box.SelLength(), to - from);
    QVERIFY(!pane.box.HideSelection());
    QCOMPARE(pane.box.SelText(), pane.SelectedText());
    QVERIFY(pane.SelectedText().starts_with("alice: message number 1\r\n"));
  }

  void ADragBackwardsSelectsTheSame() {
    ShownPane pane(5);
    const PanePosition from = pane.LineStart(3) + 5;
    const PanePosition to = pane.LineStart(1) + 11;
    Drag(pane.view, pane.LeftOf(from), pane.LeftOf(to));
    QCOMPARE(pane.view.Selected(), (PaneRange{to, from}));
    QCOMPARE(pane.view.Caret(), to);
  }

  void AClickElsewhereClears() {
    ShownPane pane(5);
    pane.view.Select(3, 20);
    QTest::mouseClick(pane.view.viewport(), kLeft, Qt::NoModifier,
                      pane.LeftOf(pane.LineStart(2) + 4));
    QVERIFY(pane.view.Selected().empty());
    QCOMPARE(pane.box.SelStart(), pane.LineStart(2) + 4);
    QCOMPARE(pane.box.SelLength(), PanePosition{0});
  }

  void ADoubleClickSelectsAWordAndDragsByWords() {
    ShownPane pane(5);
    const PanePosition nick = pane.LineStart(2) + 11;
    DoubleClick(pane.view, pane.PointOf(nick + 2));
    QCOMPARE(pane.SelectedText(), std::string("alice"));
    Move(pane.view, pane.PointOf(nick + 9));
    QCOMPARE(pane.SelectedText(), std::string("alice: message"));
    Move(pane.view, pane.PointOf(nick - 3));
    QCOMPARE(pane.SelectedText(), std::string("57] alice"));
    QTest::mouseRelease(pane.view.viewport(), kLeft, Qt::NoModifier, pane.PointOf(nick - 3));
    QCOMPARE(pane.box.SelText(), std::string("57] alice"));
  }

  void AWordIsOfRussianLettersToo() {
    ShownPane pane;
    AppendMessage(pane.box, "[1]", "bob:", "\xCF\xF0\xE8\xE2\xE5\xF2_2, you");
    DoubleClick(pane.view, pane.PointOf(12));
    QCOMPARE(pane.SelectedText(), std::string("\xCF\xF0\xE8\xE2\xE5\xF2_2"));
  }

  void AThirdClickSelectsTheLineAndDragsByLines() {
    ShownPane pane(6);
    const QPoint point = pane.PointOf(pane.LineStart(2) + 14);
    QTest::mouseClick(pane.view.viewport(), kLeft, Qt::NoModifier, point);
    DoubleClick(pane.view, point);
    QTest::mousePress(pane.view.viewport(), kLeft, Qt::NoModifier, point);
    QCOMPARE(pane.view.Selected(), (PaneRange{pane.LineStart(2), pane.LineStart(3)}));
    Move(pane.view, pane.PointOf(pane.LineStart(4) + 3));
    QCOMPARE(pane.view.Selected(), (PaneRange{pane.LineStart(2), pane.LineStart(5)}));
    QTest::mouseRelease(pane.view.viewport(), kLeft, Qt::NoModifier, point);
  }

  void ShiftAndAClickExtend() {
    ShownPane pane(6);
    QTest::mouseClick(pane.view.viewport(), kLeft, Qt::NoModifier,
                      pane.LeftOf(pane.LineStart(1) + 2));
    QTest::mouseClick(pane.view.viewport(), kLeft, Qt::ShiftModifier,
                      pane.LeftOf(pane.LineStart(4) + 2));
    QCOMPARE(pane.view.Selected(), (PaneRange{pane.LineStart(1) + 2, pane.LineStart(4) + 2}));
    QTest::mouseClick(pane.view.viewport(), kLeft, Qt::ShiftModifier,
                      pane.LeftOf(pane.LineStart(0) + 3));
    QCOMPARE(pane.view.Selected(), (PaneRange{pane.LineStart(0) + 3, pane.LineStart(1) + 2}));
  }

  void ADragBeyondTheEdgeScrolls() {
    ShownPane pane(300);
    pane.view.ShowPosition(pane.LineStart(100));
    ShownPane::Settle();
    const PanePosition from = pane.LineStart(101) + 3;
    QTest::mousePress(pane.view.viewport(), kLeft, Qt::NoModifier, pane.LeftOf(from));
    Move(pane.view, {50, pane.view.viewport()->height() + 60});
    const PanePosition first = pane.view.Selected().end;
    QTRY_VERIFY(pane.view.Selected().end > first + 300);
    QCOMPARE(pane.view.Selected().start, from);
    Move(pane.view, {50, 20});
    const PanePosition top = pane.view.CharFromPos(3, 0);
    QTest::qWait(100);
    QCOMPARE(pane.view.CharFromPos(3, 0), top);
    Move(pane.view, {50, -60});
    QTRY_VERIFY(pane.view.Selected().start < from - 300);
    QCOMPARE(pane.view.Selected().end, from);
    QTest::mouseRelease(pane.view.viewport(), kLeft, Qt::NoModifier, {50, -60});
    const PanePosition still = pane.view.CharFromPos(3, 0);
    QTest::qWait(100);
    QCOMPARE(pane.view.CharFromPos(3, 0), still);
  }

  void ADragOfTheSelectionTakesItsTextOut() {
    ShownPane pane(5);
    const PanePosition from = pane.LineStart(1) + 11;
    pane.view.Select(from, from + 14);
    const PaneRange selected = pane.view.Selected();
    QSignalSpy moved(&pane.view, &RichTextView::mouseMovedOver);
    QSignalSpy released(&pane.view, &RichTextView::mouseReleasedAt);
    QTest::mousePress(pane.view.viewport(), kLeft, Qt::NoModifier, pane.PointOf(from + 3));
    QCOMPARE(pane.view.Selected(), selected);
    QString text;
    QString html;
    const auto look = [&] {
      const auto* drag = pane.view.findChild<QDrag*>();
      if (drag == nullptr) return;
      text = drag->mimeData()->text();
      html = drag->mimeData()->html();
      QDrag::cancel();
    };
    Move(pane.view, pane.PointOf(from + 3) + QPoint(1, 0));
    QVERIFY(text.isEmpty());
    // A platform that carries it out waits for the drop; another has done with it at once.
    QTimer::singleShot(0, &pane.view, look);
    Move(pane.view, pane.PointOf(from + 3) + QPoint(40, 30));
    if (text.isEmpty()) look();
    QCOMPARE(text, QStringLiteral("alice: message"));
    QVERIFY(html.contains(QStringLiteral("alice")));
    // The press is over, and was on nothing.
    QCOMPARE(released.count(), 1);
    QCOMPARE(released.at(0).at(0).value<PanePosition>(), PanePosition{0});
    QCOMPARE(moved.last().at(0).value<PanePosition>(), PanePosition{0});
    QCOMPARE(pane.view.Selected(), selected);
    QTest::mouseRelease(pane.view.viewport(), kLeft, Qt::NoModifier, pane.PointOf(from + 30));
    QCOMPARE(pane.view.Selected(), selected);
  }

  void AClickOnTheSelectionClearsItAtItsRelease() {
    ShownPane pane(5);
    const PanePosition from = pane.LineStart(1) + 11;
    pane.view.Select(from, from + 14);
    QTest::mousePress(pane.view.viewport(), kLeft, Qt::NoModifier, pane.LeftOf(from + 3));
    QVERIFY(!pane.view.Selected().empty());
    QTest::mouseRelease(pane.view.viewport(), kLeft, Qt::NoModifier, pane.LeftOf(from + 3));
    QVERIFY(pane.view.Selected().empty());
    QCOMPARE(pane.box.SelStart(), from + 3);
    // Behind the end of a selected line nothing is taken along.
    pane.view.Select(0, pane.LineStart(3));
    const QPoint behind(380, pane.PointOf(pane.LineStart(1)).y());
    Drag(pane.view, behind, pane.LeftOf(pane.LineStart(0) + 4));
    QCOMPARE(pane.view.Selected(), (PaneRange{pane.LineStart(0) + 4, pane.LineStart(2) - 2}));
  }

  void LinesThatComeLeaveTheSelectionAlone() {
    ShownPane pane(5);
    Drag(pane.view, pane.LeftOf(3), pane.LeftOf(pane.LineStart(3) + 4));
    const std::string text = pane.SelectedText();
    const PaneRange selected = pane.view.Selected();
    AppendMessages(pane.box, 20);
    QCOMPARE(pane.view.Selected(), selected);
    QCOMPARE(pane.SelectedText(), text);
    QCOMPARE(pane.box.SelLength(), PanePosition{0});
    pane.view.GiveSelection();
    QCOMPARE(pane.box.SelText(), text);
  }

  void TextAheadOfTheSelectionShiftsIt() {
    ShownPane pane(5);
    pane.view.Select(pane.LineStart(2), pane.LineStart(3));
    const std::string text = pane.SelectedText();
    pane.box.HideSelection(true);
    pane.box.ExSetSel(0, 4);
    pane.box.ReplaceSel("something longer\r\n");
    QCOMPARE(pane.SelectedText(), text);
    pane.box.ExSetSel(pane.view.Selected().start, pane.view.Selected().start);
    pane.box.ReplaceSel("right ahead of it");
    QCOMPARE(pane.SelectedText(), text);
    pane.box.ExSetSel(pane.view.Selected().end, pane.view.Selected().end);
    pane.box.ReplaceSel("right behind it");
    QCOMPARE(pane.SelectedText(), text);
    pane.box.Text("");
    QVERIFY(pane.view.Selected().empty());
    QCOMPARE(pane.view.Caret(), PanePosition{0});
  }

  void TheProgramsHiddenSelectionIsNotShown() {
    ShownPane pane(5);
    pane.view.Select(3, 20);
    ShownPane::Settle();
    const QImage before = pane.Picture();
    pane.box.HideSelection(true);
    pane.box.ExSetSel(30, 60);
    ShownPane::Settle();
    QCOMPARE(pane.Picture(), before);
    QCOMPARE(pane.view.Selected(), (PaneRange{3, 20}));
  }

  void TheProgramsShownSelectionIsShownAndBroughtIntoView() {
    ShownPane pane(300);
    pane.box.HideSelection(true);
    const PanePosition start = pane.LineStart(50) + 11;
    pane.box.SelStart(start);
    pane.box.SelLength(5);
    QVERIFY(pane.view.Selected().empty());
    pane.box.HideSelection(false);
    QCOMPARE(pane.view.Selected(), (PaneRange{start, start + 5}));
    ShownPane::Settle();
    QVERIFY(!pane.view.CharacterRect(start).isEmpty());
    QCOMPARE(pane.OnScreen(), pane.Picture());
  }

  void DuringADragTheProgramsSelectionDoesNotDisturb() {
    ShownPane pane(5);
    pane.box.HideSelection(false);
    QTest::mousePress(pane.view.viewport(), kLeft, Qt::NoModifier, pane.LeftOf(5));
    Move(pane.view, pane.LeftOf(20));
    QCOMPARE(pane.view.Selected(), (PaneRange{5, 20}));
    pane.box.ExSetSel(pane.box.Length(), pane.box.Length());
    pane.box.ReplaceSel("a line of the program\r\n");
    QCOMPARE(pane.view.Selected(), (PaneRange{5, 20}));
    Move(pane.view, pane.LeftOf(25));
    QTest::mouseRelease(pane.view.viewport(), kLeft, Qt::NoModifier, pane.LeftOf(25));
    QCOMPARE(pane.view.Selected(), (PaneRange{5, 25}));
    QCOMPARE(pane.box.SelStart(), PanePosition{5});
    QCOMPARE(pane.box.SelLength(), PanePosition{20});
  }

  void WhileTheSelectionIsPressedTheProgramsSelectionDoesNotDisturb() {
    ShownPane pane(20);
    pane.view.ScrollToStart();
    ShownPane::Settle();
    Drag(pane.view, pane.LeftOf(3), pane.LeftOf(9));
    const PaneRange selected = pane.view.Selected();
    QVERIFY(!selected.empty());
    QTest::mousePress(pane.view.viewport(), kLeft, Qt::NoModifier, pane.PointOf(5));
    pane.box.HideSelection(false);
    pane.box.ExSetSel(pane.box.Length(), pane.box.Length());
    pane.box.ReplaceSel("a line\r\n");
    QCOMPARE(pane.view.Selected(), selected);
    QTest::mouseRelease(pane.view.viewport(), kLeft, Qt::NoModifier, pane.PointOf(5));
    QVERIFY(pane.view.Selected().empty());
  }

  void AButtonThatGoesUpUnseenEndsTheDrag_data() {
    QTest::addColumn<bool>("hidden");
    QTest::newRow("the view is hidden") << true;
    QTest::newRow("the mouse moves with the button up") << false;
  }
  void AButtonThatGoesUpUnseenEndsTheDrag() {
    QFETCH(bool, hidden);
    ShownPane pane(200);
    pane.view.ScrollToStart();
    ShownPane::Settle();
    QSignalSpy released(&pane.view, &RichTextView::mouseReleasedAt);
    const QPoint from = pane.LeftOf(3);
    QTest::mousePress(pane.view.viewport(), kLeft, Qt::NoModifier, from);
    Move(pane.view, {from.x() + 60, pane.view.viewport()->height() + 30});  // it scrolls by itself
    if (hidden)
      pane.view.hide();
    else
      Move(pane.view, from, Qt::NoButton);
    QCOMPARE(released.size(), 1);
    const PaneRange selected = pane.view.Selected();
    const PaneScrollInfo before = pane.box.GetScrollInfo();
    QTest::qWait(100);
    QCOMPARE(pane.view.Selected(), selected);
    QCOMPARE(pane.box.GetScrollInfo().pos, before.pos);
  }

  void ARightPressGivesTheSelectionToThePaneFirst() {
    ShownPane pane(5);
    pane.view.Select(5, 20);
    AppendMessages(pane.box, 1);
    QCOMPARE(pane.box.SelLength(), PanePosition{0});
    std::string text;
    connect(&pane.view, &RichTextView::mousePressedAt, this, [&] { text = pane.box.SelText(); });
    pane.view.setContextMenuPolicy(Qt::NoContextMenu);
    QTest::mouseClick(pane.view.viewport(), Qt::RightButton, Qt::NoModifier, pane.PointOf(8));
    QCOMPARE(text, pane.SelectedText());
    QCOMPARE(pane.view.Selected(), (PaneRange{5, 20}));
  }

  void TheMouseIsToldWithPositions() {
    ShownPane pane(5);
    QSignalSpy moved(&pane.view, &RichTextView::mouseMovedOver);
    QSignalSpy pressed(&pane.view, &RichTextView::mousePressedAt);
    QSignalSpy released(&pane.view, &RichTextView::mouseReleasedAt);
    QSignalSpy left(&pane.view, &RichTextView::mouseLeft);
    const PanePosition at = pane.LineStart(2) + 12;
    Move(pane.view, pane.PointOf(at), Qt::NoButton);
    QTest::mousePress(pane.view.viewport(), kLeft, Qt::NoModifier, pane.PointOf(at));
    QTest::mouseRelease(pane.view.viewport(), kLeft, Qt::NoModifier, pane.PointOf(at + 3));
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(pane.view.viewport(), &leave);
    QCOMPARE(moved.at(0).at(0).value<PanePosition>(), at);
    QCOMPARE(pressed.count(), 1);
    QCOMPARE(pressed.at(0).at(0).value<PanePosition>(), at);
    QCOMPARE(pressed.at(0).at(1).value<Qt::MouseButton>(), kLeft);
    QCOMPARE(released.at(0).at(0).value<PanePosition>(), at + 3);
    QCOMPARE(left.count(), 1);
  }

  void ThePointerIsAnArrowOrAHand() {
    ShownPane pane(1);
    QCOMPARE(pane.view.viewport()->cursor().shape(), Qt::ArrowCursor);
    pane.box.MousePointer(PanePointer::kCustom);
    QCOMPARE(pane.view.viewport()->cursor().shape(), Qt::PointingHandCursor);
    pane.box.MousePointer(PanePointer::kArrow);
    QCOMPARE(pane.view.viewport()->cursor().shape(), Qt::ArrowCursor);
  }

  // The offscreen platform has no such selection; on X11 this is the real one.
  void ReleasingSetsThePrimarySelection() {
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (!clipboard->supportsSelection()) QSKIP("the platform has no primary selection");
    ShownPane pane(5);
    clipboard->setText(QStringLiteral("before"), QClipboard::Selection);
    QTest::mousePress(pane.view.viewport(), kLeft, Qt::NoModifier,
                      pane.LeftOf(pane.LineStart(1) + 11));
    Move(pane.view, pane.LeftOf(pane.LineStart(1) + 16));
    QCOMPARE(clipboard->text(QClipboard::Selection), QStringLiteral("before"));
    QTest::mouseRelease(pane.view.viewport(), kLeft, Qt::NoModifier,
                        pane.LeftOf(pane.LineStart(1) + 16));
    QCOMPARE(clipboard->text(QClipboard::Selection), QStringLiteral("alice"));
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::RichTextViewMouseTest)
#include "mouse_test.moc"
