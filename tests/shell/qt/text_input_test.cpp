#include "shell/qt/text_input.h"

#include <QComboBox>
#include <QLineEdit>
#include <QObject>
#include <QTimer>
#include <functional>

#include "bot/ask_reason.h"
#include "bot/moderator_commands.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

// An operator on a channel; what SayBot is asked to say is noted.
struct Operator : Windows {
  explicit Operator(const std::optional<Text>& config = std::nullopt) : Windows(config) {
    tab(0).LoginShown = tab(0).Connected = tab(0).IsOperator = true;
    desktop.SetTabVisible(0, true);
    desktop.SetActiveTab(0);
    desktop.SetTabControlsEnabled(0, true);
    client.app.MenuNick = "Bob";
    client.hooks.SayBot = [this](const Text& text, int) { said += text + "|"; };
    msg = Find<QLineEdit>("msg_0");
    // The switch of tabs brings the focus to msg a little later.
    if (QWidget* focus = QApplication::focusWidget()) focus->clearFocus();
    if (!QTest::qWaitFor([this] { return msg->hasFocus(); })) qFatal("msg has no focus");
  }

  // `command` opens the prompt, and `answer` gets it.
  void Ask(void (*command)(Client&), const std::function<void(text_input&)>& answer) {
    bool seen = false;
    QTimer::singleShot(0, msg, [&] {
      auto* prompt = qobject_cast<text_input*>(QApplication::activeModalWidget());
      if (prompt == nullptr) return;
      seen = QTest::qWaitForWindowActive(prompt);
      answer(*prompt);
      if (prompt->isVisible()) prompt->reject();
    });
    command(client);
    QVERIFY(seen);
  }

  QLineEdit* msg;
  Text said;
};

void TypeCyrillic(QWidget* field, const char* text) {
  for (const QChar character : QString::fromUtf8(text))
    QTest::sendKeyEvent(QTest::Click, field, Qt::Key_unknown, QString(character), Qt::NoModifier);
}

}  // namespace

class TextInputTest : public QObject {
  Q_OBJECT

 private slots:
  void EnterSaysTheCommandWithTheReason() {
    Operator one;
    one.Ask(kick, [](text_input& prompt) {
      QCOMPARE(prompt.windowTitle(), Utf8("Кикнуть Bob"));
      QCOMPARE(prompt.findChild<QLabel*>("l_text")->text(),
               Utf8("Укажите причину (будет отображено в бан-листе):"));
      QVERIFY(!prompt.findChild<QComboBox*>("duration")->isVisible());
      auto* text = prompt.findChild<QLineEdit*>("text");
      TypeCyrillic(text, "хватит");
      QTest::keyClick(text, Qt::Key_Return);
      QVERIFY(!prompt.isVisible());
    });
    QCOMPARE(ToQString(one.said), Utf8("/k Bob хватит|"));
  }

  void EscapeSaysNothing() {
    Operator one;
    one.Ask(ban, [](text_input& prompt) {
      auto* text = prompt.findChild<QLineEdit*>("text");
      QTest::keyClicks(text, "enough");
      QTest::keyClick(text, Qt::Key_Escape);
      QVERIFY(!prompt.isVisible());
    });
    QCOMPARE(one.said, Text());
  }

  void ButtonCancelSaysNothing() {
    Operator one;
    one.Ask(ban, [](text_input& prompt) {
      QTest::keyClicks(prompt.findChild<QLineEdit*>("text"), "enough");
      QTest::mouseClick(prompt.findChild<QPushButton*>("button_cancel"), Qt::LeftButton);
      QVERIFY(!prompt.isVisible());
    });
    QCOMPARE(one.said, Text());
  }

  void TheDurationsStandInTheirOrderAndTheFirstIsChosen() {
    Operator one;
    one.Ask(mute, [](text_input& prompt) {
      auto* duration = prompt.findChild<QComboBox*>("duration");
      QVERIFY(duration->isVisible());
      QCOMPARE(prompt.findChild<QLabel*>("l_duration")->text(), Utf8("Введите время в секундах:"));
      QStringList entries;
      for (int i = 0; i < duration->count(); ++i)
        entries << duration->itemText(i);
      QCOMPARE(entries, QStringList({"240", "120", "60", "10", "1", Utf8("Надолго")}));
      QCOMPARE(duration->currentIndex(), 0);
      QTest::mouseClick(prompt.findChild<QPushButton*>("button_ok"), Qt::LeftButton);
    });
    QCOMPARE(one.said, Text("/mu 240 Bob |"));
  }

  void ADurationIsChosenByKeys() {
    Operator one;
    one.Ask(lower, [](text_input& prompt) {
      auto* duration = prompt.findChild<QComboBox*>("duration");
      QTest::keyClick(prompt.findChild<QLineEdit*>("text"), Qt::Key_Tab);
      QTRY_VERIFY(duration->hasFocus());
      QTest::keyClick(duration, Qt::Key_End);
      QTest::mouseClick(prompt.findChild<QPushButton*>("button_ok"), Qt::LeftButton);
    });
    QCOMPARE(one.said, Text("/l Bob |"));
  }

  void ButtonsSpeakEnglish() {
    Operator one("[Main]\r\nLanguage=English\r\n");
    one.Ask(kick, [](text_input& prompt) {
      QCOMPARE(prompt.findChild<QPushButton*>("button_ok")->text(), QString("&OK"));
      QCOMPARE(prompt.findChild<QPushButton*>("button_cancel")->text(), QString("&Cancel"));
    });
  }

  void InEnglishItSaysWhatItMeansBesides() {
    Operator one("[Main]\r\nLanguage=English\r\n");
    one.Ask(kick, [](text_input& prompt) {
      const QString meaning = "Type a reason (it will be shown in the list of bans)";
      auto* label = prompt.findChild<QLabel*>("l_text");
      QCOMPARE(label->text(), Utf8("Укажите причину (будет отображено в бан-листе):"));
      QCOMPARE(label->toolTip(), meaning);
      QCOMPARE(prompt.findChild<QLineEdit*>("text")->accessibleName(), meaning);
    });
    one.Ask(mute, [](text_input& prompt) {
      QCOMPARE(prompt.findChild<QLabel*>("l_text")->toolTip(), QString("Type a reason"));
      QCOMPARE(prompt.findChild<QLabel*>("l_duration")->toolTip(),
               QString("Choose a time in seconds"));
      auto* duration = prompt.findChild<QComboBox*>("duration");
      QCOMPARE(duration->accessibleName(), QString("Choose a time in seconds"));
      QCOMPARE(duration->itemData(5, Qt::ToolTipRole).toString(), QString("For good"));
      QCOMPARE(duration->itemData(5, Qt::AccessibleTextRole).toString(), QString("For good"));
    });
  }

  void InRussianItNeedsNoExplanation() {
    Operator one;
    one.Ask(mute, [](text_input& prompt) {
      QCOMPARE(prompt.findChild<QLabel*>("l_text")->toolTip(), QString());
      QCOMPARE(prompt.findChild<QLineEdit*>("text")->accessibleName(), Utf8("Укажите причину:"));
      QVERIFY(!prompt.findChild<QComboBox*>("duration")->itemData(5, Qt::ToolTipRole).isValid());
    });
  }

  void TheKeysOfAnOperatorInMsg_data() {
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("line");
    QTest::newRow("K") << int(Qt::Key_K) << "/k Bob go away|";
    QTest::newRow("B") << int(Qt::Key_B) << "/mo +b Bob go away|";
    QTest::newRow("M") << int(Qt::Key_M) << "/mu Bob go away|";
    QTest::newRow("L") << int(Qt::Key_L) << "/l Bob go away|";
    QTest::newRow("K, Russian") << 0x041B << "/k Bob go away|";
    QTest::newRow("B, Russian") << 0x0418 << "/mo +b Bob go away|";
    QTest::newRow("M, Russian") << 0x042C << "/mu Bob go away|";
    QTest::newRow("L, Russian") << 0x0414 << "/l Bob go away|";
  }
  void TheKeysOfAnOperatorInMsg() {
    QFETCH(int, key);
    QFETCH(QString, line);
    Operator one;
    QTest::keyClicks(one.msg, "Bob: go away");
    QTest::sendKeyEvent(QTest::Click, one.msg, Qt::Key(key), QString(), Qt::ControlModifier);
    QCOMPARE(ToQString(one.said), line);
    QCOMPARE(one.msg->text(), QString());
  }

  void WhoIsNoOperatorHasNoSuchKeys() {
    Operator one;
    one.tab(0).IsOperator = false;
    QTest::keyClicks(one.msg, "Bob: go away");
    QTest::keyClick(one.msg, Qt::Key_B, Qt::ControlModifier);
    QCOMPARE(one.said, Text());
    QCOMPARE(one.msg->text(), QString("Bob: go away"));
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::TextInputTest)
#include "text_input_test.moc"
