// The search dialog under real key and mouse events.
#include <QCheckBox>
#include <QLineEdit>
#include <QObject>
#include <QRadioButton>

#include "pane/qt/rich_text_view.h"
#include "shell/qt/search_form.h"
#include "shell/qt/windows_fixture.h"
#include "support/pane_samples.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

// The main window with a tab and something to find in it.
struct SearchWindow : Windows {
  explicit SearchWindow(const std::optional<Text>& config = std::nullopt) : Windows(config) {
    for (const int slot : {0, 1}) {
      tab(slot).LoginShown = true;
      desktop.SetTabVisible(slot, true);
    }
    desktop.SetActiveTab(0);
    view = Find<RichTextView>("Rich_0");
    AppendMessage(view->box(), "[10:00:00] ", "bob: ", " here is a needle");
    AppendMessages(view->box(), 300);
    AppendMessage(view->box(), "[10:00:01] ", "bob: ", " here is a NEEDLE");
    QTest::qWait(50);
  }

  // As the desktop sends it, to the window that is active.
  static void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWindow* to = QApplication::activeWindow()->windowHandle();
    QTest::simulateEvent(to, true, key, modifiers, QString(), false);
    QTest::simulateEvent(to, false, key, modifiers, QString(), false);
  }
  search_form* Open() {
    Press(Qt::Key_F, Qt::ControlModifier);
    auto* form = Find<search_form>("search_form");
    WaitUntilActive(form);
    return form;
  }
  QLineEdit* text() { return Find<QLineEdit>("txt_to_search"); }
  Text Selected() { return view->box().TextBetween(view->Selected().start, view->Selected().end); }
  bool IsSeen() { return !view->CharacterRect(view->Selected().start).isEmpty(); }

  RichTextView* view = nullptr;
};

}  // namespace

class SearchWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void ControlFOpensItWithTheTextSelectedAndInFocus() {
    SearchWindow windows;
    windows.Find("msg_0")->setFocus();
    search_form* form = windows.Open();
    QVERIFY(!form->isModal());
    QVERIFY(windows.text()->hasFocus());
    QTest::keyClicks(windows.text(), "one");
    windows.Find("compl_word")->setFocus();
    windows.window->activateWindow();
    WaitUntilActive(windows.window.get());
    QVERIFY(form->isVisible());
    form->activateWindow();
    WaitUntilActive(form);
    QVERIFY(windows.text()->hasFocus());
    QCOMPARE(windows.text()->selectedText(), QString("one"));
  }

  void ItComesUpInTheCornerAndThenWhereItWasLeft() {
    SearchWindow windows;
    search_form* form = windows.Open();
    const QRect owner = windows.window->geometry();
    QVERIFY(owner.right() - form->geometry().right() < 40);
    QVERIFY(form->geometry().top() - owner.top() < 40);
    form->move(30, 50);
    windows.Press(Qt::Key_Escape);
    windows.window->activateWindow();
    WaitUntilActive(windows.window.get());
    windows.Open();
    QCOMPARE(form->pos(), QPoint(30, 50));
  }

  void TheLabelOpensIt() {
    SearchWindow windows;
    QTest::mouseClick(windows.Find("search_label"), Qt::LeftButton);
    QVERIFY(windows.Find("search_form")->isVisible());
  }

  void EnterFindsOnAndTheHitIsSeenSelected() {
    SearchWindow windows;
    windows.Open();
    QTest::keyClicks(windows.text(), "needle");
    QVERIFY(windows.Selected().empty());
    windows.Press(Qt::Key_Return);
    QCOMPARE(windows.Selected(), Text("needle"));
    QTRY_VERIFY(windows.IsSeen());
    windows.Press(Qt::Key_Return);
    QCOMPARE(windows.Selected(), Text("NEEDLE"));
    QTRY_VERIFY(windows.IsSeen());
    QVERIFY(windows.text()->hasFocus());
  }

  void BehindTheLastHitABoxSaysSo() {
    SearchWindow windows;
    search_form* form = windows.Open();
    QTest::keyClicks(windows.text(), "NEEDLE");
    QTest::mouseClick(windows.Find("case_sensitive"), Qt::LeftButton, Qt::NoModifier, {8, 8});
    QTest::keyClick(windows.text(), Qt::Key_Enter);
    QCOMPARE(windows.Selected(), Text("NEEDLE"));
    const SeenBox box = EnterInBox([&] { QTest::keyClick(windows.text(), Qt::Key_Return); });
    QCOMPARE(box.title, QString("Parlorwire"));
    QCOMPARE(box.text, Utf8("Поиск завершен"));
    QCOMPARE(box.icon, QMessageBox::Information);
    QVERIFY(form->isVisible());
  }

  void TheButtonFindsOnWithTheLeftButtonAlone() {
    SearchWindow windows;
    windows.Open();
    auto* next = windows.Find<QAbstractButton>("button_next");
    QTest::keyClicks(windows.text(), "needle");
    windows.Find("compl_word")->setFocus();
    QTest::mouseClick(next, Qt::RightButton);
    QVERIFY(windows.Selected().empty());
    QVERIFY(windows.text()->hasFocus());
    QTest::mousePress(next, Qt::LeftButton);
    QVERIFY(next->isDown());
    QVERIFY(windows.Selected().empty());
    QTest::mouseRelease(next, Qt::LeftButton);
    QCOMPARE(windows.Selected(), Text("needle"));
    QVERIFY(windows.text()->hasFocus());
  }

  void WithoutATextTheFocusGoesToIt() {
    SearchWindow windows;
    windows.Open();
    auto* next = windows.Find<QAbstractButton>("button_next");
    next->setFocus();
    windows.Press(Qt::Key_Return);
    QVERIFY(windows.text()->hasFocus());
    QVERIFY(windows.Selected().empty());
  }

  void UpAndWholeWordsAreChosen() {
    SearchWindow windows;
    windows.Open();
    QVERIFY(windows.Find<QRadioButton>("Opt_down")->isChecked());
    QTest::keyClicks(windows.text(), "a");
    QTest::mouseClick(windows.Find("Opt_up"), Qt::LeftButton, Qt::NoModifier, {8, 8});
    QTest::mouseClick(windows.Find("compl_word"), Qt::LeftButton, Qt::NoModifier, {8, 8});
    windows.Press(Qt::Key_Return);
    const PanePosition last = windows.view->Selected().start;
    QCOMPARE(windows.view->box().TextBetween(last - 1, last + 8), Text(" a NEEDLE"));
  }

  void EscapeAndTheButtonAndTheFrameHideIt() {
    SearchWindow windows;
    search_form* form = windows.Open();
    const auto run = windows.client.app.search_form.Run;
    windows.Press(Qt::Key_Escape);
    QVERIFY(!form->isVisible());
    QVERIFY(windows.client.app.search_form.Run != run);
    windows.window->activateWindow();
    WaitUntilActive(windows.window.get());
    QCOMPARE(windows.Open(), form);
    QTest::mouseClick(windows.Find("button_cancel"), Qt::LeftButton);
    QVERIFY(!form->isVisible());
    windows.window->activateWindow();
    WaitUntilActive(windows.window.get());
    windows.Open();
    form->close();
    QVERIFY(!form->isVisible());
  }

  void F3FindsOnWithTheDialogHidden() {
    SearchWindow windows;
    search_form* form = windows.Open();
    QTest::keyClicks(windows.text(), "needle");
    windows.Press(Qt::Key_Escape);
    windows.window->activateWindow();
    WaitUntilActive(windows.window.get());
    windows.Find("msg_0")->setFocus();
    windows.Press(Qt::Key_F3);
    QCOMPARE(windows.Selected(), Text("needle"));
    windows.Press(Qt::Key_F3);
    QCOMPARE(windows.Selected(), Text("NEEDLE"));
    windows.Press(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(windows.Selected(), Text("needle"));
    QVERIFY(!form->isVisible());
  }

  void F3FindsOnInTheDialogToo() {
    SearchWindow windows;
    windows.Open();
    QTest::keyClicks(windows.text(), "needle");
    windows.Press(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(windows.Selected(), Text("NEEDLE"));
    windows.Press(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(windows.Selected(), Text("needle"));
    windows.Press(Qt::Key_F3);
    QCOMPARE(windows.Selected(), Text("NEEDLE"));
  }

  void F3WithNothingToSearchForOpensTheDialog() {
    SearchWindow windows;
    windows.Press(Qt::Key_F3);
    QVERIFY(windows.Find("search_form")->isVisible());
  }

  void TheFirstSearchStartsAtWhatTheReaderHasSelected() {
    SearchWindow windows;
    windows.Open();
    QTest::keyClicks(windows.text(), "needle");
    windows.view->Select(40, 45);
    // A line that comes leaves the writer's selection elsewhere.
    AppendMessage(windows.view->box(), "[10:00:02] ", "bob: ", " more");
    windows.view->box().HideSelection(true);
    windows.view->box().ExSetSel(0, 3);
    windows.Press(Qt::Key_Return);
    QCOMPARE(windows.Selected(), Text("NEEDLE"));
  }

  void TheWritersSelectionIsNoStart() {
    SearchWindow windows;
    windows.Open();
    QTest::keyClicks(windows.text(), "needle");
    RichTextBox& pane = windows.view->box();
    pane.HideSelection(true);
    pane.ExSetSel(pane.Length() - 5, pane.Length());
    windows.Press(Qt::Key_Return);
    QCOMPARE(windows.Selected(), Text("needle"));
  }

  void TheCaptionsAreRussianAndTheirMeaningIsSaid() {
    SearchWindow windows("[Main]\r\nLanguage=English\r\n");
    search_form* form = windows.Open();
    QCOMPARE(form->windowTitle(), Utf8("Поиск"));
    QCOMPARE(form->accessibleName(), QString("Search"));
    const auto says = [&](const char* name, const char* caption, const char* meaning) {
      auto* control = windows.Find(name);
      QCOMPARE(control->property("text").toString(), Utf8(caption));
      QCOMPARE(control->accessibleName(), QString(meaning));
      QCOMPARE(control->toolTip(), QString(meaning));
    };
    says("l_txt_to_search", "Найти:", "Find:");
    says("compl_word", "Слово целиком", "Whole word");
    says("case_sensitive", "С учётом регистра", "Match case");
    says("Opt_up", "Вверх", "Up");
    says("Opt_down", "Вниз", "Down");
    says("button_next", "Найти далее", "Find next");
    says("button_cancel", "Отмена", "Cancel");
    windows.desktop.ShowLanguage(UiLanguage::kRussian);
    QCOMPARE(windows.Find("Opt_up")->accessibleName(), Utf8("Вверх"));
    QCOMPARE(windows.Find("Opt_up")->toolTip(), QString());
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::SearchWindowTest)
#include "search_window_test.moc"
