// The dialogs of fonts and colours tell what they are for, and change what was changed in them.
#include <QAction>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontDialog>
#include <QFontInfo>
#include <QGroupBox>
#include <QLineEdit>
#include <QObject>
#include <array>
#include <functional>

#include "display/fonts.h"
#include "pane/qt/fonts.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

// Runs the item, and does this with its dialog.
void InDialog(Windows& windows, const char* item, const std::function<void(QDialog&)>& act) {
  bool seen = false;
  QTimer look;
  QObject::connect(&look, &QTimer::timeout, [&] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    look.stop();
    seen = true;
    act(*dialog);
    if (dialog->isVisible()) dialog->reject();
  });
  look.start(5);
  windows.window->findChild<QAction*>(QLatin1String(item))->trigger();
  QVERIFY(seen);
}

}  // namespace

class FontAndColorTest : public QObject {
  Q_OBJECT

 private slots:
  void TheFamilyThatIsPaintedIsShown() {
    Windows windows;
    windows.client.app.rFontMain.Name = "no such serif family";
    InDialog(windows, "font_main", [&](QDialog& dialog) {
      const QString shown = dynamic_cast<QFontDialog&>(dialog).currentFont().family();
      PaneFormat format;
      format.font_name = windows.client.app.rFontMain.Name;
      QCOMPARE(shown, QFontInfo(ToQFont(format)).family());
    });
  }

  void OkWithoutAChangeChangesNothing_data() {
    QTest::addColumn<QString>("item");
    for (const char* item : {"font_main", "font_system", "font_client"})
      QTest::newRow(item) << item;
  }
  void OkWithoutAChangeChangesNothing() {
    QFETCH(const QString, item);
    Windows windows;
    AppState& app = windows.client.app;
    app.rFontMain.Name = app.rFontSystem.Name = app.rFontStatus.Name = "no such serif family";
    app.rFontMain.Size = app.rFontSystem.Size = app.rFontStatus.Size = 600;
    app.rFontSystem.Italic = true;
    const auto all = [&app] {
      return std::array{FontOf(app, FontCommand::font_main), FontOf(app, FontCommand::font_system),
                        FontOf(app, FontCommand::font_client)};
    };
    const auto before = all();
    InDialog(windows, qPrintable(item), [](QDialog& dialog) { dialog.accept(); });
    QVERIFY(all() == before);
  }

  void OnlyWhatWasChangedChanges() {
    Windows windows;
    AppState& app = windows.client.app;
    app.rFontSystem.Name = "no such serif family";
    app.rFontSystem.Size = 12;
    InDialog(windows, "font_system", [](QDialog& dialog) {
      auto& fonts = dynamic_cast<QFontDialog&>(dialog);
      QFont font = fonts.currentFont();
      font.setPointSize(18);
      fonts.setCurrentFont(font);
      dialog.accept();
    });
    QCOMPARE(app.rFontSystem.Size, 18);
    QCOMPARE(app.rFontSystem.Name, Text("no such serif family"));
  }

  void TitlesSayWhatIsChosen() {
    Windows windows;
    QString title;
    const auto take = [&title](QDialog& dialog) { title = dialog.windowTitle(); };
    InDialog(windows, "font_main", take);
    QCOMPARE(title, Utf8("Шрифт: Сообщения"));
    InDialog(windows, "color_my_nick", take);
    QCOMPARE(title, Utf8("Цвет: Свой ник"));
    windows.window->findChild<QAction*>("eng")->trigger();
    InDialog(windows, "font_system", take);
    QCOMPARE(title, QString("Font: System lines"));
    InDialog(windows, "color_client", take);
    QCOMPARE(title, QString("Colour: Messages of the client"));
  }

  void TheSampleHasCyrillic() {
    Windows windows;
    QString sample;
    InDialog(windows, "font_main", [&sample](QDialog& dialog) {
      for (const QGroupBox* group : dialog.findChildren<QGroupBox*>())
        if (const auto* line = group->findChild<QLineEdit*>()) sample = line->text();
    });
    QVERIFY(sample.contains(QChar(u'Я')));
    QVERIFY(sample.contains(QLatin1Char('A')));
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::FontAndColorTest)
#include "font_and_color_test.moc"
