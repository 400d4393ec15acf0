// A client on real sockets, timers and files against a service on the loopback that lies, floods
// and cuts. What it does is counted at the service and read off the client.
#include <QEventLoop>
#include <QObject>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <atomic>
#include <chrono>
#include <exception>
#include <functional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/qt/qt_platform.h"
#include "session/connect.h"
#include "session/line_carry.h"
#include "shell/assembly.h"
#include "support/loopback_peer.h"
#include "support/qt/qt_test.h"
#include "support/simulated_platform.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

constexpr const char* kPageHead = "HTTP/1.0 200 OK\r\nContent-Type: text/html\r\n\r\n";
constexpr const char* kOwnRecord = "alice|[-t][]''\n";
constexpr const char* kGoodLine = "..[12:00:01]bob:() a good line\n";

// What it sends on a frame and as a list of users; a frame stays open unless it is cut.
struct Lies {
  std::function<void(PeerConnection& frame)> frame{};
  bool cuts_frame = false;
  std::string users = kOwnRecord;
};

// Serves one connection after the other in a thread of its own.
class LyingService {
 public:
  explicit LyingService(Lies lies) : lies_(std::move(lies)), thread_([this] { Serve(); }) {}
  ~LyingService() {
    stopping_ = true;
    thread_.join();
  }
  LyingService(const LyingService&) = delete;
  LyingService& operator=(const LyingService&) = delete;

  Text port() const { return peer_.port(); }

  std::atomic<int> logins = 0;
  std::atomic<int> frames = 0;
  std::atomic<int> fetches = 0;
  std::atomic<int> commands = 0;
  std::atomic<bool> failed = false;

 private:
  void Serve() {
    while (!stopping_) {
      if (!peer_.AnyoneWaits()) {
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
        continue;
      }
      try {
        Answer(peer_.Accept());
      } catch (const std::exception&) {  // the client has gone away, which it may not here
        failed = true;
      }
    }
  }

  static std::string ReadRequest(PeerConnection& connection) {
    const std::string kLength = "Content-Length: ";
    std::string request;
    while (!request.ends_with("\r\n\r\n")) {
      const std::string byte = connection.Receive(1);
      if (byte.empty()) return {};
      request += byte;
    }
    const std::size_t at = request.find(kLength);
    if (at != std::string::npos)
      connection.Receive(std::stoul(request.substr(at + kLength.size())));
    return request;
  }

  void Answer(PeerConnection connection) {
    const std::string request = ReadRequest(connection);
    if (request.starts_with("POST / ")) {
      ++logins;
      connection.Send("<a href='/frame?a=1&ticket=T1'>");
    } else if (request.starts_with("POST /pframe ")) {
      ++frames;
      connection.Send(std::string(kPageHead) + "<pre>\n");
      if (lies_.frame) lies_.frame(connection);
      if (!lies_.cuts_frame) {
        open_.push_back(std::move(connection));
        return;
      }
    } else if (request.starts_with("POST /chl ")) {
      ++fetches;
      connection.Send(std::string(kPageHead) + "users\n\n." + lies_.users);
    } else if (request.starts_with("POST /newmsg_t ")) {
      ++commands;
      connection.Send(std::string(kPageHead) + "ok");
    }
    connection.Close();
  }

  Lies lies_;
  LoopbackPeer peer_;
  std::vector<PeerConnection> open_;
  std::atomic<bool> stopping_ = false;
  std::thread thread_;
};

// A client whose only tab is on the service.
struct Victim {
  explicit Victim(const LyingService& service)
      : platform(folder.path().toStdString()), client(platform.Ports(desktop)) {
    Assemble(client);
    client.app.ChatHost = "127.0.0.1";
    client.app.ChatPort = service.port();
    TabSession& tab = client.tab(0);
    tab.Login = "alice";
    tab.Password = "secret";
    tab.Channel = "lobby";
    desktop.SetTabVisible(0, true);
    ConnectToChat(client, 0);
  }
  bool Shows(std::string_view text) { return Contains(client.tab(0).Rich.Text(), text); }
  // A loop that runs on: qWaitFor sleeps between any two chunks.
  bool ShowsGoodLineIn(int milliseconds) {
    bool shown = false;
    QEventLoop loop;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &loop, [&] {
      shown = Shows("[12:00:01] bob: a good line\r\n");
      if (shown) loop.quit();
    });
    look.start(50);
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
    return shown;
  }
  Text ErrorLog() {
    return platform.files.Exists("error.log") ? platform.files.Read("error.log") : Text();
  }

  SimulatedDesktop desktop;
  QTemporaryDir folder;
  QtPlatform platform;
  Client client;
};

}  // namespace

class LyingServiceTest : public QObject {
  Q_OBJECT

 private slots:
  void AFrameThatIsCutAtOnceIsNotHammered() {
    LyingService service({.cuts_frame = true});
    Victim victim(service);
    QTest::qWait(1800);
    // The user's, the first of the client's own, and those behind a second and two.
    QVERIFY2(service.logins >= 2 && service.logins <= 4, std::to_string(service.logins).c_str());
    QVERIFY(!service.failed);
  }

  void AFlagThatNeverComesIsNotHammered() {
    LyingService service({.users = "alice|[][]''\n"});
    Victim victim(service);
    QTest::qWait(1800);
    QVERIFY2(service.fetches >= 2 && service.fetches <= 4, std::to_string(service.fetches).c_str());
    QVERIFY2(service.commands >= 1 && service.commands <= 3,
             std::to_string(service.commands).c_str());
    QCOMPARE(service.logins.load(), 1);
    QVERIFY(!service.failed);
  }

  void AListThatNamesTheUserOverAndOverAsksOnce() {
    std::string users;
    for (int i = 0; i < 5000; ++i)
      users += "alice|[][]''\n";
    LyingService service({.users = users});
    Victim victim(service);
    QTest::qWait(1000);
    QVERIFY2(service.fetches >= 2 && service.fetches <= 3, std::to_string(service.fetches).c_str());
    QVERIFY(victim.client.tab(0).BotQueue.size() <= 1);
  }

  void ALineWithoutAnEndIsCutAndTheNextOneIsShown() {
    LyingService service({.frame = [](PeerConnection& frame) {
      const std::string part(1 << 20, 'x');
      for (int i = 0; i < 8; ++i)
        frame.Send(part);
      frame.Send("\n" + std::string(kGoodLine));
      frame.Send("<!-- -->\n");
    }});
    Victim victim(service);
    QVERIFY(victim.ShowsGoodLineIn(8000));
    QVERIFY(victim.client.tab(0).Rich.Length() < PanePosition{2} * 1024 * 1024);
    QVERIFY(victim.client.tab(0).LineCarry.capacity() <= 4 * kLongestLine);
    QVERIFY(victim.ErrorLog().ends_with("a line without an end was cut at 1048576 bytes\r\n"));
    QVERIFY(!service.failed);
  }

  void AFloodOfOddNicksIsReadToItsEnd() {
    LyingService service({.frame = [](PeerConnection& frame) {
      std::string lines;
      for (int i = 0; i < 1000; ++i)
        lines += "..[12:00:00]a=" + std::to_string(i) + ":() spam\n";
      lines += "..[12:00:00]flood.example joins\n" + std::string(kGoodLine);
      frame.Send(lines);
      frame.Send("<!-- -->\n");
    }});
    Victim victim(service);
    QVERIFY(victim.ShowsGoodLineIn(8000));
    QVERIFY(victim.client.tab(0).Rich.Redraw());
    QVERIFY(Contains(victim.ErrorLog(), ". Function: TextOut\r\n"));
    QVERIFY(!service.failed);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::LyingServiceTest)
#include "lying_service_test.moc"
