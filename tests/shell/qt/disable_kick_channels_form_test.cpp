#include "shell/qt/disable_kick_channels_form.h"

#include <QAction>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QObject>

#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

struct ChooserWindow : Windows {
  explicit ChooserWindow(const std::vector<Text>& channels,
                         const std::optional<Text>& config = std::nullopt)
      : Windows(config) {
    int slot = 0;
    for (const Text& channel : channels) {
      tab(slot).Channel = channel;
      tab(slot++).Connected = true;
    }
  }
  // Opens the chooser, and `answer` uses it.
  template <class Answer>
  void Ask(Answer answer) {
    bool seen = false;
    QTimer::singleShot(0, window.get(), [&] {
      auto* form = qobject_cast<DisableKickChannels_form*>(QApplication::activeModalWidget());
      if (form == nullptr) return;
      seen = QTest::qWaitForWindowActive(form);
      answer(*form);
      if (form->isVisible()) form->reject();
    });
    window->findChild<QAction*>("channel_modif")->trigger();
    QVERIFY(seen);
  }
};

QCheckBox* Ch(const QWidget& form, int number) {
  return form.findChild<QCheckBox*>("Ch_" + QString::number(number));
}

void Click(const QWidget& form, const char* button) {
  QTest::mouseClick(form.findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
}

// With the mouse, where the mark is.
void Tick(QCheckBox* box) {
  QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, QPoint(8, box->height() / 2));
}

}  // namespace

class DisableKickChannelsFormTest : public QObject {
  Q_OBJECT

 private slots:
  void EachOpenChannelHasABox() {
    ChooserWindow windows({"Hall", "R&D", "hALL"});
    windows.client.app.DisableKickChannels = "hall cellar";
    windows.Ask([](QWidget& form) {
      auto* frame = form.findChild<QGroupBox*>("Frame1");
      QCOMPARE(frame->title(), Utf8("Отметьте каналы, на которых kick будет работать"));
      QCOMPARE(frame->height(), 185);
      QCOMPARE(form.findChildren<QCheckBox*>().size(), 2);
      QCOMPARE(Ch(form, 0)->text(), QString("Hall"));
      QVERIFY(!Ch(form, 0)->isChecked());
      QCOMPARE(Ch(form, 1)->text(), QString("R&&D"));
      QCOMPARE(Ch(form, 1)->accessibleName(), QString("R&D"));
      QVERIFY(Ch(form, 1)->isChecked());
      QVERIFY(Ch(form, 0)->width() >= 265);
      QCOMPARE(Ch(form, 0)->x(), Ch(form, 1)->x());
      QCOMPARE(Ch(form, 0)->height(), Ch(form, 1)->height());
      QVERIFY(Ch(form, 0)->geometry().bottom() < Ch(form, 1)->y());
      QVERIFY(form.findChild<QLabel*>("l_Ch") == nullptr);
      QCOMPARE(form.palette().color(QPalette::Window), QColor(0xE9EBE7));
    });
  }

  void TheFrameGrowsWithTheBoxes() {
    std::vector<Text> channels;
    for (int i = 0; i < kTabCount; ++i)
      channels.push_back("channel" + std::to_string(i));
    ChooserWindow windows(channels);
    windows.Ask([](QWidget& form) {
      auto* frame = form.findChild<QGroupBox*>("Frame1");
      QVERIFY(frame->height() > 185);
      QVERIFY(frame->rect().contains(Ch(form, 9)->geometry()));
      QVERIFY(form.findChild<QPushButton*>("button_ok")->y() > frame->geometry().bottom());
    });
  }

  void ButtonOkStoresThoseThatAreNotTicked() {
    ChooserWindow windows({"hall", "attic", "cellar"});
    windows.client.app.DisableKickChannels = "attic gone";
    windows.Ask([](QWidget& form) {
      Tick(Ch(form, 0));
      Tick(Ch(form, 1));
      Tick(Ch(form, 2));
      Click(form, "button_ok");
      QVERIFY(!form.isVisible());
    });
    QCOMPARE(windows.client.app.DisableKickChannels, Text("hall cellar"));
    QVERIFY(windows.Config().find("[DisableKickChannels]\r\nchannels=hall cellar\r\n") !=
            Text::npos);
  }

  void ButtonCancelChangesNothing() {
    for (const bool by_key : {false, true}) {
      ChooserWindow windows({"hall"});
      windows.client.app.DisableKickChannels = "gone";
      windows.Ask([&](QWidget& form) {
        Tick(Ch(form, 0));
        QVERIFY(!Ch(form, 0)->isChecked());
        if (by_key)
          QTest::keyClick(Ch(form, 0), Qt::Key_Escape);
        else
          Click(form, "button_cancel");
        QVERIFY(!form.isVisible());
      });
      QCOMPARE(windows.client.app.DisableKickChannels, Text("gone"));
      QVERIFY(windows.Config().find("DisableKickChannels") == Text::npos);
    }
  }

  void KeysTickAndConfirm() {
    ChooserWindow windows({"hall", "attic"});
    windows.Ask([](QWidget& form) {
      QTRY_VERIFY(Ch(form, 0)->hasFocus());
      QTest::keyClick(Ch(form, 0), Qt::Key_Tab);
      QTRY_VERIFY(Ch(form, 1)->hasFocus());
      QTest::keyClick(Ch(form, 1), Qt::Key_Space);
      QTest::keyClick(Ch(form, 1), Qt::Key_Return);
      QVERIFY(!form.isVisible());
    });
    QCOMPARE(windows.client.app.DisableKickChannels, Text("attic"));
  }

  void WithNothingOpenItSaysSoAndConfirmedItEmptiesTheList() {
    ChooserWindow windows({});
    windows.client.app.DisableKickChannels = "hall attic";
    windows.Ask([](QWidget& form) {
      auto* label = form.findChild<QLabel*>("l_Ch");
      QVERIFY(label->isVisible());
      QCOMPARE(label->text(), Utf8("Вы не подключены ни к одному каналу"));
      QCOMPARE(label->font().pointSize(), 10);
      QVERIFY(form.findChildren<QCheckBox*>().isEmpty());
      QTest::keyClick(&form, Qt::Key_Return);
      QVERIFY(!form.isVisible());
    });
    QCOMPARE(windows.client.app.DisableKickChannels, Text());
  }

  void InEnglishItSaysWhatItMeansBesides() {
    ChooserWindow windows({"hall"}, "[Main]\r\nLanguage=English\r\n");
    windows.Ask([](QWidget& form) {
      auto* frame = form.findChild<QGroupBox*>("Frame1");
      QCOMPARE(frame->title(), Utf8("Отметьте каналы, на которых kick будет работать"));
      QCOMPARE(frame->toolTip(), QString("Tick the channels on which kicks shall work"));
      QCOMPARE(frame->accessibleName(), QString("Tick the channels on which kicks shall work"));
      QCOMPARE(form.windowTitle(), QString("Auto-kick channels"));
      QCOMPARE(form.findChild<QPushButton*>("button_ok")->text(), QString("&OK"));
    });
    ChooserWindow none({}, "[Main]\r\nLanguage=English\r\n");
    none.Ask([](QWidget& form) {
      QCOMPARE(form.findChild<QLabel*>("l_Ch")->toolTip(),
               QString("You are not connected to any channel"));
    });
    ChooserWindow russian({"hall"});
    russian.Ask([](QWidget& form) {
      QCOMPARE(form.findChild<QGroupBox*>("Frame1")->toolTip(), QString());
      QCOMPARE(form.windowTitle(), Utf8("Каналы автокика"));
      QCOMPARE(form.findChild<QPushButton*>("button_ok")->text(), Utf8("&ОК"));
    });
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::DisableKickChannelsFormTest)
#include "disable_kick_channels_form_test.moc"
