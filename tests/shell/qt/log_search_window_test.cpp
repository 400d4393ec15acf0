// The search through the day logs under real key and mouse events.
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDesktopServices>
#include <QLabel>
#include <QLineEdit>
#include <QObject>
#include <QTreeView>
#include <QUrl>

#include "pane/qt/rich_text_view.h"
#include "shell/qt/log_day_form.h"
#include "shell/qt/log_search_form.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

constexpr LogDay kMay{2026, 5, 3};
constexpr LogDay kJune{2026, 6, 4};

struct LogWindow : Windows {
  LogWindow() {
    outside.day_logs.contents[{kMay, "main"}] = "[1] bob: an old Needle\r\n[2] bob: nothing\r\n";
    outside.day_logs.contents[{kJune, "Кухня"_w}] =
        "[3] eva: nothing\r\n[4] eva: a needle, indeed\r\n[5] eva: needless\r\n"_w;
  }

  static void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QWindow* to = QApplication::activeWindow()->windowHandle();
    QTest::simulateEvent(to, true, key, modifiers, QString(), false);
    QTest::simulateEvent(to, false, key, modifiers, QString(), false);
  }
  log_search_form* Open() {
    Press(Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    auto* form = Find<log_search_form>("log_search_form");
    WaitUntilActive(form);
    // The list of channels comes from a thread.
    if (!QTest::qWaitFor([&] { return channel()->count() > 1; })) qFatal("no channels came");
    return form;
  }
  QLineEdit* text() { return Find<QLineEdit>("log_text"); }
  QComboBox* channel() { return Find<QComboBox>("log_channel"); }
  QDateEdit* first() { return Find<QDateEdit>("log_first"); }
  QDateEdit* last() { return Find<QDateEdit>("log_last"); }
  QTreeView* hits() { return Find<QTreeView>("log_hits"); }
  QString state() { return Find<QLabel>("log_state")->text(); }
  QWidget* stop() { return Find("button_stop"); }

  // Types it and presses Enter; the search is over then.
  void Search(const QString& wanted) {
    text()->setFocus();
    text()->selectAll();
    Type(text(), wanted);
    QTest::keyClick(text(), Qt::Key_Return);
    if (!QTest::qWaitFor([&] { return !stop()->isEnabled(); })) qFatal("it searches for ever");
  }
  QStringList Rows() {
    QStringList rows;
    const QAbstractItemModel& model = *hits()->model();
    for (int row = 0; row < model.rowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column)
        cells += model.index(row, column).data().toString();
      rows += cells.join('|');
    }
    return rows;
  }
};

}  // namespace

class LogSearchWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void ControlShiftFOpensItWithTheTextInFocus() {
    LogWindow windows;
    windows.Find("msg_0")->setFocus();
    const log_search_form* form = windows.Open();
    QVERIFY(!form->isModal());
    QVERIFY(windows.text()->hasFocus());
    QVERIFY(windows.state().isEmpty());
  }

  void TheKeyOfTheRussianLayoutOpensItToo() {
    LogWindow windows;
    LogWindow::Press(0x0410, Qt::ControlModifier | Qt::ShiftModifier);  // the letter on F
    QVERIFY(windows.Find("log_search_form")->isVisible());
  }

  void TheMenuOpensItAndNamesTheKey() {
    LogWindow windows;
    auto* item = windows.window->findChild<QAction*>("search_logs");
    QCOMPARE(item->text(), Utf8("Поиск в &логах...\tCtrl+Shift+F"));
    item->trigger();
    QVERIFY(windows.Find("log_search_form")->isVisible());
  }

  void ChannelsAreThoseOfTheLogsAndDaysBeginWithTheFirst() {
    LogWindow windows;
    windows.Open();
    QCOMPARE(windows.channel()->count(), 3);
    QCOMPARE(windows.channel()->itemText(0), Utf8("Все каналы"));
    QCOMPARE(windows.channel()->itemText(1), Utf8("main"));
    QCOMPARE(windows.channel()->itemText(2), Utf8("Кухня"));
    QCOMPARE(windows.first()->date(), QDate(2026, 5, 3));
    QCOMPARE(windows.last()->date(), QDate(2026, 11, 21));
  }

  void EnterFindsTheNewestDayFirst() {
    LogWindow windows;
    windows.Open();
    windows.Search("needle");
    QCOMPARE(windows.Rows(), QStringList({Utf8("04.06.2026|Кухня|[4] eva: a needle, indeed"),
                                          Utf8("04.06.2026|Кухня|[5] eva: needless"),
                                          Utf8("03.05.2026|main|[1] bob: an old Needle")}));
    QCOMPARE(windows.hits()->currentIndex().row(), 0);
    QCOMPARE(windows.state(), Utf8("Логов: 2 из 2, 0.0 МБ. Найдено строк: 3."));
  }

  void CaseAndWholeWordsAreTicks() {
    LogWindow windows;
    windows.Open();
    QTest::mouseClick(windows.Find("log_case"), Qt::LeftButton, {}, QPoint(8, 8));
    windows.Search("needle");
    QCOMPARE(windows.Rows().size(), 2);
    QTest::mouseClick(windows.Find("log_words"), Qt::LeftButton, {}, QPoint(8, 8));
    windows.Search("needle");
    QCOMPARE(windows.Rows(), QStringList(Utf8("04.06.2026|Кухня|[4] eva: a needle, indeed")));
  }

  void OneChannelAloneByKeyboard() {
    LogWindow windows;
    windows.Open();
    windows.channel()->setFocus();
    QTest::keyClick(windows.channel(), Qt::Key_Down);
    QCOMPARE(windows.channel()->currentText(), Utf8("main"));
    windows.Search("needle");
    QCOMPARE(windows.Rows(), QStringList("03.05.2026|main|[1] bob: an old Needle"));
  }

  void DaysMayStandTheWrongWayRound() {
    LogWindow windows;
    windows.Open();
    windows.first()->setDate({2026, 6, 30});
    windows.last()->setDate({2026, 6, 1});
    windows.Search("bob");
    QVERIFY(windows.Rows().isEmpty());
    windows.Search("eva");
    QCOMPARE(windows.Rows().size(), 3);
  }

  void WhatWasChosenStaysAtTheNextTime() {
    LogWindow windows;
    log_search_form* form = windows.Open();
    windows.channel()->setCurrentIndex(2);
    windows.first()->setDate({2026, 6, 1});
    windows.Search("eva");
    QTest::keyClick(form, Qt::Key_Escape);
    QVERIFY(!form->isVisible());
    windows.window->activateWindow();
    WaitUntilActive(windows.window.get());
    windows.Open();
    QCOMPARE(windows.channel()->currentText(), Utf8("Кухня"));
    QCOMPARE(windows.first()->date(), QDate(2026, 6, 1));
    QCOMPARE(windows.text()->selectedText(), QString("eva"));
    QCOMPARE(windows.Rows().size(), 3);
  }

  void WithoutATextNothingIsSearched() {
    LogWindow windows;
    windows.Open();
    QTest::mouseClick(windows.Find("button_find"), Qt::LeftButton);
    QVERIFY(windows.text()->hasFocus());
    QVERIFY(windows.state().isEmpty());
    QCOMPARE(windows.outside.day_logs.read.load(), 0);
  }

  void EnterInTheListShowsTheDayWithTheLine() {
    LogWindow windows;
    Text content;
    for (int i = 0; i < 5000; ++i)
      content += "[1] bob: line " + std::to_string(i) + "\r\n";
    windows.outside.day_logs.contents[{kMay, "main"}] = content;
    windows.Open();
    windows.Search("line 3210");
    windows.hits()->setFocus();
    QTest::keyClick(windows.hits(), Qt::Key_Return);
    auto* day = windows.Find<log_day_form>("log_day_form");
    QCOMPARE(day->windowTitle(), QString("main, 03.05.2026"));
    auto* view = windows.Find<RichTextView>("log_day");
    QTRY_COMPARE(view->box().Length(), static_cast<PanePosition>(content.size()));
    const PaneRange selected = view->Selected();
    QCOMPARE(view->box().TextBetween(selected.start, selected.end), Text("[1] bob: line 3210"));
    QTRY_VERIFY(!view->CharacterRect(selected.start).isEmpty());
    // So are some lines on both sides.
    const std::int64_t line = view->box().LineAt(selected.start);
    for (const std::int64_t beside : {line - 3, line + 3})
      QVERIFY(!view->CharacterRect(view->box().LineByIndex(beside).start).isEmpty());
    QVERIFY(view->hasFocus());
    const PaneFormat format = view->box().Runs().front().format;
    QCOMPARE(format.colour, windows.client.app.rRichColors.TextColor);
    QVERIFY(format.colour != view->box().BackColor());
    QCOMPARE(windows.Rows().size(), 1);  // it was not searched again
  }

  void ADoubleClickShowsTheDay() {
    LogWindow windows;
    windows.Open();
    windows.Search("old");
    QTreeView* hits = windows.hits();
    const QPoint place = hits->visualRect(hits->model()->index(0, 2)).center();
    QTest::mouseClick(hits->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(hits->viewport(), Qt::LeftButton, {}, place);
    auto* view = windows.Find<RichTextView>("log_day");
    QTRY_COMPARE(view->Selected().end, PanePosition{22});
    QTest::keyClick(view, Qt::Key_Escape);
    QTRY_VERIFY(windows.window->findChild<log_day_form*>() == nullptr);
  }

  void ALineThatIsNotThereAnyMoreLeavesTheDayToSee() {
    LogWindow windows;
    windows.Open();
    windows.Search("indeed");
    windows.outside.day_logs.contents[{kJune, "Кухня"_w}] = "short";
    windows.hits()->setFocus();
    QTest::keyClick(windows.hits(), Qt::Key_Return);
    auto* view = windows.Find<RichTextView>("log_day");
    QTRY_COMPARE(view->box().Text(), Text("short"));
    QTRY_VERIFY(view->hasFocus());
  }

  void OnlySoManyLinesAreShown() {
    LogWindow windows;
    for (int i = 0; i < 12'000; ++i)
      windows.outside.day_logs.contents[{kMay, "main"}] += "needle\r\n";
    windows.Open();
    windows.Search("needle");
    QCOMPARE(windows.hits()->model()->rowCount(), 10'000);
    QVERIFY(windows.state().endsWith(Utf8("Больше не показывается: уточните запрос.")));
  }

  void ItCanBeStoppedAndClosedWhileItSearches() {
    LogWindow windows;
    for (int day = 1; day <= 28; ++day)
      windows.outside.day_logs.contents[{{2026, 1, day}, "big"}] = Text(8 * 1024 * 1024, 'x');
    log_search_form* form = windows.Open();
    windows.first()->setDate({2026, 1, 1});
    Type(windows.text(), "nothing like it");
    QTest::keyClick(windows.text(), Qt::Key_Return);
    QVERIFY(windows.stop()->isEnabled());
    QTest::mouseClick(windows.stop(), Qt::LeftButton);
    QVERIFY(!windows.stop()->isEnabled());
    QVERIFY(windows.state().endsWith(Utf8("Остановлено.")));
    const auto read = windows.outside.day_logs.read.load();
    QTest::qWait(50);
    QCOMPARE(windows.outside.day_logs.read.load(), read);

    QTest::keyClick(windows.text(), Qt::Key_Return);
    QTest::keyClick(form, Qt::Key_Escape);
    QVERIFY(!form->isVisible());
    QVERIFY(windows.state().endsWith(Utf8("Остановлено.")));
  }

  void InEnglishAllIsEnglish() {
    LogWindow windows;
    windows.Open();
    windows.window->findChild<QAction*>("eng")->trigger();
    QCOMPARE(windows.Find("log_search_form")->windowTitle(), QString("Search the logs"));
    QCOMPARE(windows.channel()->itemText(0), QString("All channels"));
    QCOMPARE(windows.hits()->model()->headerData(2, Qt::Horizontal).toString(), QString("Line"));
    windows.Search("bob");
    QCOMPARE(windows.state(), QString("Logs: 2 of 2, 0.0 MB. Lines found: 2."));
  }

  void TheMenuOpensTheFolder() {
    LogWindow windows;
    windows.outside.day_logs.folder = "/a/folder of logs";
    QDesktopServices::setUrlHandler("file", this, "Open");
    windows.window->findChild<QAction*>("log_folder")->trigger();
    QDesktopServices::unsetUrlHandler("file");
    QCOMPARE(opened_, QUrl::fromLocalFile("/a/folder of logs"));
  }

 public slots:
  void Open(const QUrl& url) { opened_ = url; }

 private:
  QUrl opened_;
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::LogSearchWindowTest)
#include "log_search_window_test.moc"
