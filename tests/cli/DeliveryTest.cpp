#include "cli/Commands.h"
#include "cli/Interruption.h"
#include "cli/Style.h"
#include "support/VolumeBuilder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <sstream>

namespace veridane::cli {
namespace {

bool handlesSignal() {
    struct sigaction action {};
    ::sigaction(SIGINT, nullptr, &action);
    return action.sa_handler != SIG_DFL && action.sa_handler != SIG_IGN;
}

TEST(Delivery, CtrlCActsAsBeforeOnceTheResultIsThere) {
    const auto old = std::signal(SIGINT, SIG_IGN);
    const Interruption ignored;
    EXPECT_FALSE(handlesSignal());
    std::signal(SIGINT, SIG_DFL);
    const test::VolumeBuilder volume;
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"scan", "--volume", volume.root()}, {"inspect", "."}}) {
        Interruption interruption;
        EXPECT_TRUE(handlesSignal());
        std::ostringstream out, err;
        const Console console{.out = out, .err = err, .endCancelling = [&] {
                                  // Too late to begin with, and yet not lost.
                                  std::raise(SIGINT);
                                  interruption.release();
                              }};
        EXPECT_EQ(run(arguments, console, interruption.token()), interrupted);
        EXPECT_FALSE(handlesSignal());
        EXPECT_EQ(out.str() + err.str(), "");
    }
    std::signal(SIGINT, old);
}

TEST(Delivery, TextIsCutByColumnsBetweenCharacters) {
    EXPECT_EQ(clipped("Bassgrübchen", 12), "Bassgrübchen");
    EXPECT_EQ(clipped("Bassgrübchen", 8), "Bassgrü…");
    EXPECT_EQ(clipped("日本語", 5), "日本…");
    EXPECT_EQ(clipped("日本語", 4), "日…");
}

} // namespace
} // namespace veridane::cli
