#include "coordination/StatusFilter.h"

#include <gtest/gtest.h>

namespace veridane {
namespace {

TEST(StatusFilter, EachUrgencyIsInOneGroup) {
    for (int value = 0; value < urgencyCount; ++value) {
        const Urgency urgency = *urgencyFromRawValue(value);
        const int groups = passes(urgency, StatusFilter::needsAttention) +
                           passes(urgency, StatusFilter::switchToNative) +
                           passes(urgency, StatusFilter::ready) +
                           passes(urgency, StatusFilter::notRelevant);
        EXPECT_EQ(groups, 1) << value;
        EXPECT_EQ(passes(urgency, StatusFilter::needsAttention), needsAttention(urgency)) << value;
    }
}

} // namespace
} // namespace veridane
