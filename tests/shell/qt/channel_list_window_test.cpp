#include <QAbstractScrollArea>
#include <QEvent>
#include <QObject>

#include "session/connect.h"
#include "shell/qt/windows_fixture.h"
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
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::ChannelListWindowTest)
#include "channel_list_window_test.moc"
