#include "BenchCoordinator.h"
#include "ui/ApplicationLook.h"
#include "ui/ContentView.h"
#include "ui/Preferences.h"
#include "ui/QuietServices.h"
#include "ui/Text.h"
#include "ui/Theme.h"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QTreeView>

#include <benchmark/benchmark.h>

#include <iterator>

namespace veridane::benchmarks {
namespace {

/// The main window over `count` items.
class Window : public QObject {
public:
    explicit Window(std::size_t count) : m_items(count) {
        m_window.show();
        m_rows->installEventFilter(this);
        turn();
    }
    bool eventFilter(QObject*, QEvent* event) override {
        m_paints += event->type() == QEvent::Paint;
        return false;
    }
    void search(const QString& text) { m_field->setText(text); }
    /// Gives how often the rows have been painted.
    int turn() {
        m_paints = 0;
        QCoreApplication::processEvents();
        m_window.repaint(); // this platform puts painting off by some milliseconds
        return m_paints;
    }

private:
    BenchCoordinator m_items;
    ui::Preferences m_preferences{ui::toQString(m_items.data().hostPath("/Veridane.conf"))};
    test::QuietSavePanel m_savePanel;
    ui::Theme m_theme;
    ui::ApplicationLook m_look{m_theme};
    ui::ContentView m_window{{.coordinator = m_items.coordinator(),
                              .workspace = m_items.workspace(),
                              .preferences = m_preferences,
                              .savePanel = m_savePanel,
                              .theme = m_theme},
                             {}};
    QWidget* m_rows = m_window.findChild<QTreeView*>()->viewport();
    QLineEdit* m_field = m_window.findChild<QLineEdit*>();
    int m_paints = 0;
};

// Each shows other rows than the one before, from all of them to a few.
const QString searched[] = {QStringLiteral("studio"), QStringLiteral("studio he"),
                            QStringLiteral("studio"), QString()};

/// From a letter in the search field to the rows that are left, on the screen.
void keystrokePainted(benchmark::State& state) {
    Window window(static_cast<std::size_t>(state.range(0)));
    std::size_t key = 0;
    int paints = 0;
    for (auto _ : state) {
        window.search(searched[key++ % std::size(searched)]);
        paints += window.turn();
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
