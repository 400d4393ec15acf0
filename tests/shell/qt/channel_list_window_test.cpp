#include <QAbstractScrollArea>
#include <QEvent>
#include <QObject>

#include "session/connect.h"
#include "session/leaving.h"
#include "session/status.h"
#include "shell/qt/windows_fixture.h"
#include "support/chat.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

class PaintCounter : public QObject {
 public:
  explicit PaintCounter(QObject* watched) { watched->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++paints;
    return false;
  }
  int paints = 0;
};

// Tab 0 with two hundred lines in its pane, seen at their end.
struct LongPane {
  LongPane() {
    windows.desktop.SetTabVisible(0, true);
    windows.tab(0).LoginShown = true;
    windows.tab(0).Login = "alice";
    windows.tab(0).Channel = "hall";
    for (int i = 0; i < 200; ++i) {
      pane().ExSetSel(pane().Length(), pane().Length());
      pane().ReplaceSel("line " + std::to_string(i) + "\r\n");
    }
    pane().VScroll(PaneScroll::kBottom);
    Settle();
    if (!AtEnd()) qFatal("the pane is not at its end");
  }
  static void Settle() {
    for (int round = 0; round < 4; ++round)
      QTest::qWait(8);
  }
  bool AtEnd() {
    const PaneScrollInfo bar = pane().GetScrollInfo();
    return bar.pos + bar.page >= bar.max;
  }
  RichTextBox& pane() { return windows.tab(0).Rich; }
  Windows windows;
};

// A page of channels, as it is on the wire.
Text Page() {
  return Koi(
      "HTTP/1.0 200 OK\r\n\r\nэтот стиль (номер 9) предназначен для роботов\n"
      "channel: yard\ntopic: news\nuser: bob\nuser: carl\n"_w);
}

}  // namespace

class ChannelListWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void AListOfThousandsIsPaintedAFewTimes() {
    Windows windows;
    windows.desktop.SetTabVisible(0, true);
    windows.tab(0).LoginShown = true;
    windows.tab(0).Login = "alice";
    ConnectToChat(windows.client, 0);
    SimulatedSocket& socket = windows.Winsock1();
    socket.Accept();
    socket.Deliver("&ticket=T'");
    socket.PeerCloses();
    socket.Accept();
    Text page = "HTTP/1.0 200 OK\r\n\r\n\nid=1\n";
    for (int i = 0; i < 3000; ++i)
      page += "user: nick" + std::to_string(i) + "\n";
    socket.Deliver(page);
    QTest::qWait(50);
    PaintCounter counter(windows.Find<QAbstractScrollArea>("Rich_0")->viewport());
    socket.PeerCloses();
    QTest::qWait(50);
    QVERIFY(windows.tab(0).Rich.Text().ends_with("nick2999\r\n"));
    QVERIFY(windows.tab(0).Rich.Redraw());
    QVERIFY(counter.paints >= 1);
    QVERIFY2(counter.paints < 10, QByteArray::number(counter.paints));
  }

  void TheListBehindARefusedChannelIsSeen() {
    LongPane tab;
    ConnectToChat(tab.windows.client, 0);
    SimulatedSocket& socket = tab.windows.Winsock1();
    socket.Accept();
    socket.Deliver("&ticket=T'");
    socket.PeerCloses();
    socket.Accept();
    socket.Deliver(Page());
    LongPane::Settle();
    QVERIFY(tab.AtEnd());
    socket.PeerCloses();
    QVERIFY(tab.pane().Text().ends_with("carl\r\n"));
    LongPane::Settle();
    QVERIFY(tab.AtEnd());
  }

  void TheListBehindALeaveIsSeen() {
    LongPane tab;
    LeaveChannel(tab.windows.client, 0);
    SimulatedSocket& socket = Simulated(tab.windows.tab(0).Winsock5);
    socket.Accept();
    socket.Deliver(Page());
    socket.PeerCloses();
    QVERIFY(tab.pane().Text().ends_with("carl\r\n"));
    LongPane::Settle();
    QVERIFY(tab.AtEnd());
  }

  void AReaderWhoHasGoneUpIsNotMovedByAList() {
    LongPane tab;
    tab.windows.desktop.SetStopScroll(0, true);
    QTest::keyClick(tab.windows.Find("msg_0"), Qt::Key_PageUp);
    LongPane::Settle();
    const PanePosition seen = tab.pane().CharFromPos(2, 2);
    LeaveChannel(tab.windows.client, 0);
    SimulatedSocket& socket = Simulated(tab.windows.tab(0).Winsock5);
    socket.Accept();
    socket.Deliver(Page());
    socket.PeerCloses();
    LongPane::Settle();
    QCOMPARE(tab.pane().CharFromPos(2, 2), seen);
  }

  void WithStopScrollAStatusLineTakesAReaderAtTheEndAlong() {
    LongPane tab;
    tab.windows.desktop.SetStopScroll(0, true);
    StatusOut(tab.windows.client, "x", 0);
    LongPane::Settle();
    QVERIFY(tab.AtEnd());
    QTest::keyClick(tab.windows.Find("msg_0"), Qt::Key_PageUp);
    LongPane::Settle();
    const PanePosition seen = tab.pane().CharFromPos(2, 2);
    StatusOut(tab.windows.client, "y", 0);
    LongPane::Settle();
    QCOMPARE(tab.pane().CharFromPos(2, 2), seen);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::ChannelListWindowTest)
#include "channel_list_window_test.moc"
