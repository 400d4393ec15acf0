// The client behind a real HTTP proxy, tinyproxy, that the test starts on a loopback port.
#include <QFile>
#include <QObject>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>

#include <sys/prctl.h>

#include "personal/pers_frm.h"
#include "personal/pers_posting.h"
#include "personal/personal_window.h"
#include "platform/qt/qt_platform.h"
#include "platform/qt/qt_winsock.h"
#include "platform/qt/text_conversion.h"
#include "session/connect.h"
#include "shell/assembly.h"
#include "support/loopback_peer.h"
#include "support/pane_runs.h"
#include "support/qt/qt_test.h"
#include "support/qt/service_thread.h"
#include "support/simulated_platform.h"
#include "text/cut.h"
#include "users/posting.h"
#include "users/user_frame.h"

namespace parlorwire {
namespace {

// The proxy as a process of its own, with its settings in a folder of its own.
class Tinyproxy {
 public:
  explicit Tinyproxy(const QByteArray& more) {
    port = FreePort();
    QFile settings(folder_.filePath("tinyproxy.conf"));
    if (!settings.open(QIODevice::WriteOnly)) qFatal("no settings for the proxy");
    settings.write("Port " + QByteArray::fromStdString(port) +
                   "\nListen 127.0.0.1\nTimeout 60\nAllow 127.0.0.1\nLogLevel Info\nLogFile \"" +
                   folder_.filePath("log").toUtf8() + "\"\n" + more);
    settings.close();
    process_.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process_.start("tinyproxy", {"-d", "-c", settings.fileName()});
    if (!process_.waitForStarted()) qFatal("tinyproxy can't be started");
    const bool listens = QTest::qWaitFor([&] {
      QtWinsock probe;
      bool stands = false;
      bool failed = false;
      probe.events.Connect = [&] { stands = true; };
      probe.events.Error = [&](int, const Text&) { failed = true; };
      probe.Connect("127.0.0.1", port);
      if (!QTest::qWaitFor([&] { return stands || failed; })) return false;
      return stands;
    });
    if (!listens) qFatal("tinyproxy does not listen");
  }
  ~Tinyproxy() {
    process_.kill();  // asked to end it would wait for its connections
    process_.waitForFinished();
  }

  QByteArray Log() const {
    QFile log(folder_.filePath("log"));
    return log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
  }

  Text port;

 private:
  // Free a moment ago; nothing else on this machine takes it meanwhile.
  static Text FreePort() {
    const LoopbackPeer peer("127.0.0.1");
    return peer.port();
  }

  QTemporaryDir folder_;
  QProcess process_;
};

service::ServerOptions Quiet() {
  service::ServerOptions options;
  options.inhabitants.present = false;
  return options;
}

}  // namespace

class ProxyTest : public QObject {
  Q_OBJECT

  ServiceThread chat{Quiet()};

  // A client behind the proxy.
  struct Behind {
    Behind(const ServiceThread& service, const Tinyproxy& proxy)
        : platform(folder.path().toStdString()) {
      Assemble(client);
      client.app.ChatHost = "127.0.0.1";
      client.app.ChatPort = service.port();
      ProxyControls& dialog = client.app.sett_conn;
      dialog.loaded = true;
      dialog.use_proxy = true;
      dialog.proxy_addr = "127.0.0.1";
      dialog.proxy_port = proxy.port;
      TabSession& session = client.tab(0);
      session.Login = "alice";
      session.Password = "secret";
      session.Channel = "hall";
      desktop.SetTabVisible(0, true);
    }
    bool Connect() {
      ConnectToChat(client, 0);
      return QTest::qWaitFor([&] { return client.tab(0).Connected; });
    }
    QByteArray Pane() { return QByteArray::fromStdString(ToUtf8(client.tab(0).Rich.Text())); }

    QTemporaryDir folder;
    SimulatedDesktop desktop;
    QtPlatform platform;
    Client client{platform.Ports(desktop)};
  };

  static void TalksAndLists(Behind& alice) {
    TabSession& session = alice.client.tab(0);
    QVERIFY2(alice.Connect(), alice.Pane());
    QVERIFY(alice.Pane().contains("Подключение к прокси... Ok."));
    alice.desktop.SetMsgText(0, "сквозь прокси"_w);
    button_say_MouseUp(alice.client, 0);
    QTRY_VERIFY2(alice.Pane().contains("] alice: сквозь прокси\r\n"), alice.Pane());
    QTRY_COMPARE(session.Rich_Server.Text(), "Сообщение отправлено"_w);
    UpdateUsersFrame(alice.client, 0);
    QTRY_VERIFY(Contains(session.Rich_Users.Text(), "alice [+o-t] 127.0.0.1\r\n"));
    QTRY_COMPARE(alice.desktop.at(0).users_num, "Пользователей: 1/1"_w);
  }

 private slots:
  void ReadsAndPostsThroughIt() {
    const Tinyproxy proxy("");
    Behind alice(chat, proxy);
    TalksAndLists(alice);
    QVERIFY(proxy.Log().contains("/newmsg_t HTTP/1.0"));
  }

  void ReadsAndPostsThroughItWithAPassword() {
    const Tinyproxy proxy("BasicAuth reader word\n");
    Behind alice(chat, proxy);
    alice.client.app.sett_conn.autentification = true;
    alice.client.app.sett_conn.proxy_login = "reader";
    alice.client.app.sett_conn.proxy_pass = "word";
    TalksAndLists(alice);
  }

  void APersonalWindowGoesThroughItWithAllItsSockets() {
    const Tinyproxy proxy("");
    Behind alice(chat, proxy);
    QVERIFY2(alice.Connect(), alice.Pane());
    pers_Click(alice.client, 0);
    PersonalWindow& window = *alice.client.app.PersWindows.back();
    QTRY_VERIFY(window.PersGotData);
    window.send_nick = "alice";
    window.msg = "шёпот"_w;
    pers_frm_button_say_MouseUp(alice.client, window);
    QTRY_VERIFY2(Contains(window.Rich.Text(), "] alice: шёпот\r\n"_w), window.Rich.Text().c_str());
    for (const char* request : {"/mframe_pm HTTP", "/newmsg_pm HTTP", "/pm_ack HTTP"})
      QTRY_VERIFY2(proxy.Log().contains(request), request);
  }

  // It answers 407 and closes before it has read the whole request, which resets the connection.
  void AWrongPasswordForItIsShownAsAFailedConnection() {
    const Tinyproxy proxy("BasicAuth reader word\n");
    Behind alice(chat, proxy);
    alice.client.app.sett_conn.autentification = true;
    alice.client.app.sett_conn.proxy_login = "reader";
    alice.client.app.sett_conn.proxy_pass = "guess";
    ConnectToChat(alice.client, 0);
    TabSession& session = alice.client.tab(0);
    QTRY_VERIFY(!session.Connecting);
    QVERIFY2(alice.Pane().contains("Подключение к прокси... Ok."), alice.Pane());
    QVERIFY2(alice.Pane().endsWith("Проверка имени пользователя и пароля... Ошибка: the connection "
                                   "is reset by remote side (10054)\r\n"),
             alice.Pane());
    QCOMPARE(alice.desktop.TabCaption(0), "Ошибка"_w);
    QVERIFY(!session.Timer1->Enabled());
    // With the right one the next attempt succeeds.
    alice.client.app.sett_conn.proxy_pass = "word";
    QVERIFY2(alice.Connect(), alice.Pane());
  }

  void ARunningSessionComesBackWhenTheProxyDoes() {
    auto proxy = std::make_unique<Tinyproxy>("");
    Behind alice(chat, *proxy);
    QVERIFY2(alice.Connect(), alice.Pane());
    proxy.reset();
    QTRY_VERIFY(!alice.client.tab(0).Connected || alice.client.tab(0).Timer1->Enabled());
    const Tinyproxy again("");
    alice.client.app.sett_conn.proxy_port = again.port;
    QTRY_VERIFY_WITH_TIMEOUT(
        alice.client.tab(0).Connected && !alice.client.tab(0).Timer1->Enabled(), 10'000);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::ProxyTest)
#include "proxy_test.moc"
