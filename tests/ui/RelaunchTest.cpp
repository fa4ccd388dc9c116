#include "support/VolumeTest.h"
#include "ui/ProcessRelauncher.h"

#include <QApplication>
#include <QWidget>

#include <filesystem>

namespace veridane::ui {
namespace {

using test::Texts;

class RelaunchTest : public test::VolumeTest {};

TEST_F(RelaunchTest, TheProgramIsFoundAgainWhateverItWasCalled) {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    const std::string link = volume.hostPath("/link");
    volume.link("/link", self);
    const auto relative = std::filesystem::relative(link).string();
    const struct {
        const char* what;
        std::string calledAs;
        std::string found;
    } cases[] = {
        {"by its path", self, self},
        {"by a link, which may lead to a newer one by then", link, link},
        {"from the folder it is in", relative,
         (std::filesystem::current_path() / relative).string()},
        {"as something else", "-sh", self},
        {"as another program", "/bin/sh", self},
        {"as nothing", "", self},
    };
    for (const auto& c : cases) {
        const Texts arguments = {c.calledAs, "-platform", "offscreen", "--volume", "\xFF", ""};
        Texts expected = arguments;
        expected.front() = c.found;
        EXPECT_EQ(relaunchCommand(arguments), expected) << c.what;
    }
    EXPECT_EQ(relaunchCommand({}), Texts{self});
}

/// A window that keeps its layout when it is closed.
class ClosingWindow : public QWidget {
public:
    explicit ClosingWindow(Texts& events) : m_events(events) {}

protected:
    void closeEvent(QCloseEvent* event) override {
        m_events.emplace_back("closed");
        QWidget::closeEvent(event);
    }

private:
    Texts& m_events;
};

TEST_F(RelaunchTest, TheNewOneIsStartedOnceBeforeTheWindowsCloseAndTheLoopEnds) {
    Texts events;
    ProcessRelauncher relauncher({"/new"}, [&](const Texts& command) {
        events.push_back("started " + command.front()); // whether or not that works
    });
    ClosingWindow window(events);
    window.show();
    const auto press = [&] {
        relauncher.relaunch();
        relauncher.relaunch();
        events.emplace_back("button released");
    };
    QMetaObject::invokeMethod(&window, press, Qt::QueuedConnection);
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_EQ(events, (Texts{"started /new", "button released", "closed"}));
}

} // namespace
} // namespace veridane::ui
