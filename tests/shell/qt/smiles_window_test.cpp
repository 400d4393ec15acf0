// Both menus of smiles under real key and mouse events.
#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QObject>

#include "shell/qt/graphic_button.h"
#include "shell/qt/menu_smiles_show.h"
#include "shell/qt/windows_fixture.h"
#include "support/one_smile.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

// The main window with a tab and, if there are lines, a table of smiles.
struct SmilesWindow : Windows {
  explicit SmilesWindow(const std::vector<std::string_view>& lines = {":) :-) smile", ":( sad"},
                        const std::optional<Text>& config = std::nullopt)
      : Windows(config) {
    if (!lines.empty()) LoadSmileLines(outside, client, lines);
    tab(0).LoginShown = true;
    desktop.SetTabVisible(0, true);
    desktop.SetTabControlsEnabled(0, true);
    button = Find<QAbstractButton>("button_smiles");
    button->setEnabled(!client.app.SmileTable.empty());
    msg = Find<QLineEdit>("msg_0");
    QTest::qWait(50);
    msg->setFocus();
  }

  static QMenu* Popup() { return qobject_cast<QMenu*>(QApplication::activePopupWidget()); }
  void RightClick(QWidget* on) {
    const QPoint middle = on->rect().center();
    QTest::mousePress(on, Qt::RightButton, Qt::NoModifier, middle);
    QContextMenuEvent event(QContextMenuEvent::Mouse, middle, on->mapToGlobal(middle));
    QApplication::sendEvent(on, &event);
    QTest::mouseRelease(on, Qt::RightButton, Qt::NoModifier, middle);
  }
  static void Choose(QMenu* menu, int index) {
    const QPoint place = menu->actionGeometry(menu->actions().at(index)).center();
    QTest::mouseMove(menu, place);
    QTest::mouseClick(menu, Qt::LeftButton, Qt::NoModifier, place);
  }
  // Not Find: it is made when it is first needed.
  QWidget* Table() {
    auto* table = window->findChild<MenuSmilesShow*>();
    return table != nullptr && table->isVisible() ? table : nullptr;
  }

  QAbstractButton* button;
  QLineEdit* msg;
};

constexpr QRgb kRed = 0xFFFF0000;

// A library of one smile, all red.
Text RedSmile(int width, int height) {
  DibParts parts{.width = width, .height = height, .depth = 32};
  for (int i = 0; i < width * height; ++i)
    parts.data += LittleEndianBytes(kRed, 4);
  ResourceFile file;
  file.String(101, u"1");
  file.String(102, u"red");
  file.Bitmap(102, parts.Bytes());
  return file.Bytes();
}

// How much room red takes.
QSize RedIn(const QImage& image) {
  QRect red;
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      if (image.pixel(x, y) == kRed) red |= QRect(x, y, 1, 1);
  return red.size();
}

}  // namespace

class SmilesWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void ARightClickOnTheButtonOpensTheMenuAtThePointer() {
    SmilesWindow windows;
    windows.RightClick(windows.button);
    QMenu* menu = SmilesWindow::Popup();
    QVERIFY(menu != nullptr);
    QCOMPARE(menu->objectName(), QString("MenuSmilesItem"));
    QCOMPARE(menu->actions().size(), 2);
    QCOMPARE(menu->actions()[0]->text(), QString("*:) *:-) *smile"));
    QCOMPARE(menu->actions()[1]->text(), QString("*:( *sad"));
    QVERIFY(!menu->actions()[1]->icon().isNull());
    QVERIFY(windows.msg->hasFocus());
    menu->close();
    QVERIFY(windows.Table() == nullptr);
  }

  void AClickPutsTheFirstCodeAtTheCaret() {
    SmilesWindow windows;
    windows.msg->setText("hello there");
    windows.msg->setCursorPosition(5);
    windows.RightClick(windows.button);
    SmilesWindow::Choose(SmilesWindow::Popup(), 0);
    QCOMPARE(windows.msg->text(), QString("hello *:)  there"));
    QCOMPARE(windows.msg->cursorPosition(), 5);
    QVERIFY(windows.msg->hasFocus());
    windows.msg->setSelection(8, 8);
    windows.RightClick(windows.button);
    SmilesWindow::Choose(SmilesWindow::Popup(), 1);
    QCOMPARE(windows.msg->text(), QString("hello *: *:( )  there"));
  }

  void ALockedBoxTakesNoSmile() {
    SmilesWindow windows;
    windows.desktop.SetTabControlsEnabled(0, false);
    windows.RightClick(windows.button);
    SmilesWindow::Choose(SmilesWindow::Popup(), 0);
    QCOMPARE(windows.msg->text(), QString());
  }

  void TheMenuKeyOnTheButtonOpensTheMenu() {
    SmilesWindow windows;
    windows.button->setFocus();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, windows.button->rect().center(),
                            windows.button->mapToGlobal(windows.button->rect().center()));
    QApplication::sendEvent(windows.button, &event);
    QVERIFY(SmilesWindow::Popup() != nullptr);
    SmilesWindow::Popup()->close();
  }

  void TheMenuOfTheInputBoxHoldsIt_data() {
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("title");
    QTest::newRow("Russian") << "Russian" << Utf8("Смайлы");
    QTest::newRow("English") << "English" << QString("Smiles");
  }
  void TheMenuOfTheInputBoxHoldsIt() {
    QFETCH(QString, language);
    QFETCH(QString, title);
    SmilesWindow windows({":)"}, "[Main]\r\nLanguage=" + FromQString(language) + "\r\n");
    QMenu* menu = ContextMenuOf(windows.msg);
    QAction* last = menu->actions().last();
    QCOMPARE(last->text(), title);
    QVERIFY(last->isEnabled());
    QCOMPARE(last->menu()->objectName(), QString("MenuSmilesItem"));
    menu->setActiveAction(last);
    QTRY_COMPARE(last->menu()->actions().size(), 1);
    SmilesWindow::Choose(last->menu(), 0);
    QCOMPARE(windows.msg->text(), QString(" *:) "));
    QCOMPARE(windows.button->accessibleName(), title);
  }

  void WithoutATableTheButtonIsGreyAndTheMenuToo() {
    Windows windows;
    QVERIFY(!windows.Find("button_smiles")->isEnabled());
    windows.desktop.SetTabVisible(0, true);
    QMenu* menu = ContextMenuOf(windows.Find("msg_0"));
    QVERIFY(!menu->actions().last()->isEnabled());
    menu->close();
  }

  void ATableThatIsThereAtTheStartHasItsButton() {
    SimulatedPlatform outside;
    outside.program_files.files["smiles.dll"] = RedSmile(1, 1);
    QtDesktop desktop;
    Client client{outside.Ports(desktop)};
    Assemble(client);
    client_main window(client, desktop);
    window.Load();
    QVERIFY(window.controls.button_smiles->isEnabled());
  }

  void APictureIsAsLargeInTheMenuAsItIs_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QSize>("shown");
    QTest::newRow("small") << QSize(10, 12) << QSize(10, 12);
    QTest::newRow("wide") << QSize(30, 20) << QSize(30, 20);
    QTest::newRow("too large") << QSize(256, 128) << QSize(64, 32);
  }
  void APictureIsAsLargeInTheMenuAsItIs() {
    QFETCH(QSize, size);
    QFETCH(QSize, shown);
    SmilesWindow windows;
    windows.outside.program_files.files["smiles.dll"] = RedSmile(size.width(), size.height());
    LoadSmiles(windows.client);
    windows.RightClick(windows.button);
    QMenu* menu = SmilesWindow::Popup();
    QVERIFY(menu != nullptr);
    const QSize red = RedIn(menu->grab().toImage());
    menu->close();
    QCOMPARE(red, shown);
  }

  void ALongMenuHasColumnsThatFitTheScreen() {
    std::vector<Text> names;
    for (int i = 0; i < 60; ++i)
      names.push_back("smile" + std::to_string(i));
    SmilesWindow windows(std::vector<std::string_view>(names.begin(), names.end()));
    windows.RightClick(windows.button);
    QMenu* menu = SmilesWindow::Popup();
    QVERIFY(menu->screen()->geometry().contains(menu->geometry()));
    const QRect first = menu->actionGeometry(menu->actions().first());
    const QRect last = menu->actionGeometry(menu->actions().last());
    QVERIFY(last.left() >= first.right());
    QVERIFY(menu->rect().contains(last));
    menu->close();
  }

  void ALeftClickFloatsTheTable() {
    SmilesWindow windows;
    QTest::mouseClick(windows.button, Qt::LeftButton);
    QVERIFY(windows.Table() != nullptr);
    QCOMPARE(windows.Table()->windowTitle(), Utf8("Смайлы"));
    QVERIFY(windows.Table()->screen()->geometry().contains(windows.Table()->geometry()));
    QVERIFY(windows.Table()->geometry().bottom() < windows.button->mapToGlobal(QPoint()).y());
    QCOMPARE(windows.Find<QLabel>("L_1")->text(), QString("*:) *:-) *smile"));
    QCOMPARE(windows.Find<QLabel>("L_2")->text(), QString("*:( *sad"));
    QVERIFY(!windows.Find<QLabel>("P_2")->pixmap(Qt::ReturnByValue).isNull());
    QVERIFY(windows.Find("P_2")->y() > windows.Find("P_1")->y());
    QTest::mouseClick(windows.Find("P_1"), Qt::LeftButton);
    QCOMPARE(windows.msg->text(), QString());
    QTest::keyClick(windows.Table(), Qt::Key_Escape);
    QVERIFY(windows.Table() == nullptr);
  }

  void TheTableGoesWhenBothWindowsAreLeft() {
    SmilesWindow windows;
    QTest::mouseClick(windows.button, Qt::LeftButton);
    QWidget* table = windows.Table();
    table->activateWindow();
    WaitUntilActive(table);
    windows.window->activateWindow();
    WaitUntilActive(windows.window.get());
    QTest::qWait(200);
    QVERIFY(windows.Table() != nullptr);
    QWidget other;
    other.show();
    other.activateWindow();
    WaitUntilActive(&other);
    QTRY_VERIFY(windows.Table() == nullptr);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::SmilesWindowTest)
#include "smiles_window_test.moc"
