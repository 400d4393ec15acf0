#include "platform/qt/bus_tray_host.h"

#include <QTest>
#include <memory>

#include "support/qt/fake_bus_services.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

struct Watched {
  Watched() {
    host.Changed = [this] { ++changes; };
  }
  BusTrayHost host{QDBusConnection::sessionBus()};
  int changes = 0;
};

}  // namespace

class BusTrayHostTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { QVERIFY2(QDBusConnection::sessionBus().isConnected(), "needs a bus"); }

  void WithoutAWatcherThereIsNone() {
    Watched watched;
    QVERIFY(!watched.host.Known());
    QTRY_VERIFY(watched.host.Known());
    QVERIFY(!watched.host.There());
    QCOMPARE(watched.changes, 1);
  }

  void WithoutABusThereIsNone() {
    const BusTrayHost host(QDBusConnection("there is none"));
    QVERIFY(host.Known());
    QVERIFY(!host.There());
  }

  void OneThatIsThereIsFound() {
    FakeStatusNotifierWatcher watcher(true);
    Watched watched;
    QTRY_VERIFY(watched.host.There());
    QVERIFY(watched.host.Known());
    QCOMPARE(watched.changes, 1);
  }

  void AWatcherThatComesLateIsFoundAndMissedWhenItGoes() {
    Watched watched;
    QTRY_VERIFY(watched.host.Known());
    auto watcher = std::make_unique<FakeStatusNotifierWatcher>(true);
    QTRY_VERIFY(watched.host.There());
    watcher.reset();
    QTRY_VERIFY(!watched.host.There());
    watcher = std::make_unique<FakeStatusNotifierWatcher>(true);
    QTRY_VERIFY(watched.host.There());
  }

  void AHostThatComesAndGoesIsToldByItsWatcher() {
    FakeStatusNotifierWatcher watcher(false);
    Watched watched;
    QTRY_VERIFY(watched.host.Known());
    QVERIFY(!watched.host.There());
    watcher.SetHost(true);
    emit watcher.StatusNotifierHostRegistered();
    QTRY_VERIFY(watched.host.There());
    watcher.SetHost(false);
    emit watcher.StatusNotifierHostUnregistered();
    QTRY_VERIFY(!watched.host.There());
  }

  void AWatcherThatTellsNothingIsAskedAgain() {
    FakeStatusNotifierWatcher watcher(false);
    Watched watched;
    QTRY_VERIFY(watched.host.Known());
    watcher.SetHost(true);
    QTRY_VERIFY(watched.host.There());
  }

  void AHostThatIsThereIsAskedForNoMore() {
    FakeStatusNotifierWatcher watcher(true);
    Watched watched;
    QTRY_VERIFY(watched.host.There());
    QTest::qWait(1500);
    QCOMPARE(watcher.questions, 1);
  }
};

}  // namespace parlorwire

EVENT_LOOP_TEST(parlorwire::BusTrayHostTest)
#include "bus_tray_host_test.moc"
