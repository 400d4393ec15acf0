// A personal window under real key and mouse events: what is typed, said and saved in it.
#include <QAccessible>
#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMenu>
#include <QObject>
#include <QTemporaryDir>

#include "shell/qt/personal_windows_fixture.h"
#include "support/qt/qt_test.h"
#include "text/cut.h"

namespace parlorwire {
namespace {

// Answers the question for a folder that comes up while `action` runs: with a path, or with Escape
// if there is none. Gives its title.
template <class Action>
QString AnswerFolder(const QString& path, Action action) {
  QString title;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) return;
    look.stop();
    title = dialog->windowTitle();
    if (path.isEmpty()) return QTest::keyClick(dialog, Qt::Key_Escape);
    auto* field = dialog->findChild<QLineEdit*>("fileNameEdit");
    field->setText(path);
    QTest::keyClick(field, Qt::Key_Return);
  });
  look.start(5);
  action();
  return title;
}

QByteArray FileText(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

}  // namespace

class PersFrmTest : public QObject {
  Q_OBJECT

 private slots:
  // ---- saying ----

  void EnterSaysWhatStandsInTheBoxToTheNick() {
    PersonalDesktop windows;
    windows.Open();
    windows.Say("Bob: ", Utf8("тихо, а+б"));
    QCOMPARE(windows.msg()->text(), QString());
    QVERIFY(windows.msg()->hasFocus());
    const Text body = windows.Posted();
    QVERIFY2(body.starts_with("username=alice&ticket=T0&reqnum="), body.c_str());
    QVERIFY2(body.ends_with("&xtouser=Bob&msgtext=" + Koi("тихо, а"_w) + "%2B" + Koi("б"_w)),
             body.c_str());
    QCOMPARE(windows.Winsock2().connects, 0);
  }

  void TheWordGoesToWhoStoodThereWhenItWasSaid() {
    PersonalDesktop windows;
    windows.Open();
    windows.Say("bob", "secret");
    windows.send_nick()->setFocus();
    windows.send_nick()->selectAll();
    PersonalDesktop::Write("eve");
    QCOMPARE(windows.record().send_nick, Text("eve"));
    const Text body = windows.Posted();
    QVERIFY2(Contains(body, "&xtouser=bob&"), body.c_str());
  }

  void TheButtonSaysByTheLeftMouseButtonAlone() {
    PersonalDesktop windows;
    windows.Open();
    windows.send_nick()->setText("bob");
    windows.msg()->setText("hello");
    QTest::mouseClick(windows.In("button_say"), Qt::RightButton);
    QCOMPARE(windows.Posts(), 0);
    QTest::mouseClick(windows.In("button_say"), Qt::LeftButton);
    QCOMPARE(windows.Posts(), 1);
    QVERIFY(windows.msg()->hasFocus());
    QVERIFY(Contains(windows.Posted(), "&xtouser=bob&msgtext=hello"));
  }

  void TheButtonSaysByKeyboard() {
    PersonalDesktop windows;
    windows.Open();
    windows.send_nick()->setText("bob");
    for (const int key : {Qt::Key_Space, Qt::Key_Return}) {
      const int posts = windows.Posts();
      windows.In("button_say")->setFocus();
      PersonalDesktop::Press(key);
      QCOMPARE(windows.Posts(), posts + 1);
    }
  }

  void AnEmptyBoxIsSaidLikeAnyOther() {
    PersonalDesktop windows;
    windows.Open();
    windows.Say("bob", "");
    QVERIFY(windows.Posted().ends_with("&xtouser=bob&msgtext="));
  }

  void WithoutANickTheUserIsToldAndTheTextStays() {
    PersonalDesktop windows;
    windows.Open();
    const SeenBox box = EnterInBox([&] { windows.Say("  ", "secret"); });
    QCOMPARE(box.title, QString("Parlorwire"));
    QCOMPARE(box.text, Utf8("Укажите ник, которому следует отправить приват!"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.owner, windows.frm);
    QCOMPARE(windows.msg()->text(), QString("secret"));
    QCOMPARE(windows.Posts(), 0);
    // Blanks alone are not "", so Timer1 goes to the box.
    PersonalDesktop::Activate(windows.frm);
    windows.outside.time.Advance(5);
    QVERIFY(windows.msg()->hasFocus());
    EnterInBox([&] { windows.Say("", ""); });
    PersonalDesktop::Activate(windows.frm);
    windows.outside.time.Advance(5);
    QVERIFY(windows.send_nick()->hasFocus());
  }

  void EnterInTheNickLeadsToTheBoxAndSaysNothing() {
    PersonalDesktop windows;
    windows.Open();
    windows.msg()->setText("secret");
    windows.send_nick()->setFocus();
    PersonalDesktop::Write("bob");
    PersonalDesktop::Press(Qt::Key_Return);
    QVERIFY(windows.msg()->hasFocus());
    QCOMPARE(windows.Posts(), 0);
  }

  void EnterThatIsHeldDownSaysOnce() {
    PersonalDesktop windows;
    windows.Open();
    windows.Say("bob", "hello");
    for (int i = 0; i < 3; ++i)
      PersonalDesktop::Press(Qt::Key_Return, Qt::NoModifier, "\r", true);
    QCOMPARE(windows.Posts(), 1);
  }

  void ButtonClearEmptiesTheBox() {
    PersonalDesktop windows;
    windows.Open();
    windows.msg()->setText("draft");
    windows.send_nick()->setText("bob");
    QTest::mouseClick(windows.In("button_clear"), Qt::LeftButton);
    QCOMPARE(windows.msg()->text(), QString());
    QCOMPARE(windows.record().msg, Text());
    QCOMPARE(windows.send_nick()->text(), QString("bob"));
    QVERIFY(windows.msg()->hasFocus());
  }

  // ---- keys in the box ----

  void UpAndDownGoThroughWhatWasSaid() {
    PersonalDesktop windows;
    windows.Open();
    windows.Say("bob", "one");
    windows.Say("bob", Utf8("два"));
    PersonalDesktop::Press(Qt::Key_Up);
    QCOMPARE(windows.msg()->text(), Utf8("два"));
    QCOMPARE(windows.msg()->cursorPosition(), 3);
    QCOMPARE(windows.record().msg, "два"_w);
    PersonalDesktop::Press(Qt::Key_Up);
    QCOMPARE(windows.msg()->text(), QString("one"));
    PersonalDesktop::Press(Qt::Key_Up);  // an empty entry
    QCOMPARE(windows.msg()->text(), QString("one"));
    PersonalDesktop::Press(Qt::Key_Down);
    QCOMPARE(windows.msg()->text(), QString("one"));
    // The text is the same, and the caret goes to its end all the same.
    PersonalDesktop::Press(Qt::Key_Home);
    PersonalDesktop::Press(Qt::Key_Down);
    QCOMPARE(windows.msg()->text(), QString("one"));
    QCOMPARE(windows.msg()->cursorPosition(), 3);
  }

  void CtrlBackspaceDeletesAWordAndLeavesNoCharacter() {
    PersonalDesktop windows;
    windows.Open();
    windows.msg()->setFocus();
    PersonalDesktop::Write("one two three");
    PersonalDesktop::Press(Qt::Key_Backspace, Qt::ControlModifier, QString(QChar(127)));
    QCOMPARE(windows.msg()->text(), QString("one two "));
    QCOMPARE(windows.record().msg, Text("one two "));
  }

  void ThePaneScrollsFromTheBox() {
    PersonalDesktop windows;
    windows.Open();
    Text lines;
    for (int i = 0; i < 200; ++i)
      lines += "&gt; [12:34:56] http://h/a?reqnum=1&pm_msgnum=2 bob line\n";
    windows.Chunk(lines);
    windows.msg()->setFocus();
    PersonalDesktop::Press(Qt::Key_Home, Qt::ControlModifier);
    QTest::qWait(60);
    QVERIFY(!windows.Rich()->CharacterRect(0).isEmpty());
    PersonalDesktop::Press(Qt::Key_PageDown);
    QTest::qWait(60);
    QVERIFY(windows.Rich()->CharacterRect(0).isEmpty());
    PersonalDesktop::Press(Qt::Key_End, Qt::ControlModifier);
    QTest::qWait(60);
    QVERIFY(!windows.Rich()->CharacterRect(windows.record().Rich.Length() - 3).isEmpty());
    PersonalDesktop::Press(Qt::Key_PageUp);
    QTest::qWait(60);
    QVERIFY(windows.Rich()->CharacterRect(windows.record().Rich.Length() - 3).isEmpty());
    QVERIFY(windows.msg()->hasFocus());
  }

  void TheTextOfTheBoxIsPlainOneLine() {
    PersonalDesktop windows;
    windows.Open();
    windows.msg()->setText("a\r\nb\nc");
    QCOMPARE(windows.record().msg, Text("a b c"));
    windows.send_nick()->setFocus();
    windows.send_nick()->insert("bob\r\nHost: x");
    QVERIFY(!Contains(windows.record().send_nick, "\n"));
    QVERIFY(!Contains(windows.record().send_nick, "\r"));
  }

  void CtrlCInTheBoxCopiesFromThePane() {
    PersonalDesktop windows;
    windows.Open();
    windows.Receive("bob", "hello there");
    windows.Rich()->Select(windows.At("hello"), windows.At("hello") + 5);
    windows.msg()->setFocus();
    PersonalDesktop::Press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("hello"));
    windows.msg()->setText("mine");
    windows.msg()->selectAll();
    PersonalDesktop::Press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("mine"));
  }

  // ---- the pane ----

  void AMessageIsShown() {
    PersonalDesktop windows;
    windows.Open();
    windows.Receive("bob", "привет &lt;всем&gt;"_w);
    const Text text = windows.record().Rich.Text();
    QVERIFY2(text.ends_with(">[12:34:56] bob: привет <всем>\r\n"_w), text.c_str());
    QVERIFY(!windows.Rich()->CharacterRect(windows.At("bob:")).isEmpty());
  }

  void NothingCanBeTypedIntoThePane() {
    PersonalDesktop windows;
    windows.Open();
    const Text text = windows.record().Rich.Text();
    windows.Rich()->setFocus();
    PersonalDesktop::Write("abc");
    QCOMPARE(windows.record().Rich.Text(), text);
  }

  // ---- the log ----

  void TheLogIsSavedInTheFolderThatIsChosen() {
    PersonalDesktop windows;
    windows.Open();
    windows.Receive("bob", "привет"_w);
    const QTemporaryDir folder;
    QString title;
    const SeenBox box = EnterInBox([&] {
      title = AnswerFolder(folder.path(),
                           [&] { QTest::mouseClick(windows.In("save_log"), Qt::LeftButton); });
    });
    QCOMPARE(title, Utf8("Выберите каталог, в котором сохранятся лог:"));
    QCOMPARE(box.text, Utf8("Лог сохранен"));
    QCOMPARE(box.title, QString("Parlorwire"));
    QCOMPARE(box.owner, windows.frm);
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(FileText(folder.filePath("log.txt")),
             QByteArray::fromStdString(windows.record().Rich.Text()));
    QVERIFY(FileText(folder.filePath("log.txt")).contains("\xEF\xF0\xE8\xE2\xE5\xF2\r\n"));
  }

  void AFolderWithAnyNameIsTaken() {
    PersonalDesktop windows;
    windows.Open();
    const QTemporaryDir above;
    const QString folder = above.filePath(Utf8("日記 ü ж"));
    QVERIFY(QDir().mkdir(folder));
    EnterInBox([&] {
      AnswerFolder(folder, [&] {
        windows.In("save_log")->setFocus();
        PersonalDesktop::Press(Qt::Key_Return);
      });
    });
    QVERIFY(!FileText(folder + "/log.txt").isEmpty());
  }

  void ALogThatCannotBeSavedIsToldAndLeavesWhatIsThere() {
    PersonalDesktop windows("[Main]\r\nLanguage=English\r\n");
    windows.Open();
    const QTemporaryDir folder;
    QVERIFY(QDir().mkdir(folder.filePath("log.txt")));
    const SeenBox box = EnterInBox([&] {
      AnswerFolder(folder.path(),
                   [&] { QTest::mouseClick(windows.In("save_log"), Qt::LeftButton); });
    });
    QVERIFY2(box.text.startsWith("The log was not saved: "), qPrintable(box.text));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList("log.txt"));
  }

  void WithoutAFolderNothingIsSaved() {
    PersonalDesktop windows;
    windows.Open();
    const QString title =
        AnswerFolder(QString(), [&] { QTest::mouseClick(windows.In("save_log"), Qt::LeftButton); });
    QVERIFY(!title.isEmpty());
    QVERIFY(QApplication::activeModalWidget() == nullptr);
  }

  // ---- what the controls are called ----

  void TheControlsAreNamedInBothLanguages() {
    struct Named {
      const char* control;
      const char* russian;
      const char* english;
    };
    const std::vector<Named> names = {
        {"Rich", "Персональные сообщения", "Personal messages"},
        {"l_send_nick", "Кому:", "To:"},
        {"send_nick", "Кому", "To"},
        {"msg", "Сообщение", "Message"},
        {"button_say", "Сказать", "Say"},
        {"button_clear", "Стереть сообщение", "Clear the message"},
        {"ActivateWhenMess", "Всплывать при поступлении сообщения",
         "Come up when a message arrives"},
        {"save_log", "Сохранить лог", "Save the log"},
    };
    PersonalDesktop windows;
    windows.Open();
    for (const UiLanguage language : {UiLanguage::kRussian, UiLanguage::kEnglish}) {
      windows.desktop.ShowLanguage(language);
      const bool english = language == UiLanguage::kEnglish;
      for (const Named& named : names) {
        QAccessibleInterface* spoken =
            QAccessible::queryAccessibleInterface(windows.In(named.control));
        QCOMPARE(spoken->text(QAccessible::Name), Utf8(english ? named.english : named.russian));
        QCOMPARE(spoken->text(QAccessible::Description), QString(named.control));
      }
      QCOMPARE(windows.frm->windowTitle(), Utf8("Персональные сообщения (alice) - Parlorwire"));
      QCOMPARE(
          windows.frm->accessibleName(),
          english ? QString("Personal messages (alice) - Parlorwire") : windows.frm->windowTitle());
      QCOMPARE(windows.In<QCheckBox>("ActivateWhenMess")->text(),
               Utf8("Всплывать при поступлении сообщения"));
      QCOMPARE(windows.In<QAbstractButton>("save_log")->text(), Utf8("Сохранить лог"));
      QCOMPARE(windows.In("save_log")->toolTip(), QString(english ? "Save the log" : ""));
      QCOMPARE(windows.In("ActivateWhenMess")->toolTip(),
               QString(english ? "Come up when a message arrives" : ""));
      QCOMPARE(windows.In<QAbstractButton>("button_say")->text(),
               Utf8(english ? "Say" : "Сказать"));
      QCOMPARE(windows.In<QAbstractButton>("button_clear")->text(),
               Utf8(english ? "Clear" : "Стереть"));
    }
  }

  void TabGoesThroughTheControls() {
    PersonalDesktop windows;
    windows.Open();
    windows.send_nick()->setFocus();
    QStringList reached;
    for (int i = 0; i < 7; ++i) {
      reached << windows.frm->focusWidget()->objectName();
      PersonalDesktop::Press(Qt::Key_Tab);
    }
    QCOMPARE(reached, QStringList({"send_nick", "msg", "button_say", "button_clear",
                                   "ActivateWhenMess", "save_log", "Rich"}));
    QVERIFY(windows.send_nick()->hasFocus());
  }

  void TheLabelLeadsToTheNick() {
    PersonalDesktop windows;
    windows.Open();
    windows.msg()->setFocus();
    PersonalDesktop::Press(Qt::Key_O, Qt::AltModifier);  // not of the Russian label
    QVERIFY(windows.msg()->hasFocus());
    windows.desktop.ShowLanguage(UiLanguage::kEnglish);
    PersonalDesktop::Press(Qt::Key_T, Qt::AltModifier);
    QVERIFY(windows.send_nick()->hasFocus());
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::PersFrmTest)
#include "pers_frm_test.moc"
