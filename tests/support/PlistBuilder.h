#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

/// Property lists for tests: {{"Label", "org.example.x"}, {"ProgramArguments", PlistList{"/x"}}}.
namespace veridane::test {

using Bytes = std::vector<std::uint8_t>;

class PlistValue;
struct PlistEntry;
using PlistList = std::vector<PlistValue>;
using PlistDictionary = std::vector<PlistEntry>; // in the order of writing

class PlistValue {
public:
    PlistValue(const char* text);
    PlistValue(std::string text);
    PlistValue(int number);
    PlistValue(bool flag);
    PlistValue(PlistList list);
    PlistValue(PlistDictionary dictionary);

    [[nodiscard]] const auto& value() const { return m_value; }

private:
    std::variant<std::string, int, bool, PlistList, PlistDictionary> m_value;
};

struct PlistEntry {
    std::string key;
    PlistValue value;
};

enum class PlistForm { xml, binary };

/// A whole property list file with any kind of value at its root.
[[nodiscard]] Bytes plistFile(const PlistValue& root, PlistForm form = PlistForm::xml);

} // namespace veridane::test
