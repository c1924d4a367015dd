// The editor's window: filling it, collecting it, opening a cell.
#include "editor_panel.h"
#include "radio_memory.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QEvent>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>

#include <benchmark/benchmark.h>

namespace mr4500x {
namespace {

struct Quiet final : MessageView {
  Answer Show(MessageIcon, std::string_view, std::string_view, MessageButtons) override { return Answer::Ok; }
};

struct ShownPanel {
  RadioImage image;
  FieldTexts texts = BuildFieldTexts('.');
  Quiet quiet;
  EditorPanel panel{image, texts, quiet};

  ShownPanel() {
    const RadioMemory memory = FactoryMemory();
    for (const BlockLocation& place : RecordMap) {
      const auto block = BlockBytes(image, place.block);
      std::copy_n(memory.begin() + place.address, block.size(), block.begin());
    }
    panel.Fill();
    panel.show();
    static_cast<void>(QTest::qWaitForWindowActive(&panel));
  }
};

void Fill(benchmark::State& state) {
  ShownPanel shown;
  for (auto _ : state) {
    benchmark::DoNotOptimize(shown.panel.Fill());
    QApplication::processEvents(); // includes the repaint
  }
}
BENCHMARK(Fill)->Unit(benchmark::kMillisecond);

void Collect(benchmark::State& state) {
  ShownPanel shown;
  for (auto _ : state) {
    shown.panel.Collect();
    QApplication::processEvents();
  }
}
BENCHMARK(Collect)->Unit(benchmark::kMillisecond);

// All channels are cleared and brought back, with a repaint each.
void UndoAndRedo(benchmark::State& state) {
  ShownPanel shown;
  auto* const grid = shown.panel.findChild<QTableWidget*>("gridChannel");
  grid->setFocus(); // in a text box, redo would be the box's
  for (int row = 0; row < grid->rowCount(); ++row)
    QTest::keyClick(grid, Qt::Key_Down, Qt::ShiftModifier);
  shown.panel.findChild<QAction*>("mnuChannelsClear")->trigger();
  for (auto _ : state)
    for (const char* const command : {"mnuUndo", "mnuRedo"}) {
      shown.panel.findChild<QAction*>(command)->trigger();
      QApplication::processEvents();
    }
}
BENCHMARK(UndoAndRedo)->Unit(benchmark::kMillisecond);

// 16 channels that all change, with a repaint.
void PasteChannels(benchmark::State& state) {
  ShownPanel shown;
  shown.panel.FillReset({2026, 1, 1, 0, 0, 0});
  QApplication::clipboard()->setText("Rx Freq (MHz)\tTx Freq (MHz)\tRx CTC/DCS\tNo CH\n" +
                                     QString("445.5\t446.5\tCTC88.5\tno\n").repeated(16));
  for (auto _ : state) {
    shown.panel.findChild<QAction*>("mnuChannelsPaste")->trigger();
    QApplication::processEvents();
    state.PauseTiming();
    shown.panel.findChild<QAction*>("mnuUndo")->trigger();
    QApplication::processEvents();
    state.ResumeTiming();
  }
}
BENCHMARK(PasteChannels)->Unit(benchmark::kMillisecond);

// What each key and click costs because of the history.
void ShownConfiguration(benchmark::State& state) {
  const ShownPanel shown;
  for (auto _ : state)
    benchmark::DoNotOptimize(shown.panel.Shown());
}
BENCHMARK(ShownConfiguration)->Unit(benchmark::kMicrosecond);

class PaintWatch final : public QObject {
public:
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    painted = painted || event->type() == QEvent::Paint;
    return false;
  }
  bool painted = false;
};

// From the click on a cell until its editor is painted.
void OpenCell(benchmark::State& state) {
  ShownPanel shown;
  auto* const grid = shown.panel.findChild<QTableWidget*>("gridChannel");
  auto* const editor = shown.panel.findChild<QLineEdit*>("txtChFreq");
  PaintWatch watch;
  editor->installEventFilter(&watch);
  for (auto _ : state) {
    QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, grid->visualItemRect(grid->item(1, 0)).center());
    if (!QTest::qWaitFor([&] { return editor->isVisible() && watch.painted; }, 1000)) {
      state.SkipWithError("the editor did not open");
      break;
    }
    state.PauseTiming();
    shown.panel.HideOpenEditors();
    QApplication::processEvents();
    watch.painted = false;
    state.ResumeTiming();
  }
}
BENCHMARK(OpenCell)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace mr4500x

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  benchmark::RunSpecifiedBenchmarks();
}
