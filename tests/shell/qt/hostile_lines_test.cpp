// Lines that somebody sends to make a client choke, from the bytes of the frame to the painted
// pane. What is asserted is the work: ten times the line is at most ten times the work.
#include <QObject>

#include "pane/qt/rich_text_view.h"
#include "session/frame_stream.h"
#include "shell/assembly.h"
#include "support/one_smile.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

constexpr std::size_t kShort = 20'000;  // characters

struct ShownTab {
  ShownTab() : view(client.tab(0).Rich) {
    Assemble(client);
    LoadOneSmile(outside, client);
    client.tab(0).Login = "alice";
    client.tab(0).Connected = true;
    view.resize(500, 300);
    view.show();
    for (int i = 0; i < 100; ++i)
      Line("one more line");
    Settle();
  }
  void Line(const Text& text) { CacheMessages(client, "..[16:45:57]bob:() " + text + "\n", 0); }
  // The view puts off what is written in a stream.
  static void Settle() { QTest::qWait(150); }

  SimulatedPlatform outside;
  Client client{outside.Ports()};
  RichTextView view;
};

struct LineWork {
  std::uint64_t model = 0;
  std::uint64_t laid_out = 0;
  std::uint64_t wrapped = 0;
};

LineWork WorkOfLine(const char* word, std::size_t size) {
  ShownTab tab;
  Text text = "x";
  while (text.size() < size)
    text += word;
  const PaneWork model = tab.client.tab(0).Rich.work();
  const ViewWork view = tab.view.work();
  tab.Line(text + " x");
  ShownTab::Settle();
  const PaneWork model_after = tab.client.tab(0).Rich.work();
  const ViewWork view_after = tab.view.work();
  return {
      model_after.blocks_touched + model_after.runs_moved - model.blocks_touched - model.runs_moved,
      view_after.laid_out - view.laid_out, view_after.wrapped - view.wrapped};
}

}  // namespace

class HostileLinesTest : public QObject {
  Q_OBJECT

 private slots:
  void TenTimesTheLineIsTenTimesTheWork_data() {
    QTest::addColumn<QString>("word");
    for (const char* word : {" *:)", " http://a", " 1.2.3.4", " http:// www.", " *n", "*", " *",
                             " ", " alice:", " word"})
      QTest::newRow(word) << QString::fromLatin1(word);
  }
  void TenTimesTheLineIsTenTimesTheWork() {
    QFETCH(const QString, word);
    const LineWork few = WorkOfLine(qPrintable(word), kShort);
    const LineWork many = WorkOfLine(qPrintable(word), 10 * kShort);
    const auto report = [&](std::uint64_t of_many, std::uint64_t of_few) {
      return qPrintable(QStringLiteral("%1 against %2").arg(of_many).arg(of_few));
    };
    QVERIFY2(many.model <= 11 * few.model + 1'000, report(many.model, few.model));
    QVERIFY2(many.wrapped <= 11 * few.wrapped + 20'000, report(many.wrapped, few.wrapped));
    // What is seen is laid out, and no more than that.
    QVERIFY2(many.laid_out < 60, report(many.laid_out, few.laid_out));
    QVERIFY2(many.wrapped < 3 * 10 * kShort, report(many.wrapped, few.wrapped));
  }
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::HostileLinesTest)
#include "hostile_lines_test.moc"
