#include <QDesktopServices>
#include <QLineEdit>
#include <QObject>
#include <QUrl>
#include <QWindow>

#include "shell/qt/graphic_button.h"
#include "shell/qt/link_label.h"
#include "shell/qt/open_url.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {

// Schemes whose pages the test catches, so that nothing is really opened.
constexpr const char* kSchemes[] = {"http", "https", "ftp", "file", "mailto", "javascript"};

// A graphic button that never has the focus, alone in a window.
struct ButtonOnGround {
  static constexpr QPoint kInside{50, 40};
  static constexpr QPoint kOutside{150, 90};

  ButtonOnGround() {
    ground.resize(200, 100);
    button.setFocusPolicy(Qt::NoFocus);
    button.setGeometry(20, 20, 60, 40);
    ground.show();
    if (!QTest::qWaitForWindowExposed(&ground)) qFatal("the window does not show");
    MoveTo(kOutside);
    ground.repaint();
  }
  QWindow* window() { return ground.windowHandle(); }
  void MoveTo(QPoint place) { QTest::mouseMove(window(), place); }
  QImage Look() { return OnScreen(&button); }

  QWidget ground;
  GraphicButton button{GraphicButton::Picture::kSay, &ground};
};

class LinksAndButtonsTest : public QObject {
  Q_OBJECT

 public slots:
  void Open(const QUrl& url) {
    opened_ = url.toString();
    ++calls_;
  }

 private slots:
  void initTestCase() {
    for (const char* scheme : kSchemes)
      QDesktopServices::setUrlHandler(scheme, this, "Open");
  }
  void cleanupTestCase() {
    for (const char* scheme : kSchemes)
      QDesktopServices::unsetUrlHandler(scheme);
  }
  void init() {
    opened_.clear();
    calls_ = 0;
  }

  void AGraphicButtonHasThreeLooks() {
    ButtonOnGround on;
    const QImage normal = on.Look();
    on.MoveTo(on.kInside);
    QTRY_VERIFY(on.Look() != normal);
    const QImage hover = on.Look();
    QTest::mousePress(on.window(), Qt::LeftButton, Qt::NoModifier, on.kInside);
    QTRY_VERIFY(on.Look() != hover);
    const QImage pressed = on.Look();
    QVERIFY(normal != pressed);
    QTest::mouseRelease(on.window(), Qt::LeftButton, Qt::NoModifier, on.kInside);
    on.MoveTo(on.kOutside);
    QTRY_COMPARE(on.Look(), normal);
    on.button.setEnabled(false);
    QTRY_VERIFY(on.Look() != normal);
  }

  void AGraphicButtonIsNormalBehindAReleaseUntilTheMouseMoves() {
    ButtonOnGround on;
    const QImage normal = on.Look();
    on.MoveTo(on.kInside);
    QTRY_VERIFY(on.Look() != normal);
    const QImage hover = on.Look();
    for (const Qt::MouseButton mouse : {Qt::LeftButton, Qt::RightButton}) {
      QTest::mousePress(on.window(), mouse, Qt::NoModifier, on.kInside);
      QTest::mouseRelease(on.window(), mouse, Qt::NoModifier, on.kInside);
      QTRY_COMPARE(on.Look(), normal);
      on.MoveTo(on.kInside + QPoint(1, 0));
      QTRY_COMPARE(on.Look(), hover);
      on.MoveTo(on.kInside);
    }
  }

  void AGraphicButtonHeldDownLooksNormalWhileThePointerIsOutside() {
    Windows windows("[Main]\r\nWidth=12000\r\nHeight=7500\r\n");
    auto* button = windows.Find<QAbstractButton>("button_connect_main");
    button->setFocus();
    QWindow* window = windows.window->windowHandle();
    const QPoint inside = button->mapTo(windows.window.get(), button->rect().center());
    const QPoint outside = inside + QPoint(0, 200);
    QTest::mouseMove(window, outside);
    const QImage normal = button->grab().toImage();
    QTest::mouseMove(window, inside);
    const QImage hover = button->grab().toImage();
    QTest::mousePress(window, Qt::LeftButton, Qt::NoModifier, inside);
    const QImage pressed = button->grab().toImage();
    QVERIFY(normal != hover && hover != pressed && normal != pressed);
    QTest::mouseMove(window, outside);
    QCOMPARE(button->grab().toImage(), normal);
    QTest::mouseMove(window, inside);
    QCOMPARE(button->grab().toImage(), pressed);
    QTest::mouseMove(window, outside);
    QTest::mouseRelease(window, Qt::LeftButton, Qt::NoModifier, outside);
    QCOMPARE(button->grab().toImage(), normal);
    for (QWidget* top : QApplication::topLevelWidgets())
      QVERIFY(top->objectName() != "connection_form" || !top->isVisible());
  }

  void TheEdgeOfAGraphicButtonIsSharpAtAnyScale_data() {
    QTest::addColumn<qreal>("scale");
    QTest::addColumn<int>("width");  // of the edge, in pixels of the screen
    QTest::newRow("1") << 1.0 << 1;
    QTest::newRow("1.25") << 1.25 << 1;
    QTest::newRow("1.5") << 1.5 << 2;
    QTest::newRow("2") << 2.0 << 2;
    QTest::newRow("3") << 3.0 << 3;
  }
  void TheEdgeOfAGraphicButtonIsSharpAtAnyScale() {
    QFETCH(qreal, scale);
    QFETCH(int, width);
    GraphicButton button(GraphicButton::Picture::kSay, nullptr);
    button.resize(91, 27);
    QImage image((QSizeF(button.size()) * scale).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    button.render(&image);
    const int x = image.width() / 8;
    const int y = image.height() / 2;
    const QColor edge(0x8F978E);
    for (int i = 0; i <= width; ++i) {
      const bool on_edge = i < width;
      QCOMPARE(image.pixelColor(x, i) == edge, on_edge);
      QCOMPARE(image.pixelColor(x, image.height() - 1 - i) == edge, on_edge);
      QCOMPARE(image.pixelColor(i, y) == edge, on_edge);
      QCOMPARE(image.pixelColor(image.width() - 1 - i, y) == edge, on_edge);
    }
    QVERIFY(image.pixelColor(x, width).lightness() > 240);
  }

  void AGraphicButtonActsOnTheLeftReleaseInside() {
    GraphicButton button(GraphicButton::Picture::kSay, nullptr);
    int acted = 0;
    connect(&button, &QAbstractButton::clicked, [&] { ++acted; });
    button.show();
    QTest::mousePress(&button, Qt::LeftButton);
    QCOMPARE(acted, 0);
    QTest::mouseRelease(&button, Qt::LeftButton);
    QCOMPARE(acted, 1);
    QTest::mousePress(&button, Qt::LeftButton);
    QTest::mouseRelease(&button, Qt::LeftButton, Qt::NoModifier, QPoint(-20, -20));
    QTest::mouseClick(&button, Qt::RightButton);
    QTest::mouseClick(&button, Qt::MiddleButton);
    QCOMPARE(acted, 1);
    QTest::keyClick(&button, Qt::Key_Return);
    QTest::keyClick(&button, Qt::Key_Enter);
    QTest::keyClick(&button, Qt::Key_Space);
    QCOMPARE(acted, 4);
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Return);
    QCOMPARE(acted, 4);
  }

  void ALinkLabelActsOnClickEnterAndSpace() {
    LinkLabel link(nullptr);
    link.setText("link");
    link.show();
    QVERIFY(!link.isEnabled());
    int acted = 0;
    link.SetAction([&] { ++acted; });
    QVERIFY(link.isEnabled());
    QCOMPARE(link.cursor().shape(), Qt::PointingHandCursor);
    QVERIFY(link.font().underline());
    QTest::mouseClick(&link, Qt::LeftButton);
    QTest::keyClick(&link, Qt::Key_Return);
    QTest::keyClick(&link, Qt::Key_Space);
    QCOMPARE(acted, 3);
    QTest::mouseClick(&link, Qt::RightButton);
    QCOMPARE(acted, 3);
    link.SetWanted(false);
    QVERIFY(!link.isEnabled());
    link.SetWanted(true);
    QVERIFY(link.isEnabled());
  }

  void ALinkLabelShowsRed() {
    LinkLabel link(nullptr);
    link.setText("link");
    const auto has_red = [&] {
      const QImage image = link.grab().toImage();
      for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x) {
          const QColor at = image.pixelColor(x, y);
          if (at.red() > 200 && at.green() < 120 && at.blue() < 120) return true;
        }
      return false;
    };
    QVERIFY(!has_red());
    link.SetRed(true);
    QVERIFY(has_red());
    link.SetRed(false);
    QVERIFY(!has_red());
  }

  void OnlyAddressesOfTheWebAreOpened_data() {
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("opened");
    const auto row = [](const char* url, const char* opened) {
      QTest::newRow(url) << url << opened;
    };
    row("http://a.example/x?y=%CF%C1", "http://a.example/x?y=%CF%C1");
    row("https://a.example", "https://a.example");
    row("ftp://a.example/f", "ftp://a.example/f");
    row("HTTP://a.example", "http://a.example");
    row("www.a.example", "http://www.a.example");
    row("WWW.a.example", "http://WWW.a.example");
    row("file:///etc/passwd", "");
    row("mailto:a@a.example", "");
    row("javascript:alert(1)", "");
    row("/etc/passwd", "");
    row("http://this-part-of-a-name-is-much-longer-than-the-names-of-hosts-can-ever-be.ru", "");
    row("http://a b", "");
    row("", "");
  }
  void OnlyAddressesOfTheWebAreOpened() {
    QFETCH(QString, url);
    QFETCH(QString, opened);
    OpenUrl(url.toStdString());
    QCOMPARE(opened_.toLower(), opened.toLower());
    QCOMPARE(calls_, opened.isEmpty() ? 0 : 1);
  }

  void GetAccountOpensTheRules() {
    Windows windows("[Main]\r\nChatHostByName=chat.example\r\nChatPort=8080\r\n");
    QTest::mouseClick(windows.Find("button_connect_main"), Qt::LeftButton);
    QTest::mouseClick(windows.Find("button_getAccount"), Qt::LeftButton);
    QCOMPARE(opened_, QString("http://chat.example:8080/rulez.html"));
  }

  void ThePageLabelsOpenTheirPages_data() {
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("page");
    const QString fields = "alice&ticket=T1&channel=%E3%E1&chpwd=";
    QTest::newRow("sp_bans") << "sp_bans" << "http://chat.example/banlist?username=" + fields;
    QTest::newRow("sp_opers") << "sp_opers" << "http://chat.example/oplist?username=" + fields;
    QTest::newRow("hist_topic") << "hist_topic"
                                << "http://chat.example/topic_hist?username=" + fields;
    QTest::newRow("letogr") << "letogr" << "http://stat.example/";
  }
  void ThePageLabelsOpenTheirPages() {
    QFETCH(QString, link);
    QFETCH(QString, page);
    Windows windows(
        "[Main]\r\nChatHostByName=chat.example\r\nLetografUrl=http://stat.example/\r\n");
    TabSession& tab = windows.tab(0);
    tab.Login = "alice";
    tab.Ticket = "T1";
    tab.Channel = "ЦА"_w;
    windows.desktop.SetTabVisible(0, true);
    auto* label = windows.Find(link.toLatin1().constData());
    QVERIFY(!label->isEnabled());
    windows.desktop.SetTabControlsEnabled(0, true);
    QTest::mouseClick(label, Qt::LeftButton);
    QCOMPARE(opened_, page);
  }

  void TheLabelRecodesWhatStandsInTheInputBox() {
    Windows windows;
    windows.desktop.SetTabVisible(0, true);
    auto* msg = windows.Find<QLineEdit>("msg_0");
    auto* label = windows.Find<LinkLabel>("perecodirovka_label");
    msg->setReadOnly(false);
    msg->setFocus();
    QTest::keyClicks(msg, "ghbdtn");
    msg->selectAll();
    QTest::mouseClick(label, Qt::LeftButton);
    QCOMPARE(msg->text(), Utf8("привет"));
    QVERIFY(!msg->hasSelectedText());
    QCOMPARE(msg->cursorPosition(), 6);
    QVERIFY(msg->hasFocus());
    label->setFocus();
    QTest::keyClick(label, Qt::Key_Return);
    QCOMPARE(msg->text(), QString("ghbdtn"));
  }

  void LogoffAndLogoutGoToWinsock5_data() {
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("request");
    QTest::newRow("logoff") << "logoff" << "/logoff";
    QTest::newRow("logout") << "logout" << "/leave";
  }
  void LogoffAndLogoutGoToWinsock5() {
    QFETCH(QString, link);
    QFETCH(QString, request);
    Windows windows;
    windows.tab(0).Login = "Bob";
    windows.tab(0).LoginShown = true;
    windows.tab(0).Connected = true;
    windows.desktop.SetTabVisible(0, true);
    windows.desktop.SetActiveTab(0);
    auto* label = windows.Find(link.toLatin1().constData());
    QVERIFY(label->isEnabled());
    QTest::keyClick(label, Qt::Key_Return);
    SimulatedSocket& socket = Simulated(windows.tab(0).Winsock5);
    QCOMPARE(socket.connects, 1);
    socket.Accept();
    QVERIFY(socket.sent.find(request.toStdString()) != Text::npos);
  }

 private:
  QString opened_;
  int calls_ = 0;
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::LinksAndButtonsTest)
#include "links_and_buttons_test.moc"
