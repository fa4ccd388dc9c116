#include "BenchCoordinator.h"
#include "ui/ApplicationLook.h"
#include "ui/Preferences.h"
#include "ui/ResultsTableView.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QTreeView>

#include <benchmark/benchmark.h>

#include <iterator>

namespace veridane::benchmarks {
namespace {

/// The table as it stands in the window, over `count` items.
class Table : public QObject {
public:
    explicit Table(std::size_t count) : m_items(count) {
        m_view.resize(840, 690);
        m_view.show();
        m_view.findChild<QTreeView*>()->viewport()->installEventFilter(this);
        turn();
    }
    bool eventFilter(QObject*, QEvent* event) override {
        m_paints += event->type() == QEvent::Paint;
        return false;
    }
    /// Gives how often the rows have been painted.
    int turn() {
        m_paints = 0;
        QCoreApplication::processEvents();
        m_view.repaint(); // this platform puts painting off by some milliseconds
        return m_paints;
    }
    [[nodiscard]] ScanCoordinator& coordinator() { return m_items.coordinator(); }

private:
    BenchCoordinator m_items;
    ui::Preferences m_preferences{ui::toQString(m_items.data().hostPath("/Veridane.conf"))};
    ui::Theme m_theme;
    ui::ApplicationLook m_look{m_theme};
    ui::ResultsTableView m_view{m_items.coordinator(), m_items.workspace(), m_preferences, m_theme};
    int m_paints = 0;
};

// Each shows other rows than the one before, from all of them to a few.
constexpr const char* searched[] = {"studio", "studio he", "studio", ""};

/// From a letter in the search field to the rows that are left, on the screen.
void keystrokePainted(benchmark::State& state) {
    Table table(static_cast<std::size_t>(state.range(0)));
    std::size_t key = 0;
    int paints = 0;
    for (auto _ : state) {
        table.coordinator().setSearchText(searched[key++ % std::size(searched)]);
        table.coordinator().logEvent("search_text_changed");
        paints += table.turn();
    }
    state.counters["paints"] = benchmark::Counter(paints, benchmark::Counter::kAvgIterations);
}

BENCHMARK(keystrokePainted)->Arg(1'000)->Arg(10'000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace veridane::benchmarks

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
