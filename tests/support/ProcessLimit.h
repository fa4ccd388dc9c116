#pragma once

#include <gtest/gtest.h>
#include <sys/resource.h>

namespace veridane::test {

/// While it lives, this process may use less of a resource, such as RLIMIT_NOFILE.
class ProcessLimit {
public:
    ProcessLimit(decltype(RLIMIT_NOFILE) resource, rlim_t limit) : m_resource(resource) {
        EXPECT_EQ(::getrlimit(resource, &m_before), 0);
        const rlimit lower{limit, m_before.rlim_max};
        EXPECT_EQ(::setrlimit(resource, &lower), 0);
    }
    ~ProcessLimit() { EXPECT_EQ(::setrlimit(m_resource, &m_before), 0); }
    ProcessLimit(const ProcessLimit&) = delete;
    ProcessLimit& operator=(const ProcessLimit&) = delete;

private:
    decltype(RLIMIT_NOFILE) m_resource;
    rlimit m_before{};
};

} // namespace veridane::test
