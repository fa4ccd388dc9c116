#include "platform/Digest.h"
#include "platform/Environment.h"
#include "platform/PercentEncoding.h"
#include "platform/UserDirectories.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <utility>

namespace veridane::test {
namespace {

TEST(UserDirectories, AnAbsoluteVariableComesFirstAndTheUserListLast) {
    const std::string listed = ::getpwuid(::getuid())->pw_dir;
    const struct {
        const char *data, *home;
        std::string expected;
    } cases[] = {
        {"/data", "/home/a", "/data"},
        {"data", "/home/a", "/home/a/.local/share"},
        {"", "a", listed + "/.local/share"},
        {nullptr, nullptr, listed + "/.local/share"},
    };
    const auto set = [](const char* name, const char* value) {
        value ? ::setenv(name, value, 1) : ::unsetenv(name);
    };
    for (const auto& c : cases) {
        set("XDG_DATA_HOME", c.data);
        set("HOME", c.home);
        EXPECT_EQ(userDataDirectory(), c.expected);
    }
}

TEST(Environment, AServiceIsWhatItsVariableHoldsWithoutSlashesAtTheEnd) {
    const std::pair<const char*, const char*> cases[] = {{"http://[::1]:80", "http://[::1]:80"},
                                                         {"http://a//", "http://a"},
                                                         {"", "https://built.in"}};
    for (const auto& [value, service] : cases) {
        ::setenv("VERIDANE_TRIED", value, 1);
        EXPECT_EQ(Environment::service("VERIDANE_TRIED", "https://built.in"), service);
    }
}

TEST(PercentEncoding, WhatStaysDependsOnThePlace) {
    // Of letters and digits the first and the last, and what stands beside them in ASCII.
    const std::string bytes("-._~/09:@AZ[`az{ !$&'()*+,;=?#%\"\0\xFF", 34);
    EXPECT_EQ(percentEncoded(bytes, PercentEncoding::fileName),
              "-._~%2F09%3A%40AZ%5B%60az%7B%20%21%24%26%27%28%29%2A%2B%2C%3B%3D%3F%23%25%22%00%FF");
    EXPECT_EQ(percentEncoded(bytes, PercentEncoding::urlQuery),
              "-._~/09:@AZ%5B%60az%7B%20!$&'()*+,;=?%23%25%22%00%FF");
}

TEST(Digest, OfThePublishedExample) {
    EXPECT_EQ(sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

} // namespace
} // namespace veridane::test
