#include "platform/qt/bus_notifier.h"

#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>
#include <memory>
#include <vector>

#include "support/qt/fake_bus_services.h"
#include "support/qt/qt_test.h"
#include "text/text.h"

namespace parlorwire {
namespace {

const Balloon kHello{"Parlorwire", "hello", kSilentBalloon, {3}};

struct Notified {
  Notified() {
    notifier.Clicked = [this](const BalloonAbout& about) { clicked.push_back(about); };
    notifier.Refused = [this](const Balloon& balloon) { refused.push_back(balloon); };
  }
  BusNotifier notifier{QDBusConnection::sessionBus()};
  std::vector<BalloonAbout> clicked;
  std::vector<Balloon> refused;
};

// Everything that is on its way has arrived: two round trips to the bus and back.
void SettleBus() {
  for (int i = 0; i < 2; ++i) {
    for (const auto& bus : {QDBusConnection::sessionBus(), FakesBus()}) {
      const auto call = bus.asyncCall(QDBusMessage::createMethodCall(
          "org.freedesktop.DBus", "/", "org.freedesktop.DBus", "GetId"));
      QDBusPendingCallWatcher watcher(call);
      QSignalSpy finished(&watcher, &QDBusPendingCallWatcher::finished);
      if (!finished.wait()) qFatal("the bus does not answer");
    }
    QTest::qWait(1);
  }
}

}  // namespace

class BusNotifierTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    QVERIFY2(QDBusConnection::sessionBus().isConnected(), "needs a bus");
    QGuiApplication::setDesktopFileName("org.of.the.client");
  }

  void TheServerIsToldEverything() {
    FakeNotifications server;
    Notified client;
    client.notifier.Show(kHello);
    QTRY_COMPARE(server.shown.size(), std::size_t{1});
    const auto& shown = server.shown[0];
    QCOMPARE(shown.app_name, QString("Parlorwire"));
    QCOMPARE(shown.icon, QString("org.of.the.client"));  // as it is installed
    QCOMPARE(shown.title, QString("Parlorwire"));
    QCOMPARE(shown.text, QString("hello"));
    QCOMPARE(shown.replaces_id, 0U);
    QCOMPARE(shown.actions.value(0), QString("default"));
    QCOMPARE(shown.timeout, 8000);
    QCOMPARE(shown.hints["urgency"].typeId(), int(QMetaType::UChar));
    QCOMPARE(shown.hints["category"].toString(), QString("im.received"));
    QCOMPARE(shown.hints["suppress-sound"].toBool(), true);
    QVERIFY(client.refused.empty());
  }

  void ASoundIsTheServersAffairUnlessABalloonIsSilent() {
    FakeNotifications server;
    Notified client;
    client.notifier.Show({"Parlorwire", "hello", 0, {}});
    QTRY_COMPARE(server.shown.size(), std::size_t{1});
    QVERIFY(!server.shown[0].hints.contains("suppress-sound"));
  }

  void TheTextIsPlainWhateverTheServerReads_data() {
    QTest::addColumn<QStringList>("capabilities");
    QTest::addColumn<QString>("text");
    const QString russian = QString::fromUtf8("Ник: ");
    QTest::newRow("markup") << QStringList{"body", "body-markup"}
                            << "&lt;b&gt;&amp; &quot;x&quot;\n" + russian;
    QTest::newRow("plain") << QStringList{"body"} << "<b>& \"x\"\n" + russian;
  }
  void TheTextIsPlainWhateverTheServerReads() {
    QFETCH(QStringList, capabilities);
    QFETCH(QString, text);
    FakeNotifications server;
    server.capabilities = capabilities;
    Notified client;
    client.notifier.Show({"Parlorwire <i>", "<b>& \"x\"\r\nНик: "_w, 0, {}});
    QTRY_COMPARE(server.shown.size(), std::size_t{1});
    QCOMPARE(server.shown[0].text, text);
    QCOMPARE(server.shown[0].title, QString("Parlorwire <i>"));
  }

  void ASecondOneTakesThePlaceOfTheFirst() {
    FakeNotifications server;
    Notified client;
    client.notifier.Show(kHello);
    QTRY_COMPARE(server.shown.size(), std::size_t{1});
    SettleBus();
    client.notifier.Show({"Parlorwire", "two", 0, {}});
    QTRY_COMPARE(server.shown.size(), std::size_t{2});
    QCOMPARE(server.shown[1].replaces_id, server.last_id);
  }

  void OfABurstTheLastIsShownAndTheServerIsSpared() {
    FakeNotifications server;
    Notified client;
    for (int i = 0; i < 100; ++i)
      client.notifier.Show({"Parlorwire", std::to_string(i), 0, {i % 10}});
    QTRY_VERIFY(!server.shown.empty() && server.shown.back().text == "99");
    SettleBus();
    QVERIFY(server.shown.size() <= 2);
    emit server.ActionInvoked(server.last_id, "default");
    QTRY_COMPARE(client.clicked.size(), std::size_t{1});
    QCOMPARE(client.clicked[0].tab, 9);
  }

  void ClosingClosesOursAndNobodyElses() {
    FakeNotifications server;
    Notified client;
    client.notifier.Close();
    SettleBus();
    QVERIFY(server.closed.empty());
    client.notifier.Show(kHello);
    QTRY_COMPARE(server.shown.size(), std::size_t{1});
    SettleBus();
    client.notifier.Close();
    QTRY_COMPARE(server.closed, std::vector<uint>{server.last_id});
    client.notifier.Close();
    SettleBus();
    QCOMPARE(server.closed.size(), std::size_t{1});
  }

  void WhatIsClosedOnItsWayIsClosedWhenItArrives() {
    FakeNotifications server;
    Notified client;
    client.notifier.Show(kHello);
    QTRY_COMPARE(server.shown.size(), std::size_t{1});
    client.notifier.Close();
    QTRY_COMPARE(server.closed, std::vector<uint>{server.last_id});
  }

  void WhatIsClosedAheadOfItsWayIsNotShown() {
    FakeNotifications server;
    Notified client;
    client.notifier.Show(kHello);
    client.notifier.Close();
    SettleBus();
    SettleBus();
    QVERIFY(server.shown.empty());
    QVERIFY(client.refused.empty());
  }

  void AClickSaysWhatItWasAboutAndClosesIt() {
    FakeNotifications server;
    Notified client;
    client.notifier.Show(kHello);
    QTRY_COMPARE(server.shown.size(), std::size_t{1});
    SettleBus();
    emit server.ActionInvoked(server.last_id + 1, "default");
    emit server.ActionInvoked(server.last_id, "other");
    SettleBus();
    QVERIFY(client.clicked.empty());
    emit server.ActivationToken(server.last_id, "token_7");
    emit server.ActionInvoked(server.last_id, "default");
    QTRY_COMPARE(client.clicked, std::vector<BalloonAbout>{{3}});
    QCOMPARE(qgetenv("XDG_ACTIVATION_TOKEN"), QByteArray("token_7"));
    QTRY_COMPARE(server.closed, std::vector<uint>{server.last_id});
    emit server.ActionInvoked(server.last_id, "default");
    SettleBus();
    QCOMPARE(client.clicked.size(), std::size_t{1});
  }

  void OneThatTheUserHasClosedIsForgotten() {
    FakeNotifications server;
    Notified client;
    client.notifier.Show(kHello);
    QTRY_COMPARE(server.shown.size(), std::size_t{1});
    SettleBus();
    emit server.NotificationClosed(server.last_id, 2);
    SettleBus();
    client.notifier.Close();
    SettleBus();
    QVERIFY(server.closed.empty());
    client.notifier.Show(kHello);
    QTRY_COMPARE(server.shown.size(), std::size_t{2});
    QCOMPARE(server.shown[1].replaces_id, 0U);
  }

  void WithoutAServerTheBalloonIsRefused() {
    Notified client;
    client.notifier.Show(kHello);
    QTRY_COMPARE(client.refused, std::vector<Balloon>{kHello});
    client.notifier.Show(kHello);
    client.notifier.Close();
    SettleBus();
    QCOMPARE(client.refused.size(), std::size_t{1});
  }

  void AServerThatRefusesRefuses() {
    FakeNotifications server;
    server.refuses = true;
    Notified client;
    client.notifier.Show(kHello);
    QTRY_COMPARE(client.refused, std::vector<Balloon>{kHello});
  }

  void AServerThatComesLateIsUsed() {
    Notified client;
    client.notifier.Show(kHello);
    QTRY_COMPARE(client.refused.size(), std::size_t{1});
    FakeNotifications server;
    client.notifier.Show(kHello);
    QTRY_COMPARE(server.shown.size(), std::size_t{1});
    QCOMPARE(client.refused.size(), std::size_t{1});
  }

  void AnotherServerIsAskedAfreshAndKnowsNoOldNumbers() {
    Notified client;
    {
      FakeNotifications server;
      client.notifier.Show(kHello);
      QTRY_COMPARE(server.shown.size(), std::size_t{1});
      SettleBus();
    }
    SettleBus();
    FakeNotifications server;
    server.capabilities = {"body-markup"};
    client.notifier.Show({"Parlorwire", "<", 0, {}});
    QTRY_COMPARE(server.shown.size(), std::size_t{1});
    QCOMPARE(server.shown[0].replaces_id, 0U);
    QCOMPARE(server.shown[0].text, QString("&lt;"));
  }

  void WithoutABusTheBalloonIsRefused() {
    BusNotifier notifier(QDBusConnection("there is none"));
    int refused = 0;
    notifier.Refused = [&](const Balloon&) { ++refused; };
    notifier.Show(kHello);
    QTRY_COMPARE(refused, 1);
    notifier.Close();
  }
};

}  // namespace parlorwire

EVENT_LOOP_TEST(parlorwire::BusNotifierTest)
#include "bus_notifier_test.moc"
