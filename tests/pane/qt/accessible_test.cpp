// A pane as a screen reader meets it.
#include <QAccessible>
#include <memory>

#include "pane/qt/shown_pane.h"
#include "support/qt/qt_test.h"
#include "text/text.h"

namespace parlorwire {
namespace {

struct ReadPane : ShownPane {
  explicit ReadPane(int lines = 0) : ShownPane(lines) {
    reader = QAccessible::queryAccessibleInterface(&view);
    text = reader == nullptr ? nullptr : reader->textInterface();
  }
  QAccessibleInterface* reader = nullptr;
  QAccessibleTextInterface* text = nullptr;
};

}  // namespace

class RichTextViewAccessibleTest : public QObject {
  Q_OBJECT

 private slots:
  void ItIsATextOfManyLinesThatIsOnlyRead() {
    ReadPane pane(2);
    QVERIFY(pane.text != nullptr);
    QCOMPARE(pane.reader->role(), QAccessible::EditableText);
    const QAccessible::State state = pane.reader->state();
    QVERIFY(state.readOnly);
    QVERIFY(state.multiLine);
    QVERIFY(state.selectableText);
    QVERIFY(state.focusable);
    QVERIFY(!state.editable);
  }

  void TheTextIsThePanes() {
    ReadPane pane;
    Append(pane.box, W<"Привет\r\nalice">, MainFormat(0));
    QCOMPARE(pane.text->characterCount(), 13);
    QCOMPARE(pane.text->text(0, 13), QStringLiteral("Привет \nalice"));
    QCOMPARE(pane.text->text(8, -1), QStringLiteral("alice"));
    QCOMPARE(pane.text->text(10, 1000), QStringLiteral("ice"));
    QCOMPARE(pane.text->text(5, 3), QString());
  }

  void APictureIsOneObjectInTheText() {
    ReadPane pane;
    Append(pane.box, "ab", MainFormat(0));
    pane.box.ExSetSel(1, 1);
    pane.box.PastePicture(std::make_shared<PanePicture>());
    QCOMPARE(pane.text->text(0, 3), QStringLiteral("a\uFFFC") + QLatin1Char('b'));
  }

  void ASmileIsHeardAsItsCode() {
    ReadPane pane;
    Append(pane.box, "ab cd", MainFormat(0));
    for (const PanePosition at : {5, 2}) {
      pane.box.ExSetSel(at, at);
      pane.box.PastePicture(std::make_shared<PanePicture>(PanePicture{"*:)", nullptr}));
    }
    QCOMPARE(pane.text->characterCount(), 7);
    int start = 0;
    int end = 0;
    QCOMPARE(pane.text->textAtOffset(2, QAccessible::CharBoundary, &start, &end),
             QStringLiteral("*:)"));
    QCOMPARE(end - start, 1);
    QCOMPARE(pane.text->textAtOffset(0, QAccessible::LineBoundary, &start, &end),
             QStringLiteral("ab*:) cd*:)"));
    QCOMPARE(end - start, 7);
  }

  void ASmileIsOneCharacterOfTheTextSoThatOffsetsBehindItHold() {
    ReadPane pane;
    Append(pane.box, "ab cd", MainFormat(0));
    pane.box.ExSetSel(2, 2);
    pane.box.PastePicture(std::make_shared<PanePicture>(PanePicture{"*:)", nullptr}));
    const QString whole = pane.text->text(0, -1);
    QCOMPARE(whole, QStringLiteral("ab\uFFFC cd"));
    QCOMPARE(whole.size(), pane.text->characterCount());
    QCOMPARE(pane.text->text(4, 6), QStringLiteral("cd"));
  }

  void CharactersWordsRowsAndLinesAreFoundAroundAnOffset() {
    ReadPane pane(3);
    const int line = static_cast<int>(pane.LineStart(1));
    int start = 0;
    int end = 0;
    const auto at = [&](int offset, QAccessible::TextBoundaryType boundary) {
      return pane.text->textAtOffset(offset, boundary, &start, &end);
    };
    QCOMPARE(at(line + 11, QAccessible::CharBoundary), QStringLiteral("a"));
    QCOMPARE(at(line + 13, QAccessible::WordBoundary), QStringLiteral("alice"));
    QCOMPARE(start, line + 11);
    QCOMPARE(end, line + 16);
    const QString whole = QStringLiteral("[16:45:57] alice: message number 1 \n");
    QCOMPARE(at(line + 13, QAccessible::LineBoundary), whole);
    QCOMPARE(at(line + 13, QAccessible::ParagraphBoundary), whole);
    pane.view.resize(150, 300);
    QVERIFY(whole.startsWith(at(line, QAccessible::LineBoundary)));
    QVERIFY(end - start < 20);
    QCOMPARE(pane.text->textAfterOffset(line, QAccessible::ParagraphBoundary, &start, &end),
             QStringLiteral("[16:45:57] alice: message number 2 \n"));
    QCOMPARE(pane.text->textBeforeOffset(line + 5, QAccessible::ParagraphBoundary, &start, &end),
             QStringLiteral("[16:45:57] alice: message number 0 \n"));
    QCOMPARE(pane.text->textBeforeOffset(0, QAccessible::CharBoundary, &start, &end), QString());
    QCOMPARE(pane.text->textAfterOffset(100'000, QAccessible::CharBoundary, &start, &end),
             QString());
  }

  void ARunTellsItsLookAndItsBounds() {
    ReadPane pane(2);
    int start = 0;
    int end = 0;
    const int line = static_cast<int>(pane.LineStart(1));
    const QString attributes = pane.text->attributes(line + 13, &start, &end);
    QCOMPARE(start, line + 11);
    QCOMPARE(end, line + 17);
    QCOMPARE(attributes,
             QStringLiteral("font-family:\"Times New Roman\";font-size:12pt;color:rgb(207,207,255);"
                            "font-weight:bold;font-style:normal;text-underline-style:solid;"
                            "text-underline-type:single;"));
    QVERIFY(pane.text->attributes(line + 20, &start, &end)
                .contains(QStringLiteral("color:rgb(192,192,192);font-weight:normal")));
  }

  void PlacesAreOnTheScreenAndFoundAgain() {
    ReadPane pane(3);
    const int offset = static_cast<int>(pane.LineStart(1)) + 13;
    const QRect rect = pane.text->characterRect(offset);
    QCOMPARE(rect.topLeft(),
             pane.view.viewport()->mapToGlobal(pane.view.CharacterRect(offset).topLeft()));
    QCOMPARE(pane.text->offsetAtPoint(rect.center()), offset);
    QCOMPARE(pane.text->offsetAtPoint(QPoint(-5000, 10)), -1);
  }

  void CaretAndSelectionAreTheReaders() {
    ReadPane pane(3);
    QCOMPARE(pane.text->selectionCount(), 0);
    pane.text->setSelection(0, 11, 16);
    QCOMPARE(pane.SelectedText(), std::string("alice"));
    QCOMPARE(pane.box.SelText(), std::string("alice"));
    QCOMPARE(pane.text->cursorPosition(), 16);
    int start = 0;
    int end = 0;
    pane.text->selection(0, &start, &end);
    QCOMPARE(start, 11);
    QCOMPARE(end, 16);
    pane.text->removeSelection(0);
    QCOMPARE(pane.text->selectionCount(), 0);
    pane.text->setCursorPosition(3);
    QCOMPARE(pane.view.Caret(), PanePosition{3});
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::RichTextViewAccessibleTest)
#include "accessible_test.moc"
