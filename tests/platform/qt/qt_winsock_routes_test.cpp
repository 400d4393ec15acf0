// What a socket reports of a network that doesn't let it through. The process takes a network and a
// hosts file of its own for it, and reaches no other.
#include <sched.h>
#include <sys/mount.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHostInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <string>
#include <vector>

#include "platform/qt/qt_winsock.h"
#include "support/loopback_peer.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

// Set by main, which must do it before there is a second thread.
bool has_own_network = false;

bool Run(const QString& command) {
  return QProcess::execute("/bin/sh", {"-c", command}) == 0;
}

}  // namespace

class WinsockRoutesTest : public QObject {
  Q_OBJECT

  QTemporaryDir folder;

  // All that a connect ends with.
  static QByteArray Outcome(const Text& host, const Text& port,
                            std::chrono::milliseconds timeout = std::chrono::seconds(21)) {
    QtWinsock socket(timeout);
    QByteArray outcome;
    socket.events.Connect = [&] { outcome += "Connect;"; };
    socket.events.Error = [&](int number, const Text& description) {
      outcome += QByteArray::number(number) + " " + QByteArray::fromStdString(description) + ";";
    };
    socket.Connect(host, port);
    if (!QTest::qWaitFor([&] { return !outcome.isEmpty(); }, 30'000)) return "nothing";
    QTest::qWait(20);
    return outcome;
  }

 private slots:
  void initTestCase() {
    if (!has_own_network) QSKIP("this machine doesn't allow a network namespace of our own");
    const bool made =
        Run("ip link set lo up && "
            "ip link add v0 type veth peer name v1 && ip addr add 10.77.0.1/24 dev v0 && "
            "ip link set v0 up && ip link set v1 up && "
            "ip route add 10.77.1.0/24 dev v0 && "
            "ip neigh add 10.77.1.5 lladdr 02:00:00:00:00:05 dev v0 nud permanent && "
            "ip route add unreachable 10.77.2.0/24 && ip route add prohibit 10.77.3.0/24 && "
            "ip route add blackhole 10.77.4.0/24");
    if (!made) QSKIP("the network can't be set up: ip of iproute2 and veth links are needed");
    QFile hosts(folder.filePath("hosts"));
    QVERIFY(hosts.open(QIODevice::WriteOnly));
    hosts.write(
        "127.0.0.1 localhost\n"
        "127.0.0.2 two.test\n127.0.0.3 two.test\n"
        "10.77.2.1 last-refuses.test\n127.0.0.1 last-refuses.test\n");
    hosts.close();
    QVERIFY(mount(qPrintable(hosts.fileName()), "/etc/hosts", nullptr, MS_BIND, nullptr) == 0);
  }

  void NoRouteIs10051() {
    QCOMPARE(Outcome("10.99.0.1", "80"),
             QByteArray("10051 The network cannot be reached from this host at this time;"));
  }

  void AnUnreachableHostIs10065() {
    QCOMPARE(Outcome("10.77.2.1", "80"), QByteArray("10065 No route to host;"));
  }

  void AHostOfTheOwnNetworkThatIsOffIs10065() {
    QCOMPARE(Outcome("10.77.0.9", "80"), QByteArray("10065 No route to host;"));
  }

  void AProhibitedRouteIs10013() {
    QCOMPARE(Outcome("10.77.3.1", "80"), QByteArray("10013 Permission denied;"));
  }

  void AnErrorWithoutANumberIs10022() {
    QCOMPARE(Outcome("10.77.4.1", "80"), QByteArray("10022 Invalid argument;"));
  }

  void DroppedPacketsAre10060AfterTheTimeout() {
    QElapsedTimer elapsed;
    elapsed.start();
    QCOMPARE(Outcome("10.77.1.5", "80", std::chrono::milliseconds(500)),
             QByteArray("10060 The attempt to connect timed out;"));
    QVERIFY(elapsed.elapsed() >= 500);
    QVERIFY(elapsed.elapsed() < 1500);
  }

  void DroppedPacketsAre10060AsSoonAsTheSystemGivesUp() {
    if (!Run("echo 1 > /proc/sys/net/ipv4/tcp_syn_retries"))
      QSKIP("the network's settings can't be changed here");
    QElapsedTimer elapsed;
    elapsed.start();
    QCOMPARE(Outcome("10.77.1.5", "80"), QByteArray("10060 The attempt to connect timed out;"));
    QVERIFY(elapsed.elapsed() < 15'000);
  }

  void AConnectionWhosePathDiesIs10060BehindTheData() {
    const bool limited = Run("echo 3 > /proc/sys/net/ipv4/tcp_retries2");
    if (!limited || !Run("nft add table ip t && "
                         "nft 'add chain ip t o { type filter hook output priority 0; }'"))
      QSKIP("nft of nftables is needed");
    LoopbackPeer peer("127.0.0.9");
    QtWinsock socket;
    QByteArray log;
    socket.events.DataArrival = [&](std::size_t) {
      log += QByteArray::fromStdString(socket.GetData()) + ";";
    };
    socket.events.Close = [&] { log += "Close;"; };
    socket.events.Error = [&](int number, const Text&) { log += QByteArray::number(number) + ";"; };
    socket.Connect("127.0.0.9", peer.port());
    QTRY_COMPARE(socket.State(), SocketState::kConnected);
    PeerConnection other = peer.Accept();
    other.Send("last");
    QTRY_COMPARE(log, QByteArray("last;"));
    QVERIFY(Run("nft add rule ip t o ip daddr 127.0.0.9 drop"));
    socket.SendData("into nothing");
    QTRY_COMPARE_WITH_TIMEOUT(log, QByteArray("last;10060;"), 30'000);
    QVERIFY(Run("nft delete table ip t"));
  }

  void ANameServerThatCantBeAskedIs11002() {
    QCOMPARE(Outcome("x.invalid", "80"),
             QByteArray("11002 Non-Authoritative answer: Host not found;"));
  }

  void TheNextAddressIsTriedWhenOneRefuses() {
    const QList<QHostAddress> found = QHostInfo::fromName("two.test").addresses();
    QCOMPARE(found.size(), 2);
    LoopbackPeer peer(found[1].toString().toStdString());
    QCOMPARE(Outcome("two.test", peer.port()), QByteArray("Connect;"));
    QVERIFY(peer.AnyoneWaits());
  }

  void TheFirstAddressIsTheFirstThatIsTried() {
    const QList<QHostAddress> found = QHostInfo::fromName("two.test").addresses();
    LoopbackPeer peer(found[0].toString().toStdString());
    QCOMPARE(Outcome("two.test", peer.port()), QByteArray("Connect;"));
    QVERIFY(peer.AnyoneWaits());
  }

  void ASilentAddressLeavesTimeForTheNext() {
    const QList<QHostAddress> found = QHostInfo::fromName("two.test").addresses();
    LoopbackPeer silent(found[0].toString().toStdString(), 0);
    silent.FillBacklog();
    LoopbackPeer peer(found[1].toString().toStdString(), 16, silent.port_number());
    QElapsedTimer elapsed;
    elapsed.start();
    QCOMPARE(Outcome("two.test", peer.port(), std::chrono::milliseconds(2000)),
             QByteArray("Connect;"));
    QVERIFY(elapsed.elapsed() >= 999);
    QVERIFY(elapsed.elapsed() < 1900);
    QVERIFY(peer.AnyoneWaits());
  }

  void SilentAddressesShareTheTimeout() {
    const QList<QHostAddress> found = QHostInfo::fromName("two.test").addresses();
    LoopbackPeer silent(found[0].toString().toStdString(), 0);
    silent.FillBacklog();
    LoopbackPeer silent_too(found[1].toString().toStdString(), 0, silent.port_number());
    silent_too.FillBacklog();
    QElapsedTimer elapsed;
    elapsed.start();
    QCOMPARE(Outcome("two.test", silent.port(), std::chrono::milliseconds(500)),
             QByteArray("10060 The attempt to connect timed out;"));
    QVERIFY(elapsed.elapsed() >= 498);
    QVERIFY(elapsed.elapsed() < 1500);
  }

  void TheErrorOfTheLastAddressIsReported() {
    const QList<QHostAddress> found = QHostInfo::fromName("last-refuses.test").addresses();
    QCOMPARE(found.size(), 2);
    LoopbackPeer nobody;
    nobody.StopListening();
    const bool loopback_last = found[1].isLoopback();
    QCOMPARE(Outcome("last-refuses.test", nobody.port()),
             loopback_last ? QByteArray("10061 Connection is forcefully rejected;")
                           : QByteArray("10065 No route to host;"));
  }
};

namespace {

int RunInOwnNetwork(int argc, char** argv) {
  has_own_network = unshare(CLONE_NEWNET | CLONE_NEWNS) == 0 &&
                    mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
  return RunQtTest<QCoreApplication, WinsockRoutesTest>(argc, argv);
}

const QtTestFile routes_file(__FILE__, RunInOwnNetwork);

}  // namespace
}  // namespace parlorwire

#include "qt_winsock_routes_test.moc"
