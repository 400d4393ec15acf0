// What a screen reader is told of a pane, and when.
#include "pane/qt/announcer.h"

#include <QAccessible>
#include <QList>
#include <QString>
#include <QTest>
#include <memory>

#include "pane/rich_text_box.h"
#include "support/qt/qt_test.h"

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

class PaneAnnouncerTest : public QObject {
  Q_OBJECT

 private slots:
  void ASmileInALineThatComesIsToldAsItsCode() {
    AnnouncedPane pane;
    pane.Append("hi  you");
    pane.box.ExSetSel(3, 4);
    pane.box.PastePicture(std::make_shared<PanePicture>(PanePicture{"*:)", nullptr}));
    pane.announcer.Flush();
    QCOMPARE(told, (QList<Told>{{QAccessible::TextInserted, 0, "hi *:)you"}}));
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

WINDOW_TEST(parlorwire::PaneAnnouncerTest)
#include "announcer_test.moc"
