// Two clients with ten tabs each on a service that goes wrong at random, over real sockets, files,
// timers and windows. SOAK_SEED in the environment chooses the faults; they meet other bytes in
// each run all the same.
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QObject>
#include <QTemporaryDir>
#include <QTest>
#include <array>
#include <functional>
#include <memory>

#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_timer.h"
#include "platform/qt/qt_winsock.h"
#include "platform/qt/text_conversion.h"
#include "session/connect.h"
#include "shell/assembly.h"
#include "shell/qt/client_main.h"
#include "shell/qt/qt_desktop.h"
#include "support/frame_witness.h"
#include "support/qt/qt_test.h"
#include "support/qt/service_thread.h"
#include "support/simulated_platform.h"
#include "text/cut.h"
#include "users/posting.h"

namespace parlorwire {
namespace {

// A real socket, and what a witness makes of the frames that it brings.
class WitnessedWinsock : public Winsock {
 public:
  explicit WitnessedWinsock(LineCounts& counts) : counts_(counts) {
    inner_.events = {[this] {
                       if (events.Connect) events.Connect();
                     },
                     [this](std::size_t bytes) {
                       if (events.DataArrival) events.DataArrival(bytes);
                     },
                     [this] {
                       if (events.Close) events.Close();
                     },
                     [this](int number, const Text& description) {
                       if (events.Error) events.Error(number, description);
                     }};
  }

  void Connect(const Text& host, const Text& port) override {
    witness_.Begin();
    request_.clear();
    inner_.Connect(host, port);
  }
  void Close() override { inner_.Close(); }
  void SendData(const Text& bytes) override {
    request_ += bytes;
    inner_.SendData(bytes);
  }
  Text GetData() override {
    Text bytes = inner_.GetData();
    if (request_.starts_with("POST /pframe "))
      for (const Text& line : witness_.Chunk(bytes))
        ++counts_[line];
    return bytes;
  }
  SocketState State() const override { return inner_.State(); }

 private:
  QtWinsock inner_;
  FrameWitness witness_;
  LineCounts& counts_;
  Text request_;
};

constexpr int kPatienceMs = 2500;  // of a user with a tab that stands idle

// A client with ten tabs on ten channels.
struct Talker {
  Talker(Desktop& shown_on, const Text& login, const Text& port)
      : nick(login), platform(folder.path().toStdString()), client(platform.Ports(shown_on)) {
    client.app.ChatHost = "127.0.0.1";
    client.app.ChatPort = port;
    client.app.ReconnectDelayValue = 600;
    client.app.ActionDelayValue = 300;
    for (int i = 0; i < kTabCount; ++i)
      client.tab(i).Winsock1 = std::make_unique<WitnessedWinsock>(expected.at(Slot(i)));
    Assemble(client);
    for (QElapsedTimer& timer : idle)
      timer.start();
  }

  static std::size_t Slot(int tab) { return static_cast<std::size_t>(tab); }

  void LogIn(int tab) {
    client.tab(tab).Login = nick;
    client.tab(tab).Password = "secret";
    client.tab(tab).Channel = "room" + std::to_string(tab);
    client.tab(tab).LoginShown = true;
    client.platform.desktop.SetTabVisible(tab, true);
    ConnectToChat(client, tab);
    idle.at(Slot(tab)).restart();
  }

  // Logs in again where nothing has gone on for a while.
  void TakeCare() {
    for (int i = 0; i < kTabCount; ++i) {
      if (client.tab(i).Connected) idle.at(Slot(i)).restart();
      if (idle.at(Slot(i)).elapsed() > kPatienceMs) LogIn(i);
    }
  }

  bool Everywhere() const {
    for (int i = 0; i < kTabCount; ++i)
      if (!client.tab(i).Connected || client.tab(i).Winsock1->State() != SocketState::kConnected)
        return false;
    return true;
  }

  int Shown() const {
    int shown = 0;
    for (const LineCounts& counts : expected)
      for (const auto& [line, count] : counts)
        shown += count;
    return shown;
  }

  QByteArray WrongInPane(int tab) {
    return QByteArray::fromStdString(
        Difference(expected.at(Slot(tab)), CountNumbered(client.tab(tab).Rich.Text())));
  }

  QByteArray WrongInLog(int tab) const {
    LineCounts found;
    QDir logs(folder.filePath("Logs/room" + QString::number(tab)));
    for (const QString& name : logs.entryList({"*.log"})) {
      QFile log(logs.filePath(name));
      if (!log.open(QIODevice::ReadOnly)) return "unreadable";
      Add(CountNumbered(log.readAll().toStdString()), found);
    }
    return QByteArray::fromStdString(Difference(expected.at(Slot(tab)), found));
  }

  Text nick;
  QTemporaryDir folder;
  QtPlatform platform;
  std::array<LineCounts, kTabCount> expected;
  std::array<QElapsedTimer, kTabCount> idle;
  Client client;
};

}  // namespace

class SoakSocketsTest : public QObject {
  Q_OBJECT

  int said = 0;

  void SayLines(Talker& talker) {
    for (int i = 0; i < kTabCount; ++i) {
      if (!talker.client.tab(i).Connected || said % 3 == i % 3) continue;
      talker.client.platform.desktop.SetMsgText(i, NumberedLine(++said));
      button_say_MouseUp(talker.client, i);
    }
  }

 private slots:
  void WhatComesOverFailingConnectionsIsShownOnce() {
    bool given = false;
    const int from_outside = qEnvironmentVariableIntValue("SOAK_SEED", &given);
    const auto seed = static_cast<std::uint64_t>(given ? from_outside : 1);
    qInfo("seed %d", static_cast<int>(seed));

    service::ServerOptions options;
    options.inhabitants.present = false;
    options.chat.keep_alive_ms = 200;
    options.chat.grace_ms = 1000;
    options.chat.history = 5;
    options.seed = seed;
    options.control = true;
    options.misbehaviour = *service::ParseMisbehaviour("random:12");
    ServiceThread chat(options);

    QtDesktop desktop;
    Talker seen(desktop, "alice", chat.port());
    client_main window(seen.client, desktop);
    window.Load();
    seen.client.app.ChatHost = "127.0.0.1";
    seen.client.app.ChatPort = chat.port();
    seen.client.app.ReconnectDelayValue = 600;
    window.show();
    SimulatedDesktop no_desktop;
    Talker unseen(no_desktop, "bob", chat.port());
    for (int i = 0; i < kTabCount; ++i) {
      seen.LogIn(i);
      unseen.LogIn(i);
    }

    QElapsedTimer run;
    run.start();
    bool stopped = false;
    for (int turn = 0; run.elapsed() < 9000; ++turn) {
      SayLines(turn % 2 == 0 ? seen : unseen);
      desktop.SetActiveTab(turn % kTabCount);
      seen.TakeCare();
      unseen.TakeCare();
      if (!stopped && run.elapsed() > 4000) {
        stopped = true;
        chat.Stop();
        QTest::qWait(700);
        chat.Start();
      }
      QTest::qWait(30);
    }

    chat.Misbehave("none");
    QTest::qWait(1500);  // the watchdogs find the frames that are stalled
    const bool all_back = QTest::qWaitFor(
        [&] {
          seen.TakeCare();
          unseen.TakeCare();
          return seen.Everywhere() && unseen.Everywhere();
        },
        15'000);
    QVERIFY(all_back);
    // In peace what is said arrives.
    const int before = seen.Shown();
    SayLines(unseen);
    QTRY_VERIFY(seen.Shown() >= before + 5);
    QTest::qWait(500);

    qInfo("%d lines said, %d and %d shown", said, seen.Shown(), unseen.Shown());
    QVERIFY(seen.Shown() > 200 && unseen.Shown() > 200);
    for (Talker* talker : {&seen, &unseen}) {
      for (int i = 0; i < kTabCount; ++i) {
        QCOMPARE(talker->WrongInPane(i), QByteArray());
        QCOMPARE(talker->WrongInLog(i), QByteArray());
        const TabSession& tab = talker->client.tab(i);
        QCOMPARE(tab.Winsock1->State(), SocketState::kConnected);
        QVERIFY(tab.Timer3->Enabled() && !tab.Timer1->Enabled());
        QVERIFY(!tab.Connecting && !tab.IgnoreStream);
        // A command whose answer stalls holds up those behind it until the tab connects again.
        if (tab.Winsock4->State() != SocketState::kConnected) QVERIFY(tab.BotQueue.empty());
      }
    }
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::SoakSocketsTest)
#include "soak_sockets_test.moc"
