// The keyboard in a pane, copying, and the menu.
#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QTimer>

#include "pane/qt/copy.h"
#include "pane/qt/shown_pane.h"
#include "support/qt/qt_test.h"
#include "text/text.h"

namespace parlorwire {
namespace {

constexpr auto kShift = Qt::ShiftModifier;
constexpr auto kControl = Qt::ControlModifier;

void Key(ShownPane& pane, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QTest::keyClick(&pane.view, key, modifiers);
}

std::shared_ptr<const PanePicture> Smile() {
  auto smile = std::make_shared<PanePicture>();
  smile->code = ":-)";
  return smile;
}

// Opens the menu, takes its entry of that name if it is enabled, and gives all entries' texts.
QStringList TakeFromMenu(ShownPane& pane, const QString& name,
                         QContextMenuEvent::Reason reason = QContextMenuEvent::Mouse) {
  QStringList texts;
  QTimer::singleShot(0, &pane.view, [&] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (menu == nullptr) return;
    for (QAction* action : menu->actions()) {
      texts << action->text() + (action->isEnabled() ? QString() : QStringLiteral(" -"));
      if (action->objectName() == name && action->isEnabled()) menu->setActiveAction(action);
    }
    QTest::keyClick(menu, menu->activeAction() != nullptr ? Qt::Key_Return : Qt::Key_Escape);
  });
  const QPoint at(10, 10);
  QContextMenuEvent event(reason, at, pane.view.viewport()->mapToGlobal(at));
  QCoreApplication::sendEvent(pane.view.viewport(), &event);
  return texts;
}

}  // namespace

class RichTextViewKeysTest : public QObject {
  Q_OBJECT

 private slots:
  void init() { QGuiApplication::clipboard()->setText(QStringLiteral("before")); }

  // ---- scrolling ----

  void HomeAndEndGoToTheEnds() {
    ShownPane pane(200);
    Key(pane, Qt::Key_Home);
    QCOMPARE(pane.view.CharFromPos(3, 0), PanePosition{0});
    QVERIFY(!pane.AtEnd());
    Key(pane, Qt::Key_End);
    QVERIFY(pane.AtEnd());
    Key(pane, Qt::Key_Home, kControl);
    QCOMPARE(pane.view.CharFromPos(3, 0), PanePosition{0});
    Key(pane, Qt::Key_End, kControl);
    QVERIFY(pane.AtEnd());
  }

  void PagesAndTheBlankKeepALittleOfWhatWasSeen() {
    ShownPane pane(200);
    Key(pane, Qt::Key_Home);
    const QImage first = pane.Picture();
    Key(pane, Qt::Key_PageDown);
    const PanePosition second = pane.view.CharFromPos(3, 0);
    const int rows = pane.view.viewport()->height() / pane.view.CharacterRect(second).height();
    const auto line = pane.box.LineAt(second);
    QVERIFY(line >= rows - 1 && line <= rows);
    Key(pane, Qt::Key_PageUp);
    QCOMPARE(pane.Picture(), first);
    Key(pane, Qt::Key_Space);
    QCOMPARE(pane.view.CharFromPos(3, 0), second);
    Key(pane, Qt::Key_Space, kShift);
    QCOMPARE(pane.Picture(), first);
  }

  void UpAndDownScrollByARow() {
    ShownPane pane(200);
    pane.view.ShowPosition(pane.LineStart(100));
    ShownPane::Settle();
    const QImage before = pane.Picture();
    Key(pane, Qt::Key_Down);
    QVERIFY(pane.Picture() != before);
    Key(pane, Qt::Key_Up);
    QCOMPARE(pane.Picture(), before);
  }

  void LettersAreLeftToTheWindow() {
    ShownPane pane(3);
    QKeyEvent press(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"));
    press.accept();
    QCoreApplication::sendEvent(&pane.view, &press);
    QVERIFY(!press.isAccepted());
  }

  // ---- selecting ----

  void ShiftAndTheArrowsSelect() {
    ShownPane pane(5);
    const PanePosition start = pane.LineStart(2) + 11;
    pane.view.Select(start, start);
    for (int i = 0; i < 5; ++i)
      Key(pane, Qt::Key_Right, kShift);
    QCOMPARE(pane.SelectedText(), std::string("alice"));
    QCOMPARE(pane.box.SelText(), std::string("alice"));
    for (int i = 0; i < 7; ++i)
      Key(pane, Qt::Key_Left, kShift);
    QCOMPARE(pane.view.Selected(), (PaneRange{start - 2, start}));
  }

  void ALineBreakIsOneStep() {
    ShownPane pane(3);
    const auto line = pane.box.LineByIndex(1);
    const PanePosition end = line.start + line.length;
    pane.view.Select(end, end);
    Key(pane, Qt::Key_Right, kShift);
    QCOMPARE(pane.view.Caret(), end + 2);
    Key(pane, Qt::Key_Left, kShift);
    QCOMPARE(pane.view.Caret(), end);
  }

  void ShiftUpAndDownKeepTheColumn() {
    ShownPane pane;
    Append(pane.box, "wwwwwwwwwwwwwwwwwwww\r\nii\r\nwwwwwwwwwwwwwwwwwwww\r\n",
           MainFormat(0xFFFFFF));
    pane.view.Select(10, 10);
    Key(pane, Qt::Key_Down, kShift);
    QCOMPARE(pane.view.Caret(), PanePosition{24});
    Key(pane, Qt::Key_Down, kShift);
    QCOMPARE(pane.view.Caret(), PanePosition{36});
    Key(pane, Qt::Key_Up, kShift);
    Key(pane, Qt::Key_Up, kShift);
    QCOMPARE(pane.view.Caret(), PanePosition{10});
    Key(pane, Qt::Key_Up, kShift);
    QCOMPARE(pane.view.Caret(), PanePosition{0});
  }

  void ShiftHomeAndEndGoToTheRowsEdges() {
    ShownPane pane(5);
    const auto line = pane.box.LineByIndex(2);
    pane.view.Select(line.start + 7, line.start + 7);
    Key(pane, Qt::Key_End, kShift);
    QCOMPARE(pane.view.Selected(), (PaneRange{line.start + 7, line.start + line.length}));
    Key(pane, Qt::Key_Home, kShift);
    QCOMPARE(pane.view.Selected(), (PaneRange{line.start, line.start + 7}));
    Key(pane, Qt::Key_Home, kShift | kControl);
    QCOMPARE(pane.view.Selected(), (PaneRange{0, line.start + 7}));
    Key(pane, Qt::Key_End, kShift | kControl);
    QCOMPARE(pane.view.Selected(), (PaneRange{line.start + 7, pane.box.Length()}));
  }

  void ShiftAndPagesSelectAndFollow() {
    ShownPane pane(200);
    pane.view.ScrollToStart();
    pane.view.Select(0, 0);
    for (int i = 0; i < 3; ++i)
      Key(pane, Qt::Key_PageDown, kShift);
    QVERIFY(pane.box.LineAt(pane.view.Caret()) > 30);
    QVERIFY(!pane.view.CharacterRect(pane.view.Caret()).isEmpty());
    for (int i = 0; i < 3; ++i)
      Key(pane, Qt::Key_PageUp, kShift);
    QCOMPARE(pane.view.Caret(), PanePosition{0});
    QVERIFY(!pane.view.CharacterRect(0).isEmpty());
  }

  void ControlShiftAndTheArrowsSelectWords() {
    ShownPane pane;
    Append(pane.box, "one two, three\r\nfour", MainFormat(0xFFFFFF));
    pane.view.Select(0, 0);
    const PanePosition stops[] = {4, 7, 9, 14, 16, 20, 20};
    for (const PanePosition stop : stops) {
      Key(pane, Qt::Key_Right, kShift | kControl);
      QCOMPARE(pane.view.Caret(), stop);
    }
    const PanePosition back[] = {16, 14, 9, 7, 4, 0, 0};
    for (const PanePosition stop : back) {
      Key(pane, Qt::Key_Left, kShift | kControl);
      QCOMPARE(pane.view.Caret(), stop);
    }
  }

  void WithNoCaretInSightSelectingBeginsAtTheTopOfTheView() {
    ShownPane pane(300);
    pane.view.ShowPosition(pane.LineStart(100));
    ShownPane::Settle();
    Key(pane, Qt::Key_Down, kShift);
    QVERIFY(pane.view.Selected().start >= pane.LineStart(90));
  }

  void ControlASelectsAll() {
    ShownPane pane(5);
    Key(pane, Qt::Key_A, kControl);
    QCOMPARE(pane.view.Selected(), (PaneRange{0, pane.box.Length()}));
    QCOMPARE(pane.box.SelText(), pane.box.Text());
  }

  // ---- copying ----

  void ControlCAndControlInsertCopy() {
    ShownPane pane(5);
    pane.view.Select(pane.LineStart(1), pane.LineStart(3));
    const QString text =
        QStringLiteral("[16:45:57] alice: message number 1\n[16:45:57] alice: message number 2\n");
    Key(pane, Qt::Key_C, kControl);
    QCOMPARE(QGuiApplication::clipboard()->text(), text);
    QGuiApplication::clipboard()->clear();
    Key(pane, Qt::Key_Insert, kControl);
    QCOMPARE(QGuiApplication::clipboard()->text(), text);
  }

  void NothingSelectedLeavesTheClipboardAlone() {
    ShownPane pane(5);
    Key(pane, Qt::Key_C, kControl);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
  }

  void CopyingTakesTheReadersSelectionAlsoAfterTheProgramHasWritten() {
    ShownPane pane(5);
    pane.view.Select(pane.LineStart(1) + 11, pane.LineStart(1) + 16);
    AppendMessages(pane.box, 10);
    Key(pane, Qt::Key_C, kControl);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("alice"));
  }

  void EveryKindOfLineBreakIsCopiedAsOne() {
    RichTextBox box;
    box.Text("a\r\nb\r\r\nc\rd\ne\r\r\rf\r");
    QCOMPARE(CopiedText(box, {0, box.Length()}), QStringLiteral("a\nb\nc\nd\ne\n\n\nf\n"));
  }

  void APictureIsCopiedAsItsCode() {
    RichTextBox box;
    Append(box, "so \r\n", MainFormat(0));
    box.ExSetSel(3, 3);
    box.PastePicture(Smile());
    QCOMPARE(CopiedText(box, {0, box.Length()}), QStringLiteral("so :-)\n"));
    QCOMPARE(CopiedText(box, {0, 3}), QStringLiteral("so "));
  }

  void SoftWrapsAreNotCopied() {
    ShownPane pane(0, {120, 300});
    Append(pane.box, "one two three four five six seven eight\r\n", MainFormat(0));
    QVERIFY(pane.view.CharacterRect(30).top() > pane.view.CharacterRect(0).top());
    pane.view.SelectAll();
    pane.view.Copy();
    QCOMPARE(QGuiApplication::clipboard()->text(),
             QStringLiteral("one two three four five six seven eight\n"));
  }

  void HtmlHasFontsAndColoursAndNoMarkupOfTheText() {
    ShownPane pane;
    PaneFormat format = MainFormat(0x0000FF);  // red
    format.bold = true;
    format.underline = true;
    format.back_colour = 0xFF0000;
    Append(pane.box, W<"<b>Привет</b> & \"x\"\r\n">, format);
    pane.view.SelectAll();
    pane.view.Copy();
    const QString html = QGuiApplication::clipboard()->mimeData()->html();
    QVERIFY(html.contains(QStringLiteral("&lt;b&gt;Привет&lt;/b&gt; &amp; &quot;x&quot;<br>")));
    QVERIFY(
        html.contains(QStringLiteral("color:#ff0000; background-color:#0000ff; "
                                     "font-weight:bold; text-decoration:underline;")));
    QVERIFY(html.contains(QStringLiteral("font-family:'Times New Roman'; font-size:12pt")));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("<b>Привет</b> & \"x\"\n"));
  }

  void AFontNameCannotLeaveItsPlaceInTheHtml() {
    RichTextBox box;
    PaneFormat format = MainFormat(0);
    format.font_name = "x'; \"><script>";
    Append(box, "text", format);
    const QString html = CopiedHtml(box, {0, box.Length()});
    QVERIFY(!html.contains(QStringLiteral("<script>")));
    QVERIFY(html.contains(QStringLiteral("font-family:'x; &quot;&gt;&lt;script&gt;'")));
  }

  // ---- the menu ----

  void TheMenuCopies() {
    ShownPane pane(5);
    pane.view.Select(pane.LineStart(1) + 11, pane.LineStart(1) + 16);
    const QStringList texts = TakeFromMenu(pane, QStringLiteral("menu_copy"));
    QCOMPARE(texts, (QStringList{QStringLiteral("Копировать"), QStringLiteral("Выделить все")}));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("alice"));
  }

  void TheMenuSelectsAllAndSpeaksEnglish() {
    ShownPane pane(5);
    pane.view.SetRussian(false);
    const QStringList texts =
        TakeFromMenu(pane, QStringLiteral("menu_select_all"), QContextMenuEvent::Keyboard);
    QCOMPARE(texts, (QStringList{QStringLiteral("Copy -"), QStringLiteral("Select all")}));
    QCOMPARE(pane.view.Selected(), (PaneRange{0, pane.box.Length()}));
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::RichTextViewKeysTest)
#include "keys_test.moc"
