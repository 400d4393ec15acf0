#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QObject>

#include "pane/qt/rich_text_view.h"
#include "shell/client_main_layout.h"
#include "shell/qt/control_names.h"
#include "shell/qt/pane_widget.h"
#include "shell/qt/ss_tab.h"
#include "shell/qt/twips.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

void ShowEmptyTabs(Windows& windows, int count) {
  for (int slot = 0; slot < count; ++slot) {
    windows.tab(slot).LoginShown = true;
    windows.desktop.SetTabVisible(slot, true);
  }
  windows.desktop.SetActiveTab(0);
}

void Resize(Windows& windows, QSize size) {
  windows.window->resize(size);
  QTRY_COMPARE(windows.window->size(), size);
  QTest::qWait(10);
}

// Where a control stands on the ground.
QRect PlaceOf(Windows& windows, const char* name) {
  QWidget* control = windows.Find(name);
  return {control->mapTo(windows.Find("ground"), QPoint()), control->size()};
}

// Counts the events of a kind that a control gets.
class Counter : public QObject {
 public:
  Counter(QObject* watched, QEvent::Type type) : type_(type) { watched->installEventFilter(this); }
  int count = 0;

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == type_) ++count;
    return false;
  }

 private:
  QEvent::Type type_;
};

constexpr const char* kUpperRow[] = {"logout", "logoff", "close_tab"};
constexpr const char* kLowerRow[] = {"sp_opers", "sp_bans", "hist_topic", "letogr", "search_label"};

}  // namespace

class MainLayoutTest : public QObject {
  Q_OBJECT

 private slots:
  void ControlsStandByTheRules_data() {
    QTest::addColumn<QSize>("size");
    QTest::newRow("800") << QSize(800, 560);
    QTest::newRow("1280") << QSize(1280, 740);
  }
  void ControlsStandByTheRules() {
    QFETCH(QSize, size);
    Windows windows;
    ShowEmptyTabs(windows, 1);
    Resize(windows, size);
    const QSize ground = windows.Find("ground")->size();
    const int w = Twips(ground.width()) + 120 - 100;    // the window's Width - 100
    const int h = Twips(ground.height()) + 705 - 2400;  // its Height - 600 - panels - 1800
    const int right = Pixels(120 + w - 290);
    const QRect strip = PlaceOf(windows, "SSTab");
    QCOMPARE(strip.topLeft(), QPoint(Pixels(120), Pixels(600)));
    QCOMPARE(PlaceOf(windows, "BackColorTab").topLeft(), QPoint(Pixels(130), Pixels(600)));
    const QRect rich = PlaceOf(windows, "Rich_0");
    QCOMPARE(rich.width(), Pixels(165 + w * 75 / 100) - Pixels(165));
    const QRect server = PlaceOf(windows, "Rich_Server_0");
    QCOMPARE(server.left(), rich.left());
    QCOMPARE(server.width(), rich.width());
    QCOMPARE(server.top(), rich.bottom() + 1);
    QCOMPARE(server.height(), Pixels(300));
    const QRect splitter = PlaceOf(windows, "line_razdel_0");
    QCOMPARE(splitter.left(), rich.right() + 1 + Pixels(15));
    QCOMPARE(splitter.width(), Pixels(60));
    QCOMPARE(splitter.top(), rich.top());
    QCOMPARE(splitter.bottom(), server.bottom());
    const QRect users = PlaceOf(windows, "Rich_Users_0");
    QCOMPARE(users.left(), splitter.right() + 1 + Pixels(15));
    QCOMPARE(users.right() + 1, right);
    const QRect frame = PlaceOf(windows, "frame_button_update_0");
    QCOMPARE(frame.left(), users.left());
    QCOMPARE(frame.width(), users.width());
    const QRect update = PlaceOf(windows, "button_update_0");
    QVERIFY(qAbs(update.center().x() - frame.center().x()) <= 1);

    const int first_row = 600 + h + 140;
    QCOMPARE(PlaceOf(windows, "StopScroll_0").top(), Pixels(first_row));
    QCOMPARE(PlaceOf(windows, "SayUseOp").top(), Pixels(first_row));
    QCOMPARE(PlaceOf(windows, "pers_0").top(), Pixels(first_row + 10));
    QCOMPARE(PlaceOf(windows, "perecodirovka_label").top(), Pixels(first_row + 15));
    const int second_row = Pixels(first_row + 285 + 140);
    const QRect msg = PlaceOf(windows, "msg_0");
    const QRect say = PlaceOf(windows, "button_say_0");
    const QRect clear = PlaceOf(windows, "button_clear_0");
    const QRect intonacia = PlaceOf(windows, "intonacia_0");
    for (const QRect& place : {intonacia, msg, say, clear})
      QCOMPARE(place.top(), second_row);
    QCOMPARE(intonacia.left(), Pixels(100));
    QVERIFY(qAbs(intonacia.width() - Pixels(2260)) <= 1);
    QVERIFY(qAbs(msg.width() - Pixels(w - 5500)) <= 1);
    QVERIFY(qAbs(say.left() - (msg.right() + 1) - Pixels(200)) <= 1);
    QVERIFY(qAbs(clear.left() - (say.right() + 1) - Pixels(100)) <= 1);
  }

  void TheConnectButtonHasItsPlace() {
    Windows windows;
    for (const QSize size : {QSize(800, 560), QSize(1280, 740)}) {
      Resize(windows, size);
      QCOMPARE(PlaceOf(windows, "button_connect_main").topLeft(), QPoint(Pixels(110), Pixels(100)));
    }
  }

  void TheLinksOfTheTwoRowsLookAlike() {
    Windows windows;
    const auto check = [&](const char* name, int top) {
      auto* link = windows.Find(name);
      QCOMPARE(link->y(), Pixels(top));
      QCOMPARE(link->font().family(), QString("verdana"));
      QCOMPARE(link->font().pointSize(), 8);
      QVERIFY(link->font().underline());
      QVERIFY(link->width() >= link->sizeHint().width());
    };
    for (const char* name : kUpperRow)
      check(name, 70);
    for (const char* name : kLowerRow)
      check(name, 300);
    const QImage window = windows.Find("ground")->grab().toImage();
    QCOMPARE(window.pixelColor(PlaceOf(windows, "logout").topRight() + QPoint(0, 1)),
             QColor(233, 235, 231));
  }

  void BracketsStandAroundTheLinks() {
    Windows windows;
    Resize(windows, QSize(900, 500));
    int number = 1;
    const auto check = [&](const char* name) {
      const QRect link = PlaceOf(windows, name);
      for (const char* bracket : {"[", "]"}) {
        auto* label = windows.Find<QLabel>(qPrintable(QString("Label1_%1").arg(number++)));
        QVERIFY(label->isVisible());
        QCOMPARE(label->text(), QString(bracket));
        QCOMPARE(label->font().family(), QString("verdana"));
        QCOMPARE(label->font().pointSize(), 8);
        QCOMPARE(label->y(), link.y());
        if (*bracket == '[')
          QCOMPARE(label->geometry().right() + 1, link.left());
        else
          QCOMPARE(label->x(), link.right() + 1);
      }
    };
    for (const char* name : kUpperRow)
      check(name);
    for (const char* name : kLowerRow)
      check(name);
    QCOMPARE(number, 17);
  }

  void TheRowsOfLinksEndWithThePage() {
    Windows windows;
    ShowEmptyTabs(windows, 1);
    Resize(windows, QSize(900, 500));
    const int right = PlaceOf(windows, "SSTab").right();
    QCOMPARE(PlaceOf(windows, "Label1_6").right(), right);
    QCOMPARE(PlaceOf(windows, "Label1_16").right(), right);
    Resize(windows, QSize(1000, 500));
    QCOMPARE(PlaceOf(windows, "Label1_6").right(), right + 100);
  }

  void LinksLeaveTheControlsAtTheLeftAloneInANarrowWindow() {
    Windows windows;
    windows.window->setMinimumSize(0, 0);
    Resize(windows, QSize(400, 400));
    const int add_tab = PlaceOf(windows, "AddTab").right();
    QVERIFY(PlaceOf(windows, "Label1_1").left() > add_tab);
    QVERIFY(PlaceOf(windows, "Label1_7").left() > add_tab);
  }

  void AClickOnStopScrollGivesMsgTheFocus() {
    Windows windows;
    ShowEmptyTabs(windows, 1);
    auto* box = windows.Find<QCheckBox>("StopScroll_0");
    for (const bool ticked : {true, false}) {
      windows.Find("SSTab")->setFocus();
      QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
      QCOMPARE(box->isChecked(), ticked);
      QCOMPARE(QApplication::focusWidget(), windows.Find("msg_0"));
    }
  }

  void TheMaximizedSizeIsSavedLikeAnyOther() {
    Windows windows("[Main]\r\nHeight=6000\r\nWidth=9000\r\n");
    windows.window->showMaximized();
    QTRY_VERIFY(windows.window->isMaximized() && windows.window->width() > 600);
    const QSize size = windows.window->size();
    windows.window->Unload();
    const Text config = windows.Config();
    QVERIFY(config.find("Width=" + std::to_string(size.width() * 15) + "\r\n") != Text::npos);
    QVERIFY(config.find("Height=" + std::to_string(size.height() * 15) + "\r\n") != Text::npos);
  }

  void AWindowBelowTheFixedHeightsMovesNothing() {
    Windows windows;
    ShowEmptyTabs(windows, 1);
    Resize(windows, QSize(900, 500));
    const QRect rich = PlaceOf(windows, "Rich_0");
    const QRect msg = PlaceOf(windows, "msg_0");
    windows.window->setMinimumSize(0, 0);  // some desktops do not keep to it
    Resize(windows, QSize(900, 130));
    QCOMPARE(PlaceOf(windows, "Rich_0"), rich);
    QCOMPARE(PlaceOf(windows, "msg_0"), msg);
    QCOMPARE(windows.outside.files.files.count("error.log"), std::size_t{0});
    Resize(windows, QSize(1000, 600));
    QCOMPARE(PlaceOf(windows, "Rich_0").height(), rich.height() + 100);
  }

  void ASmallWindowIsNoTrouble() {
    Windows windows;
    ShowEmptyTabs(windows, 1);
    windows.window->setMinimumSize(0, 0);
    windows.window->resize(60, 60);
    QTest::qWait(20);
    Resize(windows, QSize(900, 500));
    QVERIFY(PlaceOf(windows, "Rich_0").height() > 100);
  }

  void ASplitterTooFarToOneSideIsBroughtBackInEverySlot() {
    Windows windows;
    ShowEmptyTabs(windows, 1);
    windows.tab(0).TabSplitPercent = "5";
    windows.tab(7).TabSplitPercent = "99";
    Resize(windows, QSize(900, 500));
    const int w = Twips(windows.Find("ground")->width()) + 20;
    QCOMPARE(PlaceOf(windows, "Rich_0").width(), Pixels(165 + 2000) - Pixels(165));
    QVERIFY(qAbs(std::stod(windows.tab(0).TabSplitPercent) - 2000 * 100.0 / w) < 0.0001);
    QVERIFY(qAbs(std::stod(windows.tab(7).TabSplitPercent) - (w - 2000) * 100.0 / w) < 0.0001);
  }

  void InAWideWindowTheSplitterIsWhereItWas() {
    Windows windows;
    ShowEmptyTabs(windows, 1);
    Resize(windows, QSize(1200, 500));
    windows.tab(0).TabSplitPercent = "84";
    windows.tab(3).TabSplitPercent = "60";
    Resize(windows, QSize(1190, 500));
    Resize(windows, QSize(600, 500));
    QVERIFY(std::stod(windows.tab(0).TabSplitPercent) < 80);
    QCOMPARE(windows.tab(3).TabSplitPercent, Text("60"));
    Resize(windows, QSize(1200, 500));
    QCOMPARE(windows.tab(0).TabSplitPercent, Text("84"));
    Resize(windows, QSize(600, 500));
    windows.tab(0).TabSplitPercent = "50";
    Resize(windows, QSize(1200, 500));
    QCOMPARE(windows.tab(0).TabSplitPercent, Text("50"));
  }

  void LinesOfTheUserListNeverWrap() {
    Windows windows;
    ShowEmptyTabs(windows, 2);
    Resize(windows, QSize(900, 500));
    const int w = Twips(windows.Find("ground")->width()) + 20;
    const int rich = qRound(w * 0.75);
    const int width = w - 45 - rich - 15 - 60 - 15 - 290;
    QCOMPARE(windows.tab(0).Rich_Users.RightMargin(), width + 50000);
    Resize(windows, QSize(1300, 500));
    QVERIFY(windows.tab(0).Rich_Users.RightMargin() > width + 50000);
    windows.desktop.SetActiveTab(1);
    QCOMPARE(windows.tab(1).Rich_Users.RightMargin(), windows.tab(0).Rich_Users.RightMargin());
  }

  void HiddenSlotsAreLaidOutWhenTheyAreShown() {
    Windows windows;
    ShowEmptyTabs(windows, 10);
    Resize(windows, QSize(800, 500));
    Counter shown(windows.Find("Rich_0"), QEvent::Resize);
    Counter hidden(windows.Find("Rich_9"), QEvent::Resize);
    Counter moved(windows.Find("msg_9"), QEvent::Move);
    for (int width = 810; width <= 900; width += 10)
      Resize(windows, QSize(width, 500));
    QCOMPARE(shown.count, 10);
    QCOMPARE(hidden.count, 0);
    QCOMPARE(moved.count, 0);
    windows.desktop.SetActiveTab(9);
    QCOMPARE(PlaceOf(windows, "Rich_9"), PlaceOf(windows, "Rich_0"));
    QCOMPARE(hidden.count, 1);
  }

  void AResizeTouchesOnlyWhatMoves() {
    Windows windows;
    ShowEmptyTabs(windows, 1);
    Resize(windows, QSize(800, 500));
    Counter links(windows.Find("logout"), QEvent::Move);
    Counter button(windows.Find("button_connect_main"), QEvent::Move);
    Counter hides(windows.Find("Rich_0"), QEvent::Hide);
    Counter msg_size(windows.Find("msg_0"), QEvent::Resize);
    Resize(windows, QSize(800, 520));
    QCOMPARE(links.count, 0);
    QCOMPARE(msg_size.count, 0);
    Resize(windows, QSize(820, 520));
    QCOMPARE(links.count, 1);
    QCOMPARE(msg_size.count, 1);
    QCOMPARE(button.count, 0);
    QCOMPARE(hides.count, 0);
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::MainLayoutTest)
#include "main_layout_test.moc"
