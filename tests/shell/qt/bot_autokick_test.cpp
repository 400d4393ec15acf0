// The editor of the list of kicks under real key and mouse events.
#include <QAccessible>
#include <QAction>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QObject>
#include <QScrollBar>

#include "bot/autokick_adding.h"
#include "shell/qt/autokick_grid.h"
#include "shell/qt/bot_autokick.h"
#include "shell/qt/ss_tab.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

const Text kThree =
    "Bob\thall\tGo\t\r\n10.0.*.*\tAll\tSpam\tann;carl\r\nAnn\tattic\tOut\t\r\n// no entry";
const Text kAsked = "Доступ с Вашего ника или IP запрещен"_w;
constexpr const char* kEnglishConfig = "[Main]\r\nLanguage=English\r\n";

// The main window with two tabs, and the editor open on a list.
struct EditorWindow : Windows {
  explicit EditorWindow(const Text& list = kThree, const std::optional<Text>& config = std::nullopt)
      : Windows(config) {
    client.app.AutoKickText = list;
    for (const int slot : {0, 1})
      desktop.SetTabVisible(slot, true);
    desktop.SetTabCaption(0, "lobby - alice");
    desktop.SetTabCaption(1, "attic - alice");
    desktop.SetActiveTab(0);
    tab(0).Channel = "lobby";
    // The switch of tabs brings the focus to msg a little later.
    QTest::qWait(30);
  }
  void Open() {
    Item("akick_modify")->trigger();
    editor = Find<bot_autokick>("bot_autokick");
    WaitUntilActive(editor);
    grid = Find<AutoKickGrid>("Grid1");
    input = Find<QLineEdit>("input_field");
  }

  QAction* Item(const char* name) { return window->findChild<QAction*>(QLatin1String(name)); }
  QString Cell(int row, int column) { return grid->model()->index(row, column).data().toString(); }
  QStringList Masks() {
    QStringList masks;
    for (int row = 0; row < grid->model()->rowCount(); ++row)
      masks << Cell(row, 0) + " " + Cell(row, 1);
    return masks;
  }
  // `text`, while it lies over a cell.
  QLineEdit* Text() {
    for (auto* text : grid->findChildren<QLineEdit*>(QStringLiteral("text")))
      if (text->isVisible()) return text;
    return nullptr;
  }
  void ClickCell(int row, int column) {
    const QPoint at = grid->visualRect(grid->model()->index(row, column)).center();
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, Qt::NoModifier, at);
  }
  void GoTo(int row, int column) {
    grid->setFocus();
    grid->setCurrentIndex(grid->model()->index(row, column));
  }
  // A message box has gone, as under a window manager.
  void Back() {
    editor->activateWindow();
    WaitUntilActive(editor);
  }
  void Click(const char* button) {
    QTest::mouseClick(editor->findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
  }
  // As the desktop sends it, to whatever has the focus.
  void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier, const QString& text = {}) {
    QWindow* to = QApplication::activeWindow()->windowHandle();
    QTest::simulateEvent(to, true, key, modifiers, text, false);
    QTest::simulateEvent(to, false, key, modifiers, text, false);
  }
  // Puts a text into a cell as by hand.
  void Edit(int row, int column, const QString& typed) {
    ClickCell(row, column);
    QVERIFY(Text() != nullptr);
    Press(Qt::Key_A, Qt::ControlModifier);
    Press(Qt::Key_Backspace);
    Type(Text(), typed);
    Press(Qt::Key_Return);
  }

  bot_autokick* editor = nullptr;
  AutoKickGrid* grid = nullptr;
  QLineEdit* input = nullptr;
};

}  // namespace

class BotAutokickTest : public QObject {
  Q_OBJECT

 private slots:
  // ---- opening ----

  void ShowsTheListAsATable() {
    EditorWindow windows(
        "// no\r\n\r\nBob\tAll\tGo\t\r\n10.0.*.*\ta;b\tSpam\tann;carl\r\nёж\thall"_w);
    windows.Open();
    QStringList headers;
    for (int column = 0; column < windows.grid->model()->columnCount(); ++column)
      headers << windows.grid->model()->headerData(column, Qt::Horizontal).toString();
    QCOMPARE(headers, QStringList({Utf8("№"), Utf8("Ник или IP*"), Utf8("Забаненные каналы**"),
                                   Utf8("Причина"), Utf8("Ники-исключение")}));
    QStringList cells;
    for (int row = 0; row < windows.grid->model()->rowCount(); ++row)
      for (int column = 0; column < 5; ++column)
        cells << windows.Cell(row, column);
    QCOMPARE(cells, QStringList({"1", "Bob", "All", "Go", "", "2", "10.0.*.*", "a;b", "Spam",
                                 "ann;carl", "3", Utf8("ёж"), "hall", ToQString(kAsked), ""}));
    QVERIFY(windows.input->hasFocus());
    QVERIFY(!windows.editor->isModal());
  }

  void ALineThatIsNoEntryIsToldOf() {
    EditorWindow windows("garbage\r\nBob\tAll\tGo\t");
    const SeenBox box = EnterInBox([&] { windows.Item("akick_modify")->trigger(); });
    QCOMPARE(box.title, QString("Parlorwire"));
    QCOMPARE(box.text, Utf8("Произошла ошибка при построении списка автокика!"));
    QVERIFY(windows.Find("bot_autokick")->isVisible());
  }

  void ItsTextsAreRussianInBothLanguages() {
    for (const bool english : {false, true}) {
      EditorWindow windows(kThree, english ? std::optional<Text>(kEnglishConfig) : std::nullopt);
      windows.Open();
      auto* label = windows.Find<QLabel>("l_input_field");
      auto* note = windows.Find<QLabel>("note");
      QCOMPARE(windows.editor->windowTitle(), Utf8("lobby - alice - Настройки бота"));
      QCOMPARE(label->text(), Utf8("Введите ник или IP*:"));
      QCOMPARE(note->text(),
               Utf8("*Вы можете использовать символы-маску \"*\", \"?\", \"#\"\n"
                    "**Каналы разделяются точкой с запятой, All означает все каналы"));
      const auto header = [&](int role) {
        return windows.grid->model()->headerData(2, Qt::Horizontal, role).toString();
      };
      QCOMPARE(header(Qt::DisplayRole), Utf8("Забаненные каналы**"));
      QCOMPARE(header(Qt::ToolTipRole), english ? QString("Banned channels") : QString());
      QCOMPARE(header(Qt::AccessibleTextRole), english ? QString("Banned channels") : QString());
      QCOMPARE(label->toolTip(), english ? QString("Type a nick or an IP") : QString());
      QCOMPARE(windows.input->accessibleName(),
               english ? QString("Type a nick or an IP") : label->text());
      QVERIFY(
          note->toolTip().startsWith(english ? QString("A nick or an IP may hold") : QString()));
      QCOMPARE(note->toolTip().isEmpty(), !english);
      QCOMPARE(windows.editor->accessibleName(),
               english ? QString("lobby - alice - Bot settings") : windows.editor->windowTitle());
      QCOMPARE(windows.editor->findChild<QPushButton*>("button_apply")->text(),
               english ? QString("&Apply") : Utf8("&Применить"));
    }
  }

  void ANewLanguageHoldsInAnOpenEditor() {
    EditorWindow windows;
    windows.Open();
    QTest::qWait(1);
    windows.Item("eng")->trigger();
    QCOMPARE(windows.editor->findChild<QPushButton*>("button_cancel")->text(), QString("&Cancel"));
    windows.Item("rus")->trigger();
    QCOMPARE(windows.editor->findChild<QPushButton*>("button_cancel")->text(), Utf8("&Отмена"));
    QCOMPARE(windows.input->toolTip(), QString());
  }

  void TheTitleFollowsTheVisibleTab() {
    EditorWindow windows;
    windows.Open();
    windows.desktop.SetActiveTab(1);
    QCOMPARE(windows.editor->windowTitle(), Utf8("attic - alice - Настройки бота"));
    windows.desktop.SetTabCaption(1, "cellar - bob");
    QCOMPARE(windows.editor->windowTitle(), Utf8("cellar - bob - Настройки бота"));
    QTest::mouseClick(windows.window->controls.SSTab, Qt::LeftButton, Qt::NoModifier,
                      windows.window->controls.SSTab->tabRect(0).center());
    QCOMPARE(windows.editor->windowTitle(), Utf8("lobby - alice - Настройки бота"));
  }

  void ASecondCallRaisesItAsItIs() {
    EditorWindow windows;
    windows.Open();
    Type(windows.input, "eve");
    windows.Click("button_add");
    windows.window->activateWindow();
    WaitUntilActive(windows.window.get());
    windows.Item("akick_modify")->trigger();
    WaitUntilActive(windows.editor);
    QCOMPARE(windows.grid->model()->rowCount(), 4);
  }

  void TheMainWindowIsUsedBesideIt() {
    EditorWindow windows;
    windows.Open();
    windows.desktop.SetTabControlsEnabled(0, true);
    windows.window->activateWindow();
    WaitUntilActive(windows.window.get());
    auto* msg = windows.Find<QLineEdit>("msg_0");
    QTest::mouseClick(msg, Qt::LeftButton);
    windows.Press(Qt::Key_X, Qt::NoModifier, "x");
    QCOMPARE(msg->text(), QString("x"));
    QVERIFY(windows.editor->isVisible());
  }

  // ---- adding ----

  void AMaskIsAddedByTheButton() {
    EditorWindow windows;
    windows.Open();
    Type(windows.input, "12.34.*.*");
    windows.Click("button_add");
    QCOMPARE(windows.Masks(), QStringList({"1 Bob", "2 10.0.*.*", "3 Ann", "4 12.34.*.*"}));
    QCOMPARE(windows.Cell(3, 2), QString("All"));
    QCOMPARE(windows.Cell(3, 3), ToQString(kAsked));
    QCOMPARE(windows.Cell(3, 4), QString());
    QCOMPARE(windows.input->text(), QString());
    QVERIFY(windows.input->hasFocus());
    QCOMPARE(windows.grid->currentIndex().row(), 3);
    QCOMPARE(windows.client.app.AutoKickText, kThree);
  }

  void AMaskIsAddedByEnterWithoutItsColon() {
    EditorWindow windows;
    windows.Open();
    Type(windows.input, "Nick:");
    windows.Press(Qt::Key_Return);
    QCOMPARE(windows.Cell(3, 1), QString("Nick"));
    QCOMPARE(windows.input->text(), QString());
    windows.Press(Qt::Key_Return);
    QCOMPARE(windows.grid->model()->rowCount(), 4);
  }

  void ANewRowIsSeenInALongTable() {
    Text list;
    for (int i = 0; i < 200; ++i)
      list += "nick" + std::to_string(i) + "\tAll\tGo\t\r\n";
    EditorWindow windows(list);
    windows.Open();
    Type(windows.input, "eve");
    windows.Press(Qt::Key_Return);
    const QModelIndex last = windows.grid->model()->index(200, 1);
    QVERIFY(windows.grid->viewport()->rect().contains(windows.grid->visualRect(last)));
  }

  void AMaskIsRefused_data() {
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* typed, const char* message) {
      QTest::newRow(typed) << QString(typed) << Utf8(message);
    };
    row("a b", "Ник или IP не должен содержать пробелы!");
    row("12.34", "Ошибка в наборе IP!");
    row("10.0.*.*", "Такой IP уже есть в списке!");
    row("BOB", "Такой ник уже есть в списке!");
  }
  void AMaskIsRefused() {
    QFETCH(QString, typed);
    QFETCH(QString, message);
    EditorWindow windows;
    windows.Open();
    Type(windows.input, typed);
    const SeenBox box = EnterInBox([&] { windows.Press(Qt::Key_Return); });
    QCOMPARE(box.title, QString("Parlorwire"));
    QCOMPARE(box.text, message);
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(windows.grid->model()->rowCount(), 3);
    QCOMPARE(windows.input->text(), typed);
    windows.Back();
    QTRY_VERIFY(windows.input->hasFocus());
  }

  // ---- editing a cell ----

  void AClickLaysTextOverTheCell() {
    EditorWindow windows;
    windows.Open();
    for (int column = 1; column < 5; ++column) {
      windows.ClickCell(1, column);
      QLineEdit* text = windows.Text();
      QVERIFY(text != nullptr);
      QCOMPARE(text->text(), windows.Cell(1, column));
      QCOMPARE(text->selectedText(), text->text());
      QVERIFY(text->hasFocus());
      const QRect cell = windows.grid->visualRect(windows.grid->model()->index(1, column));
      QVERIFY(cell.contains(text->geometry().center()));
    }
    windows.ClickCell(1, 0);
    QTRY_VERIFY(windows.Text() == nullptr);
    QCOMPARE(windows.grid->currentIndex().row(), 1);
  }

  void KeysLayTextOverTheCell_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("letter");
    QTest::addColumn<QString>("text");
    QTest::newRow("Enter") << int(Qt::Key_Return) << QString() << QString("Bob");
    QTest::newRow("Enter of the keypad") << int(Qt::Key_Enter) << QString() << QString("Bob");
    QTest::newRow("F2") << int(Qt::Key_F2) << QString() << QString("Bob");
    QTest::newRow("a letter") << int(Qt::Key_X) << QString("x") << QString("x");
    QTest::newRow("a Russian letter") << 0x0416 << Utf8("ж") << Utf8("ж");
  }
  void KeysLayTextOverTheCell() {
    QFETCH(int, key);
    QFETCH(QString, letter);
    QFETCH(QString, text);
    EditorWindow windows;
    windows.Open();
    windows.input->setText("eve");
    windows.GoTo(0, 1);
    windows.Press(key, Qt::NoModifier, letter);
    QVERIFY(windows.Text() != nullptr);
    QCOMPARE(windows.Text()->text(), text);
    QCOMPARE(windows.grid->model()->rowCount(), 3);
    windows.GoTo(0, 0);
    windows.Press(key, Qt::NoModifier, letter);
    QTRY_VERIFY(windows.Text() == nullptr);
    QCOMPARE(windows.grid->model()->rowCount(), 3);
  }

  void EnterPutsTheTextIntoTheCell() {
    EditorWindow windows;
    windows.Open();
    windows.Edit(0, 1, Utf8("ёж:"));
    QTRY_COMPARE(windows.Cell(0, 1), Utf8("ёж"));
    QTRY_VERIFY(windows.grid->hasFocus());
    QVERIFY(windows.editor->isVisible());
    QCOMPARE(windows.grid->model()->rowCount(), 3);
    QCOMPARE(windows.client.app.AutoKickText, kThree);
  }

  void EscapeLeavesTheCellAsItWas() {
    EditorWindow windows;
    windows.Open();
    windows.ClickCell(0, 3);
    Type(windows.Text(), "other");
    windows.Press(Qt::Key_Escape);
    QTRY_VERIFY(windows.Text() == nullptr);
    QTest::qWait(20);
    QCOMPARE(windows.Cell(0, 3), QString("Go"));
    QVERIFY(windows.editor->isVisible());
  }

  void TabGoesFromCellToCell() {
    EditorWindow windows;
    windows.Open();
    const auto at = [&] {
      const QModelIndex index = windows.grid->currentIndex();
      return QString("%1,%2").arg(index.row()).arg(index.column());
    };
    windows.ClickCell(1, 3);
    Type(windows.Text(), "Flood");
    windows.Press(Qt::Key_Tab);
    QTRY_COMPARE(windows.Cell(1, 3), QString("Flood"));
    QCOMPARE(at(), QString("1,4"));
    QVERIFY(windows.Text() != nullptr);
    QTest::qWait(20);
    QCOMPARE(windows.Text()->selectedText(), QString("ann;carl"));
    windows.Press(Qt::Key_Tab);
    QCOMPARE(at(), QString("2,1"));
    QVERIFY(windows.Text() != nullptr);
    QCOMPARE(windows.Text()->text(), QString("Ann"));
    windows.Press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(at(), QString("1,4"));
    QVERIFY(windows.Text() != nullptr);
    windows.ClickCell(2, 4);
    windows.Press(Qt::Key_Tab);
    QTRY_VERIFY(windows.Text() == nullptr);
    QCOMPARE(at(), QString("2,4"));
  }

  void OutsideOfACellTabLeavesTheTable() {
    EditorWindow windows;
    windows.Open();
    QStringList order;
    for (int i = 0; i < 5; ++i) {
      order << QApplication::focusWidget()->objectName();
      windows.Press(Qt::Key_Tab);
    }
    QCOMPARE(order,
             QStringList({"input_field", "button_add", "Grid1", "button_apply", "button_cancel"}));
  }

  void TheRulesOfTheColumns_data() {
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("message");
    const auto row = [](int column, const char* typed, const char* shown, const char* message) {
      QTest::addRow("%d, %s", column, typed)
          << column << Utf8(typed) << Utf8(shown) << Utf8(message);
    };
    row(1, " e:ve ", "eve", "");
    row(1, "", "10.0.*.*", "");
    row(1, "a b", "10.0.*.*", "Ник или IP не должен содержать пробелы!");
    row(1, "12.34", "10.0.*.*", "Ошибка в наборе IP!");
    row(1, "ANN", "10.0.*.*", "Такой ник уже есть в списке!");
    row(2, "hall; attic", "hall;attic", "");
    row(2, "", "All", "");
    row(3, " на минуту ", "на минуту", "");
    row(3, "", "Доступ с Вашего ника или IP запрещен", "");
    row(4, "eve; fay ", "eve;fay", "");
    row(4, "", "", "");
    row(4, "eve fay", "ann;carl", "Ник  не должен содержать пробелы!");
  }
  void TheRulesOfTheColumns() {
    QFETCH(int, column);
    QFETCH(QString, typed);
    QFETCH(QString, shown);
    QFETCH(QString, message);
    EditorWindow windows;
    windows.Open();
    if (message.isEmpty()) {
      windows.Edit(1, column, typed);
    } else {
      const SeenBox box = EnterInBox([&] { windows.Edit(1, column, typed); });
      QCOMPARE(box.title, QString("Parlorwire"));
      QCOMPARE(box.text, message);
    }
    QTRY_VERIFY(windows.Text() == nullptr);
    QTRY_COMPARE(windows.Cell(1, column), shown);
  }

  void ACellThatIsOnlyPassedThroughKeepsWhatItHas() {
    EditorWindow windows("a b\t\tGo\tann carl");
    windows.Open();
    windows.ClickCell(0, 1);
    for (int i = 0; i < 4; ++i) {
      windows.Press(Qt::Key_Tab);
      QTest::qWait(10);
    }
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(windows.Cell(0, 1), QString("a b"));
    QCOMPARE(windows.Cell(0, 2), QString());
    QCOMPARE(windows.Cell(0, 4), QString("ann carl"));
  }

  void AClickElsewherePutsTheTextIntoTheCell() {
    EditorWindow windows;
    windows.Open();
    windows.ClickCell(0, 3);
    Type(windows.Text(), "one");
    windows.ClickCell(1, 3);
    QTRY_COMPARE(windows.Cell(0, 3), QString("one"));
    Type(windows.Text(), "two");
    QTest::mouseClick(windows.input, Qt::LeftButton);
    QTRY_COMPARE(windows.Cell(1, 3), QString("two"));
  }

  void TextStaysOpenWhileAnotherWindowHasTheFocus() {
    EditorWindow windows;
    windows.Open();
    windows.ClickCell(0, 1);
    Type(windows.Text(), "a b");
    windows.window->activateWindow();
    WaitUntilActive(windows.window.get());
    QTest::qWait(20);
    QVERIFY(windows.Text() != nullptr);
    QCOMPARE(windows.Text()->text(), QString("a b"));
    QCOMPARE(windows.Cell(0, 1), QString("Bob"));
  }

  void WhatAFileCannotHoldIsChangedAsItGetsIn() {
    EditorWindow windows;
    windows.Open();
    QGuiApplication::clipboard()->setText(Utf8("a\tb\r\nc→😀d"));
    windows.Press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(windows.input->text(), QString("a b  c??d"));
    QCOMPARE(windows.input->cursorPosition(), 9);
    windows.input->setCursorPosition(1);
    Type(windows.input, Utf8("→ж"));
    QCOMPARE(windows.input->text(), Utf8("a?ж b  c??d"));
    QCOMPARE(windows.input->cursorPosition(), 3);
    windows.ClickCell(0, 3);
    windows.Press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(windows.Text()->text(), QString("a b  c??d"));
    windows.Press(Qt::Key_Return);
    QTRY_COMPARE(windows.Cell(0, 3), QString("a b  c??d"));
  }

  void AScreenReaderHearsWhatTextIsFor() {
    EditorWindow windows(kThree, kEnglishConfig);
    windows.Open();
    windows.ClickCell(0, 2);
    QCOMPARE(windows.Text()->accessibleName(), QString("Banned channels"));
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(windows.grid);
    QVERIFY(table->tableInterface() != nullptr);
    QCOMPARE(table->tableInterface()->cellAt(1, 1)->text(QAccessible::Name), QString("10.0.*.*"));
    QCOMPARE(table->tableInterface()->columnDescription(3), Utf8("Причина"));
    QCOMPARE(windows.grid->accessibleName(), QString("Auto-kick list"));
  }

  // ---- walking and sizing ----

  void RowsAreWalkedByKeys() {
    Text list;
    for (int i = 0; i < 200; ++i)
      list += "nick" + std::to_string(i) + "\tAll\tGo\t\r\n";
    EditorWindow windows(list);
    windows.Open();
    windows.GoTo(0, 1);
    windows.Press(Qt::Key_Down);
    QCOMPARE(windows.grid->currentIndex().row(), 1);
    windows.Press(Qt::Key_PageDown);
    QVERIFY(windows.grid->currentIndex().row() > 5);
    windows.Press(Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(windows.grid->currentIndex().row(), 199);
    QVERIFY(windows.Text() == nullptr);
    const QRect last = windows.grid->visualRect(windows.grid->currentIndex());
    QVERIFY(windows.grid->viewport()->rect().contains(last.center()));
  }

  void TheCellThatKeysHaveReachedIsMarkedInItsRow() {
    EditorWindow windows;
    windows.Open();
    const auto edge = [&](int row, int column) {
      const QRect cell = windows.grid->visualRect(windows.grid->model()->index(row, column));
      return OnScreen(windows.grid->viewport()).pixelColor(cell.left() + 1, cell.center().y());
    };
    windows.GoTo(1, 2);
    const QPalette look = windows.grid->palette();
    QTRY_COMPARE(edge(1, 2), look.color(QPalette::Active, QPalette::HighlightedText));
    QCOMPARE(edge(1, 3), look.color(QPalette::Active, QPalette::Highlight));
    windows.Press(Qt::Key_Right);
    QTRY_COMPARE(edge(1, 3), look.color(QPalette::Active, QPalette::HighlightedText));
    QCOMPARE(edge(1, 2), look.color(QPalette::Active, QPalette::Highlight));
  }

  void AColumnIsSizedWithTheMouse() {
    EditorWindow windows;
    windows.Open();
    QHeaderView* header = windows.grid->horizontalHeader();
    const int before = header->sectionSize(1);
    const QPoint edge(header->sectionViewportPosition(1) + before - 1, header->height() / 2);
    QTest::mousePress(header->viewport(), Qt::LeftButton, Qt::NoModifier, edge);
    QMouseEvent move(QEvent::MouseMove, edge + QPoint(40, 0),
                     header->viewport()->mapToGlobal(edge + QPoint(40, 0)), Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(header->viewport(), &move);
    QTest::mouseRelease(header->viewport(), Qt::LeftButton, Qt::NoModifier, edge + QPoint(40, 0));
    QCOMPARE(header->sectionSize(1), before + 40);
    // It is as wide when the editor comes back.
    windows.Press(Qt::Key_Escape);
    windows.Open();
    QCOMPARE(header->sectionSize(1), before + 40);
  }

  // ---- deleting ----

  void DeleteAsksAndTheRowsBehindMoveUp() {
    EditorWindow windows;
    windows.Open();
    windows.ClickCell(1, 0);
    const SeenBox box = AnswerBox(QMessageBox::Yes, [&] { windows.Press(Qt::Key_Delete); });
    QCOMPARE(box.title, QString("Parlorwire"));
    QCOMPARE(box.text, Utf8("Вы действительно хотите удалить информацию о 10.0.*.*?"));
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, 2);
    QCOMPARE(windows.Masks(), QStringList({"1 Bob", "2 Ann"}));
    QCOMPARE(windows.grid->currentIndex().row(), 1);
    windows.Back();
    QTRY_VERIFY(windows.grid->hasFocus());
    EnterInBox([&] { windows.Press(Qt::Key_Delete); });
    QCOMPARE(windows.Masks(), QStringList({"1 Bob"}));
    QCOMPARE(windows.grid->currentIndex().row(), 0);
    windows.Back();
    EnterInBox([&] { windows.Press(Qt::Key_Delete); });
    QCOMPARE(windows.Masks(), QStringList());
    windows.Back();
    windows.Press(Qt::Key_Delete);
    QCOMPARE(windows.client.app.AutoKickText, kThree);
  }

  void OnNoTheRowStays() {
    EditorWindow windows;
    windows.Open();
    windows.GoTo(1, 3);
    AnswerBox(QMessageBox::No, [&] { windows.Press(Qt::Key_Delete); });
    QCOMPARE(windows.grid->model()->rowCount(), 3);
  }

  void InTextDeleteTakesALetter() {
    EditorWindow windows;
    windows.Open();
    windows.ClickCell(0, 1);
    windows.Press(Qt::Key_Home);
    windows.Press(Qt::Key_Delete);
    QCOMPARE(windows.Text()->text(), QString("ob"));
    windows.Press(Qt::Key_End);
    windows.Press(Qt::Key_Delete);
    QTest::qWait(10);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(windows.grid->model()->rowCount(), 3);
  }

  // ---- applying and cancelling ----

  void ApplyWritesTheListAndCloses() {
    EditorWindow windows;
    windows.Open();
    windows.Edit(0, 4, "friend1;friend2");
    QTRY_COMPARE(windows.Cell(0, 4), QString("friend1;friend2"));
    windows.Click("button_apply");
    const Text list =
        "Bob\thall\tGo\tfriend1;friend2\r\n10.0.*.*\tAll\tSpam\tann;carl\r\nAnn\tattic\tOut\t";
    QCOMPARE(ToQString(windows.client.app.AutoKickText), ToQString(list));
    QCOMPARE(ToQString(windows.outside.files.files["AutoKick.lst"]),
             ToQString("// Сгенерировано Parlorwire, не редактировать!\r\n"
                       "// Generated by Parlorwire, do not modify!\r\n"_w +
                       list));
    QVERIFY(!windows.editor->isVisible());
  }

  void ApplyTakesWhatStandsInAnOpenCell() {
    for (const bool by_key : {false, true}) {
      EditorWindow windows("Bob\tAll\tGo\t");
      windows.Open();
      windows.ClickCell(0, 3);
      Type(windows.Text(), "Out");
      if (by_key)
        windows.Press(0x041F, Qt::AltModifier, Utf8("п"));
      else
        windows.Click("button_apply");
      QTRY_VERIFY(!windows.editor->isVisible());
      QCOMPARE(windows.client.app.AutoKickText, parlorwire::Text("Bob\tAll\tOut\t"));
    }
  }

  void ACellThatIsRefusedIsNotApplied() {
    EditorWindow windows;
    windows.Open();
    windows.ClickCell(0, 1);
    Type(windows.Text(), "12.34");
    const SeenBox box = EnterInBox([&] { windows.Click("button_apply"); });
    QCOMPARE(box.text, Utf8("Ошибка в наборе IP!"));
    QVERIFY(windows.editor->isVisible());
    QCOMPARE(windows.Cell(0, 1), QString("Bob"));
    QCOMPARE(windows.client.app.AutoKickText, kThree);
    QVERIFY(!windows.editor->findChild<QPushButton*>("button_apply")->isDown());
  }

  void WhateverClosesItButApplyDropsTheTable() {
    for (const char* how : {"button_cancel", "Escape", "close"}) {
      EditorWindow windows;
      windows.Open();
      Type(windows.input, "eve");
      windows.Press(Qt::Key_Return);
      windows.ClickCell(0, 1);
      Type(windows.Text(), "12.34");
      if (QLatin1String(how) == "button_cancel") windows.Click("button_cancel");
      if (QLatin1String(how) == "close") windows.editor->close();
      if (QLatin1String(how) == "Escape") {
        windows.Press(Qt::Key_Escape);
        windows.Press(Qt::Key_Escape);
      }
      QVERIFY(!windows.editor->isVisible());
      QTest::qWait(20);
      QVERIFY(QApplication::activeModalWidget() == nullptr);
      QCOMPARE(windows.client.app.AutoKickText, kThree);
      QCOMPARE(windows.outside.files.files.count("AutoKick.lst"), std::size_t{0});
      windows.Open();
      QCOMPARE(windows.Masks(), QStringList({"1 Bob", "2 10.0.*.*", "3 Ann"}));
      QVERIFY(windows.Text() == nullptr);
      QCOMPARE(windows.input->text(), QString());
    }
  }

  // ---- what the menu of a nick adds meanwhile ----

  void WhatTheMenuOfANickAddsIsAppliedToo() {
    EditorWindow windows;
    windows.Open();
    windows.Edit(2, 3, "Flood");
    QTRY_COMPARE(windows.Cell(2, 3), QString("Flood"));
    windows.client.app.MenuNick = "eve";
    EnterInBox([&] { AddToAutoKickAllChannels(windows.client); });
    windows.client.app.MenuNick = "Bob";
    EnterInBox([&] { AddToAutoKickThisChannel(windows.client); });
    QCOMPARE(windows.Masks(), QStringList({"1 Bob", "2 10.0.*.*", "3 Ann", "4 eve"}));
    QCOMPARE(windows.Cell(0, 2), QString("hall;lobby"));
    windows.Back();
    windows.Click("button_apply");
    QCOMPARE(ToQString(windows.client.app.AutoKickText),
             ToQString("Bob\thall;lobby\tGo\t\r\n10.0.*.*\tAll\tSpam\tann;carl\r\n"
                       "Ann\tattic\tFlood\t\r\neve\tAll\t" +
                       kAsked + "\t"));
  }

  void WhatIsTypedInAnOpenCellDoesNotOverwriteIt() {
    EditorWindow windows;
    windows.Open();
    windows.ClickCell(0, 2);
    Type(windows.Text(), "cellar");
    windows.client.app.MenuNick = "Bob";
    EnterInBox([&] { AddToAutoKickThisChannel(windows.client); });
    QCOMPARE(windows.Cell(0, 2), QString("cellar;lobby"));
  }

  void AClosedEditorTakesUpNothing() {
    EditorWindow windows;
    windows.Open();
    windows.Press(Qt::Key_Escape);
    windows.client.app.MenuNick = "eve";
    EnterInBox([&] { AddToAutoKickAllChannels(windows.client); });
    windows.Open();
    QCOMPARE(windows.Masks().size(), 4);
  }
  // ---- the end; the toolkit runs no message box behind it, so this is the last ----

  void TheEndOfTheProgramDropsTheTable() {
    EditorWindow windows;
    windows.Open();
    Type(windows.input, "eve");
    windows.Press(Qt::Key_Return);
    windows.ClickCell(0, 1);
    Type(windows.Text(), "12.34");
    windows.window->close();
    QTest::qWait(20);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    QVERIFY(!windows.editor->isVisible());
    QCOMPARE(windows.client.app.AutoKickText, kThree);
    QCOMPARE(windows.outside.files.files.count("AutoKick.lst"), std::size_t{0});
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::BotAutokickTest)
#include "bot_autokick_test.moc"
