// What a view does is counted, and is the same with a thousand lines and with a hundred thousand.
#include <QCoreApplication>
#include <QScrollBar>
#include <QWheelEvent>
#include <functional>

#include "pane/qt/reader_selection.h"
#include "pane/qt/shown_pane.h"
#include "support/qt/qt_test.h"

namespace parlorwire {
namespace {

constexpr int kFew = 1'000;
constexpr int kMany = 100'000;
constexpr int kSteps = 10;

struct Work {
  std::uint64_t laid_out = 0;
  std::uint64_t wrapped = 0;
  std::uint64_t painted = 0;
  std::uint64_t blocks = 0;
  std::uint64_t runs = 0;
};

Work WorkOf(ShownPane& pane) {
  const auto view = pane.view.work();
  const auto box = pane.box.work();
  return {view.laid_out, view.wrapped, view.painted, box.blocks_touched, box.runs_moved};
}

// The lines are a little longer where their numbers are.
bool AsLittle(std::uint64_t many, std::uint64_t few) {
  return many <= few + few / 5 + 5 * kSteps;
}

// A line somewhere, the same share of the way down.
PanePosition LineOf(ShownPane& pane, int step) {
  return pane.LineStart(pane.box.LineCount() * (step * 37 % 100) / 100);
}

void WheelNotch(RichTextView& view, int angle) {
  const QPointF at = view.viewport()->rect().center();
  QWheelEvent event(at, view.viewport()->mapToGlobal(at), {}, {0, angle}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(view.viewport(), &event);
}

using Operation = std::function<void(ShownPane& pane, int step)>;

}  // namespace

class RichTextViewCostTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    few_ = std::make_unique<ShownPane>(kFew);
    many_ = std::make_unique<ShownPane>(kMany);
  }
  void cleanupTestCase() {
    few_.reset();
    many_.reset();
  }

  void ALineMoreAtTheEnd() {
    Same([](ShownPane& pane, int) {
      AppendMessages(pane.box, 1);
      pane.box.VScroll(PaneScroll::kBottom);
    });
  }

  void AFormatNearTheEnd() {
    Same([](ShownPane& pane, int step) {
      pane.box.ExSetSel(pane.box.Length() - 10, pane.box.Length() - 5);
      pane.box.SelColor(static_cast<PaneColour>(step + 1));
    });
  }

  void APictureNearTheEnd() {
    const auto picture = std::make_shared<PanePicture>(PanePicture{"*:)", nullptr});
    Same([&](ShownPane& pane, int) {
      pane.box.ExSetSel(pane.box.Length() - 10, pane.box.Length() - 9);
      pane.box.PastePicture(picture);
    });
  }

  void ANickTintedAnywhere() {
    Same([](ShownPane& pane, int step) {
      const PanePosition nick = LineOf(pane, step) + 11;
      pane.box.HideSelection(true);
      pane.box.ExSetSel(nick, nick + 5);
      pane.box.SelColor(static_cast<PaneColour>(step + 1));
    });
  }

  void TheWordAndTheLineAroundAPlace() {
    Same([](ShownPane& pane, int step) {
      const PanePosition nick = LineOf(pane, step) + 11;
      QCOMPARE(RangeAround(pane.box, nick + 2, SelectionGrain::kWord), (PaneRange{nick, nick + 5}));
      QCOMPARE(RangeAround(pane.box, nick, SelectionGrain::kLine).start, nick - 11);
    });
  }

  void ThePlaceUnderAPoint() {
    Same([](ShownPane& pane, int step) {
      for (int y = 0; y < 290; y += 30)
        QVERIFY(pane.box.CharFromPos(10 * step, y) > 0);
    });
  }

  void AJump() {
    Same([](ShownPane& pane, int step) { pane.view.ShowPosition(LineOf(pane, step)); });
  }

  void AResize() {
    Same([](ShownPane& pane, int step) {
      pane.view.resize(step % 2 == 0 ? 330 : 400, step % 2 == 0 ? 280 : 300);
    });
  }

  void TheWheel() {
    Same([](ShownPane& pane, int step) { WheelNotch(pane.view, step % 3 == 0 ? -120 : 120); });
  }

  void TheBarDraggedFromEndToEnd() {
    Same([](ShownPane& pane, int step) {
      QScrollBar* bar = pane.view.verticalScrollBar();
      bar->setSliderDown(true);
      bar->setSliderPosition(bar->maximum() / kSteps * (step + 1));
      bar->setSliderDown(false);
    });
  }

  void EverythingSelected() {
    Same([](ShownPane& pane, int step) {
      pane.view.SelectAll();
      pane.view.Select(step, step);
    });
  }

  void ALineOfAListDeleted() {
    Same([](ShownPane& pane, int step) {
      const auto line = pane.box.LineByIndex(pane.box.LineAt(LineOf(pane, step)));
      pane.box.HideSelection(true);
      pane.box.ExSetSel(line.start, line.next);
      pane.box.ReplaceSel("");
    });
  }

 private:
  void Same(const Operation& operation) {
    const Work few = Cost(*few_, operation);
    const Work many = Cost(*many_, operation);
    const auto report = [&](const char* what, std::uint64_t of_many, std::uint64_t of_few) {
      return qPrintable(QStringLiteral("%1: %2 with many lines, %3 with few")
                            .arg(QLatin1String(what))
                            .arg(of_many)
                            .arg(of_few));
    };
    QVERIFY2(AsLittle(many.laid_out, few.laid_out),
             report("lines laid out", many.laid_out, few.laid_out));
    QVERIFY2(AsLittle(many.wrapped, few.wrapped),
             report("characters measured", many.wrapped, few.wrapped));
    QVERIFY2(AsLittle(many.painted, few.painted),
             report("lines painted", many.painted, few.painted));
    QVERIFY2(AsLittle(many.blocks, few.blocks), report("blocks touched", many.blocks, few.blocks));
    QVERIFY2(AsLittle(many.runs, few.runs), report("runs moved", many.runs, few.runs));
  }

  static Work Cost(ShownPane& pane, const Operation& operation) {
    pane.view.ScrollToEnd();
    ShownPane::Settle();
    const Work before = WorkOf(pane);
    for (int step = 0; step < kSteps; ++step) {
      operation(pane, step);
      ShownPane::Settle();
    }
    const Work after = WorkOf(pane);
    return {after.laid_out - before.laid_out, after.wrapped - before.wrapped,
            after.painted - before.painted, after.blocks - before.blocks, after.runs - before.runs};
  }

  std::unique_ptr<ShownPane> few_;
  std::unique_ptr<ShownPane> many_;
};

}  // namespace parlorwire

WINDOW_TEST(parlorwire::RichTextViewCostTest)
#include "cost_test.moc"
