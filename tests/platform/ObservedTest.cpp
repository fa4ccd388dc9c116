#include "platform/Observed.h"

#include "platform/SerialWorker.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace veridane {
namespace {

TEST(Observed, TellsOfChangesAloneAndForAsLongAsTheSubscriptionLives) {
    Observed<int> value(1);
    std::string told;
    std::optional<Subscription> subscription(
        value.observe([&] { told += std::to_string(value.get()); }));
    value.set(1);
    value.set(2);
    value.change([](int& number) { return ++number == 3; });
    value.change([](int&) { return false; });
    EXPECT_EQ(told, "23");
    subscription.reset();
    value.set(4);
    EXPECT_EQ(told, "23");
}

TEST(Observed, ObserversMayWriteLeaveAndComeWhileTheyAreTold) {
    Observed<int> value;
    std::string told;
    Subscription first, second, late;
    first = value.observe([&] {
        told += "first ";
        second = Subscription();
        if (value.get() == 1) {
            late = value.observe([&] { told += "late "; });
            value.set(2);
        }
    });
    second = value.observe([&] { told += "second "; });
    value.set(1);
    EXPECT_EQ(told, "first first late ");
}

TEST(Observed, AnObserverMayTakeTheValueAlong) {
    std::optional<Observed<int>> value(std::in_place);
    const Subscription first = value->observe([&] { value.reset(); });
    const Subscription second = value->observe([] {});
    value->set(1);
    EXPECT_FALSE(value);
}

TEST(SerialWorker, FinishesEverythingInOrderAndWhatIsPostedMeanwhile) {
    std::string ran;
    {
        SerialWorker worker;
        for (int i = 0; i < 100; ++i)
            worker.post([&, i] { ran += std::to_string(i % 10); });
        const auto postAtEnd = [&](void*) {
            worker.post([&] { ran += '!'; });
        };
        worker.post([held = std::shared_ptr<void>(nullptr, postAtEnd)] {});
    }
    EXPECT_EQ(ran.size(), 101u);
    EXPECT_TRUE(ran.starts_with("0123456789012") && ran.ends_with("789!")) << ran;
}

} // namespace
} // namespace veridane
