#include "platform/qt/qt_platform.h"
#include "support/loopback_peer.h"
#include "support/qt/qt_test.h"
#include "support/simulated_platform.h"
#include "support/temporary_folder.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTest>

namespace parlorwire {

class PlatformTest : public QObject {
  Q_OBJECT

 private slots:
  void TheClockIsThatOfTheUser() {
    const QDateTime before = QDateTime::currentDateTime();
    const LocalTime now = QtClock().Now();
    const QDateTime after = QDateTime::currentDateTime();
    const QDateTime read(QDate(now.year, now.month, now.day),
                         QTime(now.hour, now.minute, now.second));
    QVERIFY(read >= before.addMSecs(-before.time().msec()));
    QVERIFY(read <= after);
  }

  void TheClockIsOfTheTimeZone() {
    const QByteArray zone = qgetenv("TZ");
    qputenv("TZ", "KAT-5:45");
    const QDateTime there = QDateTime::currentDateTimeUtc().addSecs(5 * 3600 + 45 * 60);
    const LocalTime now = QtClock().Now();
    zone.isEmpty() ? qunsetenv("TZ") : qputenv("TZ", zone);
    const QDateTime read(QDate(now.year, now.month, now.day),
                         QTime(now.hour, now.minute, now.second), Qt::UTC);
    QVERIFY(std::abs(there.secsTo(read)) <= 1);
  }

  void AClockThatHasBeenAskedGoesOn() {
    const QtClock clock;
    const int second = clock.Now().second;
    QTRY_VERIFY(clock.Now().second != second);
  }

  void ThePortsAreThoseOfThePlatformAndTheDesktopIsTheGivenOne() {
    TemporaryFolder folder;
    QtPlatform platform(folder.path());
    SimulatedDesktop desktop;
    const Platform ports = platform.Ports(desktop);
    QCOMPARE(&ports.desktop, &desktop);
    ports.files.Replace("config.ini", "x");
    QCOMPARE(folder.Content("config.ini"), std::string("x"));
    QVERIFY(ports.random.Next() < 1);
    QVERIFY(ports.clock.Now().year >= 2024);
    ports.clipboard.SetText("y");
    QCOMPARE(ports.clipboard.GetText(), Text("y"));
  }

  void AStartRemovesWhatAKilledProgramLeft() {
    TemporaryFolder folder;
    folder.Put("config.ini", "whole");
    folder.Put("config.ini~" + std::to_string(GoneProcess()), "half");
    QtPlatform platform(folder.path());
    QCOMPARE(folder.Entries(), 1);
    QCOMPARE(folder.Content("config.ini"), std::string("whole"));
  }

  void NoFileStaysOpenWhenTheEventIsOver() {
    TemporaryFolder folder;
    QtPlatform platform(folder.path());
    const auto open_files = [] {
      return QDir(QStringLiteral("/proc/self/fd"))
          .entryList(QDir::System | QDir::AllEntries)
          .size();
    };
    const auto before = open_files();
    platform.files.Append("file", "x");
    QCOMPARE(folder.Content("file"), std::string("x"));
    QCOMPARE(open_files(), before + 1);
    QCoreApplication::processEvents();
    QCOMPARE(open_files(), before);
  }

  void AFileThatIsOpenGoesWithThePlatform() {
    TemporaryFolder folder;
    {
      QtPlatform platform(folder.path());
      platform.files.Append("file", "x");
    }
    QCoreApplication::processEvents();  // what was to be called then is not
    QCOMPARE(folder.Content("file"), std::string("x"));
  }

  void EachSocketAndTimerIsANewOneThatWorks() {
    TemporaryFolder folder;
    QtPlatform platform(folder.path());
    SimulatedDesktop desktop;
    const Platform ports = platform.Ports(desktop);
    LoopbackPeer peer;
    bool connected = false, ticked = false;
    const auto socket = ports.NewWinsock();
    const auto other_socket = ports.NewWinsock();
    socket->events.Connect = [&] { connected = true; };
    socket->Connect("127.0.0.1", peer.port());
    const auto timer = ports.NewTimer();
    timer->Tick = [&] { ticked = true; };
    timer->Interval(1);
    timer->Enabled(true);
    QTRY_VERIFY(connected && ticked);
    QCOMPARE(other_socket->State(), SocketState::kClosed);
  }

  void TheApplicationFolderIsTheProgramsWhereItCanBeWrittenTo() {
    QCOMPARE(DesktopApplicationFolder(),
             std::filesystem::path(QCoreApplication::applicationDirPath().toStdString()));
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::PlatformTest)
#include "qt_platform_test.moc"
