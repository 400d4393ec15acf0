#include "platform/qt/qt_clipboard.h"
#include "support/qt/qt_test.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QTest>

namespace parlorwire {

class ClipboardTest : public QObject {
  Q_OBJECT

  QtClipboard clipboard;

 private slots:
  void init() { QGuiApplication::clipboard()->clear(); }

  void ATextIsReadByOthersInTheirCharacters() {
    clipboard.SetText("Привет, №5!\r\nдва"_w);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Привет, №5!\r\nдва"));
  }

  void ATextOfOthersIsRead() {
    QGuiApplication::clipboard()->setText(QStringLiteral("Ёж «тут»"));
    QCOMPARE(clipboard.GetText(), "Ёж «тут»"_w);
  }

  void ATextComesBackByteForByte() {
    Text all;
    for (int byte = 1; byte < 256; ++byte)
      all += static_cast<char>(byte);
    clipboard.SetText(all);
    QCOMPARE(clipboard.GetText(), all);
  }

  void CharactersThatTheCodePageLacksComeAsQuestionMarks() {
    QGuiApplication::clipboard()->setText(QStringLiteral("a日b😀c"));
    QCOMPARE(clipboard.GetText(), Text("a?b?c"));
  }

  void NothingIsAnEmptyText() {
    QCOMPARE(clipboard.GetText(), Text());
    clipboard.SetText("x");
    clipboard.SetText("");
    QCOMPARE(clipboard.GetText(), Text());
  }

  void APictureIsAnEmptyText() {
    QGuiApplication::clipboard()->setImage(QImage(2, 2, QImage::Format_RGB32));
    QCOMPARE(clipboard.GetText(), Text());
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::ClipboardTest)
#include "qt_clipboard_test.moc"
