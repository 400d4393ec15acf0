#include "platform/qt/qt_winsock.h"
#include "platform/socket_error.h"
#include "support/loopback_peer.h"
#include "support/qt/qt_test.h"

#include <QAbstractEventDispatcher>
#include <QElapsedTimer>
#include <QHostInfo>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace parlorwire {
namespace {

using Log = std::vector<std::string>;

// A socket with all its events in a log.
struct RecordedSocket {
  explicit RecordedSocket(std::chrono::milliseconds timeout = QtWinsock::kConnectTimeout)
      : socket(std::make_unique<QtWinsock>(timeout)) {
    socket->events.Connect = [this] {
      log.push_back("Connect");
      if (on_connect) on_connect();
    };
    socket->events.DataArrival = [this](std::size_t bytes_total) {
      log.push_back("DataArrival");
      totals.push_back(bytes_total);
      if (on_data) return on_data();
      chunks.push_back(socket->GetData());
      data += chunks.back();
    };
    socket->events.Close = [this] {
      log.push_back("Close");
      if (on_close) on_close();
    };
    socket->events.Error = [this](int number, const Text& description) {
      log.push_back("Error " + std::to_string(number) + " " + description);
      if (on_error) on_error();
    };
  }

  // Without the arrivals, of which there may be any number.
  Log Ends() const {
    Log ends;
    for (const std::string& event : log)
      if (event != "DataArrival") ends.push_back(event);
    return ends;
  }

  bool Ended() const {
    return !log.empty() && (log.back() == "Close" || log.back().starts_with("Error"));
  }

  std::unique_ptr<QtWinsock> socket;
  Log log;
  std::vector<std::size_t> totals;
  std::vector<Text> chunks;
  Text data;
  std::function<void()> on_connect, on_data, on_close, on_error;
};

const std::string kReset = "Error 10054 The connection is reset by remote side";
const std::string kRefused = "Error 10061 Connection is forcefully rejected";

}  // namespace

class WinsockTest : public QObject {
  Q_OBJECT

 private:
  // Connects and gives the other end.
  static PeerConnection Join(RecordedSocket& recorded, LoopbackPeer& peer) {
    recorded.socket->Connect("127.0.0.1", peer.port());
    PeerConnection other = [&] {
      for (int i = 0; i < 500 && recorded.socket->State() != SocketState::kConnected; ++i)
        QTest::qWait(1);
      return peer.Accept();
    }();
    return other;
  }

  // Long enough for whatever should not happen.
  static void LetTimePass() { QTest::qWait(50); }

 private slots:

  // ---- connecting ----

  void ANewSocketIsClosedAndTakesEveryCall() {
    RecordedSocket recorded;
    QCOMPARE(recorded.socket->State(), SocketState::kClosed);
    recorded.socket->Close();
    recorded.socket->SendData("into nothing");
    QCOMPARE(recorded.socket->GetData(), Text());
    LetTimePass();
    QCOMPARE(recorded.log, Log());
    QCOMPARE(recorded.socket->State(), SocketState::kClosed);
  }

  void ConnectIsAnEventOfTheLoopAndNotOfTheCall() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    recorded.socket->Connect("127.0.0.1", peer.port());
    QCOMPARE(recorded.log, Log());
    QCOMPARE(recorded.socket->State(), SocketState::kConnecting);
    QTRY_COMPARE(recorded.log, Log{"Connect"});
    QCOMPARE(recorded.socket->State(), SocketState::kConnected);
  }

  void WhatIsSentWhileConnectingIsNotSent() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    recorded.on_connect = [&] { recorded.socket->SendData("now"); };
    recorded.socket->Connect("127.0.0.1", peer.port());
    recorded.socket->SendData("too early");
    QTRY_COMPARE(recorded.log, Log{"Connect"});
    PeerConnection other = peer.Accept();
    recorded.socket->Close();
    QCOMPARE(other.Receive(100), std::string("now"));
  }

  void RefusedIs10061() {
    LoopbackPeer peer;
    peer.StopListening();
    RecordedSocket recorded;
    recorded.socket->Connect("127.0.0.1", peer.port());
    QCOMPARE(recorded.log, Log());
    QTRY_COMPARE(recorded.log, Log{kRefused});
    QCOMPARE(recorded.socket->State(), SocketState::kError);
    LetTimePass();
    QCOMPARE(recorded.log.size(), std::size_t{1});
  }

  void APortThatIsNoPortIs10049_data() {
    QTest::addColumn<QByteArray>("port");
    for (const char* port : {"", "0", "65536", "-1", "80a", "http", "0x50", "99999999999", "8 0"})
      QTest::newRow(*port ? port : "empty") << QByteArray(port);
  }
  void APortThatIsNoPortIs10049() {
    QFETCH(QByteArray, port);
    RecordedSocket recorded;
    recorded.socket->Connect("127.0.0.1", port.toStdString());
    QCOMPARE(recorded.log, Log());
    QCOMPARE(recorded.socket->State(), SocketState::kConnecting);
    QTRY_COMPARE(recorded.log, Log{"Error 10049 Address not available from the local machine"});
    QCOMPARE(recorded.socket->State(), SocketState::kError);
  }

  void ANameThatNobodyHasIs11001() {
    RecordedSocket recorded;
    recorded.socket->Connect("x.invalid", "80");
    QTRY_VERIFY_WITH_TIMEOUT(recorded.Ended(), 30000);
    // Where no name server can be asked, the system can't say that there is no such name.
    const bool asked = QHostInfo::fromName("x.invalid").error() == QHostInfo::HostNotFound;
    QCOMPARE(recorded.log, asked ? Log{"Error 11001 Authoritative answer: Host not found"}
                                 : Log{"Error 11002 Non-Authoritative answer: Host not found"});
  }

  void AnEmptyNameIs11001() {
    RecordedSocket recorded;
    recorded.socket->Connect("", "80");
    QTRY_COMPARE(recorded.log, Log{"Error 11001 Authoritative answer: Host not found"});
  }

  void LocalhostIsFoundByName() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    recorded.socket->Connect("localhost", peer.port());
    QTRY_COMPARE(recorded.log, Log{"Connect"});
  }

  void AnAddressOfTheSixthVersionIsConnectedTo() {
    LoopbackPeer peer("::1");
    RecordedSocket recorded;
    recorded.socket->Connect("::1", peer.port());
    QTRY_COMPARE(recorded.log, Log{"Connect"});
  }

  void ConnectIsGivenUpAfterTheTimeout() {
    LoopbackPeer peer("127.0.0.1", 0);
    peer.FillBacklog();
    RecordedSocket recorded(std::chrono::milliseconds(300));
    QElapsedTimer elapsed;
    elapsed.start();
    recorded.socket->Connect("127.0.0.1", peer.port());
    QTRY_COMPARE(recorded.log, Log{"Error 10060 The attempt to connect timed out"});
    QVERIFY(elapsed.elapsed() >= 300);
    QVERIFY(elapsed.elapsed() < 900);
    LetTimePass();
    QCOMPARE(recorded.log.size(), std::size_t{1});
  }

  void TheTimeoutIs21Seconds() { QCOMPARE(QtWinsock::kConnectTimeout, std::chrono::seconds(21)); }

  void CloseWhileConnectingLeavesNoEvent() {
    LoopbackPeer peer("127.0.0.1", 0);
    peer.FillBacklog();
    RecordedSocket recorded(std::chrono::milliseconds(30));
    recorded.socket->Connect("127.0.0.1", peer.port());
    QTest::qWait(10);
    recorded.socket->Close();
    QCOMPARE(recorded.socket->State(), SocketState::kClosed);
    LetTimePass();
    QCOMPARE(recorded.log, Log());
  }

  void CloseRightAfterConnectLeavesNoEvent() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    recorded.socket->Connect("127.0.0.1", peer.port());
    recorded.socket->Close();
    LetTimePass();
    QCOMPARE(recorded.log, Log());
    QVERIFY(!peer.AnyoneWaits());
  }

  void ALookUpThatEndsAfterCloseIsDropped() {
    RecordedSocket recorded;
    recorded.socket->Connect("x.invalid", "80");
    QCoreApplication::processEvents();
    recorded.socket->Close();
    QHostInfo::fromName("x.invalid");
    LetTimePass();
    QCOMPARE(recorded.log, Log());
  }

  void ALookUpOfAnEarlierConnectDoesNotDisturbALaterOne() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    recorded.socket->Connect("x.invalid", "80");
    QCoreApplication::processEvents();
    recorded.socket->Connect("127.0.0.1", peer.port());
    QHostInfo::fromName("x.invalid");
    LetTimePass();
    QCOMPARE(recorded.log, Log{"Connect"});
  }

  void ConnectClosesWhatWasOpenBefore() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection first = Join(recorded, peer);
    first.Send("old");
    PeerConnection second = Join(recorded, peer);
    first.AwaitEnd();
    second.Send("new");
    QTRY_COMPARE(recorded.data, Text("new"));
    QCOMPARE(recorded.Ends(), (Log{"Connect", "Connect"}));
  }

  // ---- how a connection ends ----

  void ACleanCloseIsClose() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    other.Close();
    QTRY_COMPARE(recorded.log, (Log{"Connect", "Close"}));
    QCOMPARE(recorded.socket->State(), SocketState::kClosing);
    LetTimePass();
    QCOMPARE(recorded.log.size(), std::size_t{2});
    recorded.socket->Close();
    QCOMPARE(recorded.socket->State(), SocketState::kClosed);
  }

  void ACleanCloseComesBehindTheData() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    const std::string answer(100'000, 'a');
    other.Send(answer);
    other.Close();
    QTRY_VERIFY(recorded.Ended());
    QCOMPARE(recorded.data, answer);
    QCOMPARE(recorded.Ends(), (Log{"Connect", "Close"}));
  }

  void DataAndCloseThatCameBeforeTheConnectEventComeBehindIt() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    recorded.socket->Connect("127.0.0.1", peer.port());
    QCoreApplication::sendPostedEvents();  // the socket connects, and nobody has heard of it
    PeerConnection other = peer.Accept();
    other.Send("early");
    other.Close();
    QTRY_COMPARE(recorded.log, (Log{"Connect", "DataArrival", "Close"}));
    QCOMPARE(recorded.data, Text("early"));
  }

  void HalfACloseIsClose() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    other.Send("all");
    other.EndSending();
    QTRY_COMPARE(recorded.log, (Log{"Connect", "DataArrival", "Close"}));
    QCOMPARE(recorded.data, Text("all"));
  }

  void AResetOfASilentConnectionIs10054() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    other.Reset();
    QTRY_COMPARE(recorded.log, (Log{"Connect", kReset}));
    QCOMPARE(recorded.socket->State(), SocketState::kError);
    LetTimePass();
    QCOMPARE(recorded.log.size(), std::size_t{2});
  }

  void AResetComesBehindTheData() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    const std::string answer(60'000, 'r');
    other.Send(answer);
    other.Reset();
    QTRY_VERIFY(recorded.Ended());
    QCOMPARE(recorded.data, answer);
    QCOMPARE(recorded.Ends(), (Log{"Connect", kReset}));
  }

  void WhatNobodyListensToIsDropped() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    recorded.socket->events.DataArrival = nullptr;
    PeerConnection other = Join(recorded, peer);
    for (int i = 0; i < 10; ++i) {
      other.Send(std::string(100'000, 'x'));
      QCoreApplication::processEvents();
    }
    other.Close();
    QTRY_COMPARE(recorded.log, (Log{"Connect", "Close"}));
    QCOMPARE(recorded.socket->GetData().size(), std::size_t{0});
  }

  void AResetThatCameBeforeTheConnectEventComesBehindItAndTheData() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    recorded.socket->Connect("127.0.0.1", peer.port());
    QCoreApplication::sendPostedEvents();
    PeerConnection other = peer.Accept();
    const std::string answer(50'000, 'e');
    other.Send(answer);
    other.Reset();
    QTRY_VERIFY(recorded.Ended());
    QCOMPARE(recorded.data, answer);
    QCOMPARE(recorded.Ends(), (Log{"Connect", kReset}));
  }

  void ACloseThatLeavesTheRequestUnreadIs10054() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    recorded.on_connect = [&] { recorded.socket->SendData("POST / HTTP/1.0\r\n\r\n"); };
    PeerConnection other = Join(recorded, peer);
    LetTimePass();
    other.Send("HTTP/1.0 503 Busy\r\n\r\n");
    other.Close();
    QTRY_VERIFY(recorded.Ended());
    QCOMPARE(recorded.data, Text("HTTP/1.0 503 Busy\r\n\r\n"));
    QCOMPARE(recorded.Ends(), (Log{"Connect", kReset}));
  }

  void AnErrorThatASendMeetsFirstComesBehindTheDataAsTheSameError() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    const std::string answer(50'000, 's');
    other.Send(answer);
    other.Reset();
    recorded.socket->SendData(
        "meets the reset");  // the system tells the reset here, and never again
    QCOMPARE(recorded.log, Log{"Connect"});
    QTRY_VERIFY(recorded.Ended());
    QCOMPARE(recorded.data, answer);
    QCOMPARE(recorded.Ends(), (Log{"Connect", kReset}));
  }

  void WritingBehindThePeersEndIs10053() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    other.Send("last words");
    other.Close();
    recorded.socket->SendData("the kernel takes this and is answered by a reset");
    QThread::msleep(20);
    recorded.socket->SendData("this fails");
    QTRY_VERIFY(recorded.Ended());
    QCOMPARE(recorded.data, Text("last words"));
    QCOMPARE(recorded.Ends(),
             (Log{"Connect", "Error 10053 Connection is aborted due to timeout or other failure"}));
  }

  // ---- data ----

  void EachChunkOfThePeerIsAChunk() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    for (const char* chunk : {"HTTP/1.0 200 OK\r\n\r\n", "\n", "<!-- -->\n"}) {
      const std::size_t before = recorded.chunks.size();
      other.Send(chunk);
      QTRY_COMPARE(recorded.chunks.size(), before + 1);
      QCOMPARE(recorded.chunks.back(), Text(chunk));
    }
    QCOMPARE(recorded.totals, (std::vector<std::size_t>{19, 1, 9}));
  }

  void ALongStreamComesInReadsOfTheBudget() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    const std::size_t budget = QtWinsock::kReadBudget;
    other.Send(std::string(2 * budget + 7, 'x'));
    QTRY_COMPARE(recorded.data.size(), 2 * budget + 7);
    QCOMPARE(recorded.totals, (std::vector<std::size_t>{budget, budget, 7}));
  }

  void WhatTheHandlerLeavesComesWithTheNextChunk() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    recorded.on_data = [] {};
    PeerConnection other = Join(recorded, peer);
    other.Send("abc");
    QTRY_COMPARE(recorded.totals, std::vector<std::size_t>{3});
    other.Send("de");
    QTRY_COMPARE(recorded.totals, (std::vector<std::size_t>{3, 5}));
    QCOMPARE(recorded.socket->GetData(), Text("abcde"));
    QCOMPARE(recorded.socket->GetData(), Text());
  }

  void WhatTheHandlerLeavesIsThereAfterTheEnd() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    recorded.on_data = [] {};
    PeerConnection other = Join(recorded, peer);
    other.Send("abc");
    other.Close();
    QTRY_COMPARE(recorded.log, (Log{"Connect", "DataArrival", "Close"}));
    QCOMPARE(recorded.socket->GetData(), Text("abc"));
  }

  void EveryByteArrivesAsItWasSentBothWays() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    std::string all;
    for (int byte = 0; byte < 256; ++byte)
      all += static_cast<char>(byte);
    other.Send(all);
    QTRY_COMPARE(recorded.data, all);
    recorded.socket->SendData(all);
    QCOMPARE(other.Receive(256), all);
  }

  void WhatTheKernelDoesNotTakeIsSentLater() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    std::string big;
    for (int i = 0; big.size() < 20'000'000; ++i)
      big += std::to_string(i) + ",";
    recorded.socket->SendData(big);
    recorded.socket->SendData("the end");
    std::string received;
    while (received.size() < big.size() + 7) {
      received += other.Receive(std::min<std::size_t>(500'000, big.size() + 7 - received.size()));
      QCoreApplication::processEvents();
    }
    QVERIFY(received == big + "the end");
    QCOMPARE(recorded.log, Log{"Connect"});
  }

  // ---- handlers ----

  void CloseInEveryHandlerEndsTheEvents() {
    LoopbackPeer peer;
    for (const std::string closing : {"Connect", "DataArrival", "Close", "Error"}) {
      RecordedSocket recorded;
      const auto close = [&] { recorded.socket->Close(); };
      if (closing == "Connect") recorded.on_connect = close;
      if (closing == "DataArrival") recorded.on_data = close;
      if (closing == "Close") recorded.on_close = close;
      if (closing == "Error") recorded.on_error = close;
      recorded.socket->Connect("127.0.0.1", peer.port());
      QCoreApplication::sendPostedEvents();
      PeerConnection other = peer.Accept();
      other.Send("data");
      if (closing == "Error")
        other.Reset();
      else
        other.Close();
      QTRY_VERIFY(!recorded.log.empty() && recorded.log.back().starts_with(closing));
      LetTimePass();
      QVERIFY(recorded.log.back().starts_with(closing));
      QCOMPARE(recorded.socket->State(), SocketState::kClosed);
      QCOMPARE(recorded.socket->GetData(), Text());
    }
  }

  void ConnectInTheHandlersBeginsAnew() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    int rounds = 0;
    const auto again = [&] {
      if (++rounds <= 3) recorded.socket->Connect("127.0.0.1", peer.port());
    };
    recorded.on_close = again;
    recorded.on_error = again;
    recorded.socket->Connect("127.0.0.1", peer.port());
    for (int i = 0; i < 4; ++i) {
      QTRY_VERIFY(peer.AnyoneWaits());
      PeerConnection other = peer.Accept();
      if (i % 2 == 0)
        other.Close();
      else
        other.Reset();
    }
    QTRY_COMPARE(recorded.log, (Log{"Connect", "Close", "Connect", kReset, "Connect", "Close",
                                    "Connect", kReset}));
  }

  void ConnectInDataArrivalLeavesTheRestOfTheOldStream() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection first = Join(recorded, peer);
    recorded.on_data = [&] {
      recorded.on_data = nullptr;
      recorded.socket->Connect("127.0.0.1", peer.port());
    };
    first.Send(std::string(100'000, 'o'));
    QTRY_VERIFY(peer.AnyoneWaits());
    PeerConnection second = peer.Accept();
    second.Send("n");
    QTRY_COMPARE(recorded.data, Text("n"));
    QCOMPARE(recorded.log, (Log{"Connect", "DataArrival", "Connect", "DataArrival"}));
  }

  void EveryHandlerMayDestroyItsSocket() {
    LoopbackPeer peer;
    for (const std::string last : {"Connect", "DataArrival", "Close", "Error", "Error 10061"}) {
      RecordedSocket recorded;
      const auto destroy = [&] { recorded.socket.reset(); };
      if (last == "Connect") recorded.on_connect = destroy;
      if (last == "DataArrival") recorded.on_data = destroy;
      if (last == "Close") recorded.on_close = destroy;
      if (last.starts_with("Error")) recorded.on_error = destroy;
      if (last == "Error 10061") {
        LoopbackPeer nobody;
        nobody.StopListening();
        recorded.socket->Connect("127.0.0.1", nobody.port());
      } else {
        recorded.socket->Connect("127.0.0.1", peer.port());
        QCoreApplication::sendPostedEvents();
        PeerConnection other = peer.Accept();
        other.Send("data");
        if (last == "Error")
          other.Reset();
        else
          other.Close();
      }
      QTRY_VERIFY(!recorded.socket);
      LetTimePass();
      QVERIFY(recorded.log.back().starts_with(last));
    }
  }

  void ASocketMayBeDestroyedWhileItConnects() {
    LoopbackPeer peer("127.0.0.1", 0);
    for (const char* host : {"127.0.0.1", "x.invalid"}) {
      RecordedSocket recorded;
      recorded.socket->Connect(host, peer.port());
      QCoreApplication::processEvents();
      recorded.socket.reset();
      LetTimePass();
      QVERIFY(recorded.log.size() <= 1);
    }
  }

  void TheNextChunkWaitsForAHandlerThatRunsTheLoop() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    int depth = 0, deepest = 0;
    PeerConnection other = Join(recorded, peer);
    recorded.on_data = [&] {
      deepest = std::max(deepest, ++depth);
      QTest::qWait(5);
      recorded.data += recorded.socket->GetData();
      --depth;
    };
    other.Send(std::string(5 * QtWinsock::kReadBudget, 'd'));
    other.Close();
    QTRY_VERIFY(recorded.Ended());
    QCOMPARE(deepest, 1);
    QCOMPARE(recorded.data.size(), 5 * QtWinsock::kReadBudget);
    QCOMPARE(recorded.Ends(), (Log{"Connect", "Close"}));
  }

  void TheNextChunkWaitsAlsoWhenAnErrorIsKnownAlready() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    int depth = 0, deepest = 0;
    PeerConnection other = Join(recorded, peer);
    recorded.on_data = [&] {
      deepest = std::max(deepest, ++depth);
      recorded.data += recorded.socket->GetData();
      recorded.socket->SendData("meets the reset the first time");
      QTest::qWait(5);
      --depth;
    };
    other.Send(std::string(3 * QtWinsock::kReadBudget, 'd'));
    other.Reset();
    QTRY_VERIFY(recorded.Ended());
    QCOMPARE(deepest, 1);
    QCOMPARE(recorded.data.size(), 3 * QtWinsock::kReadBudget);
    QCOMPARE(recorded.Ends(), (Log{"Connect", kReset}));
  }

  void AHandlerThatRunsTheLoopMayCloseThere() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    recorded.on_data = [&] {
      QTimer::singleShot(1, [&] { recorded.socket->Close(); });
      QTest::qWait(50);
    };
    other.Send("data");
    other.Close();
    QTRY_COMPARE(recorded.socket->State(), SocketState::kClosed);
    LetTimePass();
    QCOMPARE(recorded.log, (Log{"Connect", "DataArrival"}));
  }

  // ---- the event loop ----

  void APeerThatFloodsDoesNotStarveATimer() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    std::size_t received = 0;
    recorded.on_data = [&] { received += recorded.socket->GetData().size(); };
    PeerConnection other = Join(recorded, peer);
    const std::string flood(1'000'000, 'f');
    int ticks = 0;
    QTimer filler, timer;
    // Before each round of the loop the socket is full again.
    connect(&filler, &QTimer::timeout, [&] { other.SendSome(flood); });
    filler.start(0);
    connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(20);
    QElapsedTimer elapsed;
    elapsed.start();
    QTRY_VERIFY_WITH_TIMEOUT(elapsed.elapsed() > 1000, 5000);
    QVERIFY(received > 1'000'000);
    QVERIFY2(ticks >= 20, qPrintable(QString::number(ticks)));
  }

  void ASilentConnectionWakesNobody() {
    LoopbackPeer peer;
    RecordedSocket recorded;
    PeerConnection other = Join(recorded, peer);
    recorded.socket->SendData("request");
    LetTimePass();
    // With no event to wait for, a look for one that is there finds none.
    for (int i = 0; i < 50; ++i)
      QVERIFY(!QCoreApplication::eventDispatcher()->processEvents(QEventLoop::AllEvents));
    QCOMPARE(recorded.log, Log{"Connect"});
  }
};

}  // namespace parlorwire

EVENT_LOOP_TEST(parlorwire::WinsockTest)
#include "qt_winsock_test.moc"
