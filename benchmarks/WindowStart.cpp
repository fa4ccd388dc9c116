// Opens the window as the program does and prints how long it took from the start of the process to
// the first frame (milliseconds), and the memory that is resident then (MiB):
//   window-start NANOSECONDS --volume DIR
// NANOSECONDS is the monotonic clock just before the process was started. What it is to find kept
// is written by
//   window-start --keep COUNT DIR

#include "coordination/DataDirectory.h"
#include "coordination/ScanCacheStore.h"
#include "sample-items/SampleItems.h"
#include "ui/LaunchArguments.h"
#include "ui/VeridaneApp.h"

#include <QApplication>
#include <QEvent>
#include <QTimer>

#include <unistd.h>

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string_view>
#include <variant>

namespace {

using namespace veridane;

double residentMebibytes() {
    std::ifstream file("/proc/self/statm");
    double whole = 0;
    double resident = 0;
    file >> whole >> resident;
    return resident * static_cast<double>(::sysconf(_SC_PAGESIZE)) / (1024 * 1024);
}

/// Waits for the main window to be painted.
class FirstFrame : public QObject {
public:
    explicit FirstFrame(std::int64_t start) : m_start(start) { qApp->installEventFilter(this); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (event->type() != QEvent::Paint || !widget || widget->isWindow())
            return false;
        qApp->removeEventFilter(this);
        // All of the frame is painted and handed over before the next turn.
        QTimer::singleShot(0, this, &FirstFrame::report);
        return false;
    }

private:
    void report() const {
        const auto now = std::chrono::steady_clock::now().time_since_epoch();
        const auto passed = std::chrono::nanoseconds(now).count() - m_start;
        std::printf("%.1f %.1f\n", static_cast<double>(passed) / 1e6, residentMebibytes());
        QCoreApplication::quit();
    }

    std::int64_t m_start;
};

/// Keeps that many objects as the last scan of the volume.
void keep(std::size_t count, const std::string& volume) {
    ScanCacheStore store(dataDirectory(volume));
    store.save(sample::sampleItems(count), {}, now());
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 4)
        return 2;
    if (std::string_view(argv[1]) == "--keep") {
        keep(std::strtoull(argv[2], nullptr, 10), argv[3]);
        return EXIT_SUCCESS;
    }
    const QApplication application(argc, argv);
    const auto parsed = ui::parseLaunchArguments({argv + 2, argv + argc});
    const auto* arguments = std::get_if<ui::LaunchArguments>(&parsed);
    if (!arguments)
        return 2;
    auto volume = openVolume(arguments->volume, arguments->homes);
    if (!std::holds_alternative<ExaminedVolume>(volume))
        return 2;
    const FirstFrame firstFrame(std::strtoll(argv[1], nullptr, 10));
    ui::VeridaneApp app(std::move(std::get<ExaminedVolume>(volume)), *arguments,
                        {argv, argv + argc});
    app.showMainWindow();
    return QApplication::exec();
}
