// Who reads back, or selects, is not thrown to the end by the next line.
#include <QCheckBox>
#include <QObject>
#include <QScrollBar>
#include <QWheelEvent>

#include "pane/qt/rich_text_view.h"
#include "session/connect.h"
#include "shell/qt/msg_box.h"
#include "shell/qt/windows_fixture.h"
#include "support/chat.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

// A tab on a channel with more lines than the pane shows.
struct ReadWindow : Windows {
  explicit ReadWindow(const std::optional<Text>& config = std::nullopt) : Windows(config) {
    tab(0).LoginShown = true;
    tab(0).Login = "alice";
    tab(0).Channel = "lobby";
    desktop.SetTabVisible(0, true);
    ConnectToChat(client, 0);
    Winsock1().Accept();
    Winsock1().Deliver("<a href='/frame?a=1&ticket=T1'>");
    Winsock1().PeerCloses();
    Winsock1().Accept();
    Winsock1().Deliver(Text(kGoodHeader) + "<pre>\n");
    view = Find<RichTextView>("Rich_0");
    box = Find<QCheckBox>("StopScroll_0");
    for (int i = 0; i < 200; ++i)
      Line();
    Settle();
  }

  void Line() {
    Winsock1().Deliver("..[16:45:57]bob:() line number " + std::to_string(++lines_) + "\n");
  }
  static void Settle() { QTest::qWait(150); }
  void Wheel(int notches) {
    const QPointF at = view->viewport()->rect().center();
    QWheelEvent event(at, view->viewport()->mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view->viewport(), &event);
  }
  bool AtEnd() const {
    const PaneScrollInfo info = view->box().GetScrollInfo();
    return info.pos + info.page >= info.max;
  }
  PanePosition Top() const { return view->CharFromPos(2, 2); }
  QPoint PointOf(PanePosition position) const { return view->CharacterRect(position).center(); }
  // The middle of a line in view, from the lower edge.
  PanePosition LineFromBelow(int number) const {
    return view->box().LineByIndex(view->box().LineCount() - 1 - number).start + 14;
  }
  void DragOver(PanePosition from, PanePosition to) {
    QTest::mousePress(view->viewport(), Qt::LeftButton, Qt::NoModifier, PointOf(from));
    QTest::mouseMove(view->viewport(), PointOf(to));
  }

  RichTextView* view = nullptr;
  QCheckBox* box = nullptr;

 private:
  int lines_ = 0;
};

}  // namespace

class ReadingHoldTest : public QObject {
  Q_OBJECT

 private slots:
  void WhoScrollsUpStaysThereWhileLinesCome() {
    ReadWindow read;
    QVERIFY(!read.box->isChecked());
    read.Wheel(3);
    QVERIFY(read.box->isChecked());
    ReadWindow::Settle();
    const PanePosition top = read.Top();
    for (int i = 0; i < 30; ++i)
      read.Line();
    ReadWindow::Settle();
    QCOMPARE(read.Top(), top);
  }

  void BackAtTheEndTheTickIsOff() {
    ReadWindow read;
    read.Wheel(3);
    read.Line();
    read.Wheel(-10);
    QVERIFY(read.AtEnd());
    QVERIFY(!read.box->isChecked());
    read.Line();
    ReadWindow::Settle();
    QVERIFY(read.AtEnd());
  }

  void ByWhateverMeansHeLeavesTheEnd_data() {
    QTest::addColumn<QString>("means");
    for (const char* means : {"bar", "bar's arrow", "page key", "page key in msg", "selecting key"})
      QTest::newRow(means) << means;
  }
  void ByWhateverMeansHeLeavesTheEnd() {
    QFETCH(const QString, means);
    ReadWindow read;
    QScrollBar* bar = read.view->verticalScrollBar();
    if (means == "bar") {
      bar->setSliderDown(true);
      bar->setSliderPosition(bar->maximum() / 2);
      bar->setSliderDown(false);
    } else if (means == "bar's arrow") {
      bar->triggerAction(QAbstractSlider::SliderSingleStepSub);
    } else if (means == "page key") {
      QTest::keyClick(read.view, Qt::Key_PageUp);
    } else if (means == "page key in msg") {
      QTest::keyClick(read.Find("msg_0"), Qt::Key_PageUp);
    } else {
      QTest::keyClick(read.view, Qt::Key_Home, Qt::ControlModifier | Qt::ShiftModifier);
    }
    QVERIFY(read.box->isChecked());
    QTest::keyClick(read.Find("msg_0"), Qt::Key_End, Qt::ControlModifier);
    QVERIFY(!read.box->isChecked());
  }

  void TheUsersOwnTickStays() {
    ReadWindow read;
    QTest::mouseClick(read.box, Qt::LeftButton, Qt::NoModifier, {8, read.box->height() / 2});
    QVERIFY(read.box->isChecked());
    read.Wheel(3);
    read.Wheel(-10);
    QVERIFY(read.AtEnd());
    QVERIFY(read.box->isChecked());
  }

  // Ticked off and on by hand, the tick is the user's.
  void ATickThatTheUserHasRenewedIsHis() {
    ReadWindow read;
    read.Wheel(3);
    for (int click = 0; click < 2; ++click)
      QTest::mouseClick(read.box, Qt::LeftButton, Qt::NoModifier, {8, read.box->height() / 2});
    QVERIFY(read.box->isChecked());
    read.Wheel(-10);
    QVERIFY(read.box->isChecked());
  }

  void TextDoesNotRunAwayUnderASelection() {
    ReadWindow read;
    const PanePosition from = read.LineFromBelow(5);
    read.DragOver(from, from + 10);
    QVERIFY(read.box->isChecked());
    const PanePosition top = read.Top();
    for (int i = 0; i < 30; ++i)
      read.Line();
    ReadWindow::Settle();
    QCOMPARE(read.Top(), top);
    QTest::mouseRelease(read.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                        read.PointOf(from + 10));
    for (int i = 0; i < 30; ++i)
      read.Line();
    ReadWindow::Settle();
    QCOMPARE(read.Top(), top);
    QVERIFY(read.box->isChecked());
  }

  void AClickHoldsNothingAndASelectionThatIsClearedAtTheEndLetsGo() {
    ReadWindow read;
    const PanePosition from = read.LineFromBelow(5);
    QTest::mouseClick(read.view->viewport(), Qt::LeftButton, Qt::NoModifier, read.PointOf(from));
    QVERIFY(!read.box->isChecked());
    read.DragOver(from, from + 10);
    QTest::mouseRelease(read.view->viewport(), Qt::LeftButton, Qt::NoModifier,
                        read.PointOf(from + 10));
    QVERIFY(read.box->isChecked());
    const QPoint elsewhere = read.PointOf(read.LineFromBelow(8));
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    QTest::mouseClick(read.view->viewport(), Qt::LeftButton, Qt::NoModifier, elsewhere);
    QVERIFY(!read.box->isChecked());
  }

  void AClearedPaneLetsGo() {
    ReadWindow read;
    read.Wheel(3);
    QVERIFY(read.box->isChecked());
    read.tab(0).Rich.Text("");
    QVERIFY(!read.box->isChecked());
  }

  // What the program leads him to, by a search or a notice, is read there.
  void WhatTheProgramShowsIsHeld() {
    ReadWindow read;
    read.tab(0).Rich.ExSetSel(30, 40);
    read.tab(0).Rich.HideSelection(false);
    ReadWindow::Settle();
    QVERIFY(!read.AtEnd());
    QVERIFY(read.box->isChecked());
  }

  void TheKeyLeavesTheBoxAlone() {
    ReadWindow read("[Main]\r\nHoldWhileReading=False\r\n");
    read.Wheel(3);
    QVERIFY(!read.AtEnd());
    QVERIFY(!read.box->isChecked());
    read.Line();
    ReadWindow::Settle();
    QVERIFY(read.AtEnd());
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::ReadingHoldTest)
#include "reading_hold_test.moc"
