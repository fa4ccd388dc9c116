#include "platform/Digest.h"
#include "platform/PercentEncoding.h"
#include "platform/UserDirectories.h"
#include "support/VolumeTest.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

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

TEST(PercentEncoding, WhatStaysDependsOnThePlace) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte)
        bytes += static_cast<char>(byte);
    const std::string letters =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~";
    for (const auto& [encoding, others] :
         {std::pair(PercentEncoding::fileName, ""),
          std::pair(PercentEncoding::urlQuery, "!$&'()*+,;=:@/?")}) {
        const std::string staying = letters + others;
        EXPECT_EQ(percentEncoded(staying, encoding), staying);
        EXPECT_EQ(percentEncoded(bytes, encoding).size(), 3 * 256 - 2 * staying.size());
    }
    EXPECT_EQ(percentEncoded("ä %/", PercentEncoding::fileName), "%C3%A4%20%25%2F");
}

TEST(Digest, OfThePublishedExample) {
    EXPECT_EQ(sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

} // namespace
} // namespace veridane::test
