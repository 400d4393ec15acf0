// Everything can be read in the windows, whatever the desktop's theme.
#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QObject>
#include <QPalette>

#include "shell/login_dialog.h"
#include "shell/qt/control_names.h"
#include "shell/qt/ground_palette.h"
#include "shell/qt/link_label.h"
#include "shell/qt/windows_fixture.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

struct Pair {
  QPalette::ColorRole ink, ground;
};
constexpr std::array<Pair, 9> kPairs{{{QPalette::WindowText, QPalette::Window},
                                      {QPalette::WindowText, QPalette::Button},
                                      {QPalette::Text, QPalette::Base},
                                      {QPalette::Text, QPalette::AlternateBase},
                                      {QPalette::ButtonText, QPalette::Button},
                                      {QPalette::ButtonText, QPalette::Window},
                                      {QPalette::Link, QPalette::Window},
                                      {QPalette::PlaceholderText, QPalette::Base},
                                      {QPalette::ToolTipText, QPalette::ToolTipBase}}};

QPalette DarkTheme() {
  QPalette dark(QColor(0x202326), QColor(0x202326));
  dark.setColor(QPalette::Highlight, QColor(0x1D4E70));
  dark.setColor(QPalette::HighlightedText, Qt::white);
  return dark;
}

void CheckReadable(const QPalette& look, const QString& whose) {
  for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    const double wanted = group == QPalette::Disabled ? 3 : 4.5;
    for (const Pair& pair : kPairs) {
      const double contrast = Contrast(look.color(group, pair.ink), look.color(group, pair.ground));
      QVERIFY2(contrast >= wanted, qPrintable(QStringLiteral("%1: %2 on %3 in %4: %5")
                                                  .arg(whose)
                                                  .arg(pair.ink)
                                                  .arg(pair.ground)
                                                  .arg(group)
                                                  .arg(contrast)));
    }
    QVERIFY(Contrast(look.color(group, QPalette::HighlightedText),
                     look.color(group, QPalette::Highlight)) >= 4.5);
  }
}

// The darkest and the lightest that is painted, a stretch of text apart from its ground.
double PaintedContrast(QWidget* control) {
  const QImage image = control->grab().toImage();
  double most = 1;
  const QColor ground = image.pixelColor(1, image.height() / 2);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      most = std::max(most, Contrast(ground, image.pixelColor(x, y)));
  return most;
}

}  // namespace

class GroundPaletteTest : public QObject {
  Q_OBJECT

 private slots:
  void init() { theme_ = QApplication::palette(); }
  void cleanup() { QApplication::setPalette(theme_); }

  void TheContrastOfTwoColours() {
    QCOMPARE(Contrast(Qt::black, Qt::white), 21.0);
    QCOMPARE(Contrast(Qt::white, Qt::black), 21.0);
    QCOMPARE(Contrast(QColor(0x777777), QColor(0x777777)), 1.0);
    QVERIFY(std::abs(Contrast(QColor(0x777777), Qt::white) - 4.48) < 0.01);
  }

  void OnAnyGroundAllCanBeRead() {
    for (unsigned part = 0; part < 256; part += 5)
      for (const unsigned ground : {part * 0x10101, part << 16U, part << 8U, part})
        CheckReadable(PaletteOn(DarkTheme(), ground), QString::number(ground, 16));
    CheckReadable(PaletteOn(DarkTheme(), kMainBackColor), "main window");
    CheckReadable(PaletteOn(QPalette(QColor(0xEFEFEF)), kDialogBackColor), "dialog");
  }

  void TheGroundIsTheSystems() {
    QCOMPARE(PaletteOn(DarkTheme(), kMainBackColor).color(QPalette::Window), QColor(0xE9EBE7));
  }

  void UnderADarkThemeTheMainWindowCanBeRead() {
    QApplication::setPalette(DarkTheme());
    Windows windows;
    CheckWindow(windows);
  }

  void AtAChangeOfThemeToo() {
    Windows windows;
    QApplication::setPalette(DarkTheme());
    QTest::qWait(20);
    CheckWindow(windows);
  }

  void TheDialogsCanBeRead() {
    QApplication::setPalette(DarkTheme());
    Windows windows;
    windows.client.hooks.ShowLoginDialog(0);
    CheckChildren(windows.Find("connection_form"));
    windows.window->ShowSearchDialog();
    CheckChildren(windows.Find("search_form"));
  }

  void ALinkCanBeReadAlsoWhileItIsGrey() {
    Windows windows;
    auto* link = windows.Find<LinkLabel>("logout");
    QVERIFY(!link->isEnabled());
    QVERIFY(PaintedContrast(link) >= 3);
    auto* other = windows.Find<LinkLabel>("search_label");
    QVERIFY(other->isEnabled());
    QVERIFY(PaintedContrast(other) >= 4.5);
  }

  // They come up on the desktop's own ground, as do the toolkit's dialogs.
  void MenusFollowTheDesktop() {
    QApplication::setPalette(DarkTheme());
    Windows windows;
    QCOMPARE(windows.Find("menu_settings")->palette().color(QPalette::Window), QColor(0x202326));
    CheckReadable(windows.window->menuBar()->palette(), "menu bar");
  }

 private:
  static void CheckChildren(QWidget* window) {
    CheckReadable(window->palette(), window->objectName());
    for (const auto* control : window->findChildren<QWidget*>()) {
      const QString name = control->objectName();
      // The list's button and number stand on the panes' ground; windows of the toolkit follow it.
      if (control->window() != window || name.startsWith("users_num") ||
          name.startsWith("frame_button_update") || name.startsWith("button_update"))
        continue;
      CheckReadable(control->palette(), name);
    }
  }
  static void CheckWindow(Windows& windows) {
    windows.desktop.SetTabVisible(0, true);
    for (const bool enabled : {false, true}) {
      windows.desktop.SetTabControlsEnabled(0, enabled);
      CheckChildren(windows.window.get());
    }
  }

  QPalette theme_;
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::GroundPaletteTest)
#include "ground_palette_test.moc"
