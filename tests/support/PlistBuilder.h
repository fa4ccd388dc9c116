#pragma once

#include "support/Bytes.h"

#include <memory>
#include <string>
#include <vector>

/// Property lists for tests: {{"Label", "org.example.x"}, {"ProgramArguments", PlistList{"/x"}}}.
namespace veridane::test {

class PlistValue;
struct PlistEntry;
using PlistList = std::vector<PlistValue>;
using PlistDictionary = std::vector<PlistEntry>; // in the order of writing

class PlistValue {
public:
    PlistValue(const char* text);
    PlistValue(const std::string& text) : PlistValue(text.c_str()) {}
    PlistValue(int number);
    PlistValue(bool flag);
    PlistValue(const PlistList& list);
    PlistValue(const PlistDictionary& dictionary);

    [[nodiscard]] void* node() const { return m_node.get(); }

private:
    std::shared_ptr<void> m_node; // the library's
};

struct PlistEntry {
    std::string key;
    PlistValue value;
};

enum class PlistForm { xml, binary };

/// A whole property list file with any kind of value at its root.
[[nodiscard]] Bytes plistFile(const PlistValue& root, PlistForm form = PlistForm::xml);

} // namespace veridane::test
