// A pane as a screen reader meets it.
#include "pane/qt/announcer.h"
#include "pane/qt/shown_pane.h"
#include "support/qt/qt_test.h"
#include "text/text.h"

#include <QAccessible>
#include <memory>


namespace parlorwire {
namespace {

struct Told {
  QAccessible::Event type;
  int position;
  QString text;
  bool operator==(const Told&) const = default;
};

QList<Told> told;

void Listen(QAccessibleEvent* event) {
  if (event->type() == QAccessible::TextInserted) {
    auto* inserted = static_cast<QAccessibleTextInsertEvent*>(event);
    told.append({event->type(), inserted->changePosition(), inserted->textInserted()});
  } else if (event->type() == QAccessible::TextRemoved) {
    auto* removed = static_cast<QAccessibleTextRemoveEvent*>(event);
    told.append({event->type(), removed->changePosition(), removed->textRemoved()});
  } else if (event->type() == QAccessible::TextSelectionChanged) {
    auto* selected = static_cast<QAccessibleTextSelectionEvent*>(event);
    told.append(
        {event->type(), selected->selectionStart(), QString::number(selected->selectionEnd())});
  } else if (event->type() == QAccessible::TextCaretMoved) {
    auto* caret = static_cast<QAccessibleTextCursorEvent*>(event);
    told.append({event->type(), caret->cursorPosition(), QString()});
  }
}

struct ReadPane : ShownPane {
  explicit ReadPane(int lines = 0) : ShownPane(lines) {
    reader = QAccessible::queryAccessibleInterface(&view);
    text = reader == nullptr ? nullptr : reader->textInterface();
  }
  QAccessibleInterface* reader = nullptr;
  QAccessibleTextInterface* text = nullptr;
};

// A pane whose changes are announced to the list above, with no reader of the desktop's.
struct AnnouncedPane {
  AnnouncedPane() : announcer(box, &view, Listen) {
    announcer.accessibilityActiveChanged(true);
    told.clear();
  }
  // Replaces [start, end).
  void Write(PanePosition start, PanePosition end, std::string_view written) {
    box.ExSetSel(start, end);
    box.ReplaceSel(written);
    PaneView::TextChange change;
    change.start = start;
    change.removed = end - start;
    change.inserted = static_cast<PanePosition>(written.size());
    announcer.TextChanged(change);
  }
  void Append(std::string_view written) { Write(box.Length(), box.Length(), written); }

  RichTextBox box;
  QObject view;
  PaneAnnouncer announcer;
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

  void ALineThatComesInPiecesIsToldOnce() {
    AnnouncedPane pane;
    pane.Append("[1] ");
    pane.Append("bob: ");
    pane.Write(8, 9, " hello\r\n");  // the blank that ends the nick is written anew
    QVERIFY(told.isEmpty());
    pane.announcer.Flush();
    QCOMPARE(told,
             (QList<Told>{{QAccessible::TextInserted, 0, QStringLiteral("[1] bob: hello \n")}}));
    pane.announcer.Flush();
    QCOMPARE(told.size(), 1);
    pane.Append("more\r\n");
    pane.announcer.Flush();
    QCOMPARE(told.last(), (Told{QAccessible::TextInserted, 16, QStringLiteral("more \n")}));
  }

  void WhatGoesIsToldToo() {
    AnnouncedPane pane;
    pane.Append("one two three");
    pane.announcer.Flush();
    told.clear();
    pane.Write(4, 7, "2");
    pane.announcer.Flush();
    QCOMPARE(told, (QList<Told>{{QAccessible::TextRemoved, 4, QStringLiteral("   ")},
                                {QAccessible::TextInserted, 4, QStringLiteral("2")}}));
  }

  void ChangesInTwoPlacesAreToldWhereTheyWere() {
    AnnouncedPane pane;
    pane.Append("one two three");
    pane.announcer.Flush();
    told.clear();
    pane.Append(" four");
    pane.Write(0, 0, "zero ");
    pane.announcer.Flush();
    QCOMPARE(told, (QList<Told>{{QAccessible::TextInserted, 13, QStringLiteral(" four")},
                                {QAccessible::TextInserted, 0, QStringLiteral("zero ")}}));
  }

  void CaretAndSelectionAreTold() {
    AnnouncedPane pane;
    pane.Append("one two three");
    pane.announcer.Drop();
    pane.announcer.SelectionChanged({7, 4});
    pane.announcer.SelectionChanged({5, 5});
    QCOMPARE(told, (QList<Told>{{QAccessible::TextSelectionChanged, 4, QStringLiteral("7")},
                                {QAccessible::TextCaretMoved, 5, QString()}}));
  }

  void WithNobodyListeningNothingIsGathered() {
    AnnouncedPane pane;
    pane.announcer.accessibilityActiveChanged(false);
    pane.Append("one");
    pane.announcer.SelectionChanged({0, 2});
    pane.announcer.accessibilityActiveChanged(true);
    pane.announcer.Flush();
    QVERIFY(told.isEmpty());
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::RichTextViewAccessibleTest)
#include "accessible_test.moc"
