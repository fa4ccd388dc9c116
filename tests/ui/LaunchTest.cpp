#include "support/VolumeTest.h"
#include "ui/LaunchArguments.h"
#include "ui/ProcessRelauncher.h"

#include <QApplication>
#include <QWidget>

namespace veridane::ui {
namespace {

using test::Texts;

TEST(LaunchArguments, AreReadInAnyOrder) {
    const LaunchArguments expected{
        .volume = "./[mac]", .homes = {"/Users/a", "/Users/b"}, .seeds = {"UITEST_SEED_DATA"}};
    for (const Texts& arguments :
         {Texts{"--volume", "[mac]", "--home", "/Users/a", "UITEST_SEED_DATA", "--home=/Users/b"},
          {"UITEST_SEED_DATA", "--home=/Users/a", "--home", "/Users/b", "--volume=./[mac]"}})
        EXPECT_EQ(std::get<LaunchArguments>(parseLaunchArguments(arguments)), expected);
}

TEST(LaunchArguments, AWrongCallIsToldInOneLine) {
    for (const Texts& arguments : {Texts{"--volume"},
                                   {"--volume", ""},
                                   {"--home="},
                                   {"/media/mac"},
                                   {"--colour"},
                                   {"-x\n--volume=y"},
                                   {"--volume=a", "--volume=b"}}) {
        const auto answer = std::get<LaunchAnswer>(parseLaunchArguments(arguments));
        EXPECT_TRUE(answer.isError) << arguments.front();
        EXPECT_EQ(answer.text.find('\n'), std::string::npos) << answer.text;
    }
    EXPECT_FALSE(std::get<LaunchAnswer>(parseLaunchArguments({"--colour", "--help"})).isError);
}

class RelaunchTest : public test::VolumeTest {};

TEST_F(RelaunchTest, TheProgramIsFoundAgainWhateverItWasCalled) {
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    const std::string link = volume.hostPath("/link");
    volume.link("/link", self);
    const auto relative = std::filesystem::relative(link).string();
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"by its path", self, self},
        {"by a link, which may lead to a newer one by then", link, link},
        {"from the folder it is in", relative,
         (std::filesystem::current_path() / relative).string()},
        {"as something else", "-sh", self},
        {"as another program", "/bin/sh", self},
        {"as nothing", "", self},
    };
    for (const auto& [what, calledAs, found] : cases) {
        const Texts arguments = {calledAs, "-platform", "offscreen", "--volume", "\xFF", ""};
        Texts expected = arguments;
        expected.front() = found;
        EXPECT_EQ(relaunchCommand(arguments), expected) << what;
    }
    EXPECT_EQ(relaunchCommand({}), Texts{self});
}

TEST_F(RelaunchTest, TheNewOneIsStartedOnceBeforeTheWindowsCloseAndTheLoopEnds) {
    Texts events;
    ProcessRelauncher relauncher({"/new"}, [&](const Texts& command) {
        events.push_back("started " + command.front()); // whether or not that works
    });
    QWidget window;
    QObject::connect(qGuiApp, &QGuiApplication::lastWindowClosed, &window,
                     [&] { events.emplace_back("closed"); });
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
