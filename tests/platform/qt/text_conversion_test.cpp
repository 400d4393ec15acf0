#include "platform/qt/text_conversion.h"
#include "support/qt/qt_test.h"

#include <QTest>

namespace parlorwire {

class TextConversionTest : public QObject {
  Q_OBJECT

 private slots:
  void LettersGoBothWays() {
    const QString words = QStringLiteral("Привет, Ёж! №5 «да» — €");
    QCOMPARE(ToQString("Привет, Ёж! №5 «да» — €"_w), words);
    QCOMPARE(FromQString(words), "Привет, Ёж! №5 «да» — €"_w);
  }

  void EveryByteComesBackAndHasOneUnit() {
    Text all;
    for (int byte = 0; byte < 256; ++byte)
      all += static_cast<char>(byte);
    QCOMPARE(ToQString(all).size(), 256);
    QCOMPARE(FromQString(ToQString(all)), all);
  }

  void WhatTheCodePageLacksBecomesAQuestionMark() {
    QCOMPARE(FromQString(QStringLiteral("a日b😀c")), Text("a?b?c"));
  }

  void AHalfOfAPairIsACharacterOfItsOwn() {
    QCOMPARE(FromQString(QString(QChar(0xD83D)) + QLatin1Char('x')), Text("?x"));
    QCOMPARE(FromQString(QString(QChar(0xDE00)) + QLatin1Char('x')), Text("?x"));
    QCOMPARE(FromQString(QString(QChar(0xD83D))), Text("?"));
  }

  void NothingStaysNothing() {
    QCOMPARE(ToQString(""), QString());
    QCOMPARE(FromQString(QString()), Text());
  }
};

}  // namespace parlorwire

EVENT_LOOP_TEST(parlorwire::TextConversionTest)
#include "text_conversion_test.moc"
