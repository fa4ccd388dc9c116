#pragma once

#include "support/VolumeBuilder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace veridane::test {

using Texts = std::vector<std::string>;

/// A test with a volume of its own.
class VolumeTest : public ::testing::Test {
protected:
    VolumeBuilder volume;
};

/// What stands in a file of this machine.
inline std::string textOf(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace veridane::test
