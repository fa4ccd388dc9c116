#pragma once

#include "platform/ByteView.h"

#include <cstddef>
#include <optional>
#include <string>

namespace veridane {

/// One element of a BER encoding (ITU-T X.690). One that is missing or not as expected has no tag
/// and is empty, so that a chain of questions needs an answer only at its end.
struct BerElement {
    int tagClass = 0;
    int tag = -1;
    bool isConstructed = false;
    bool isIndefinite = false; // its end is marked and its length not given
    ByteView content;
    ByteView whole; // with tag, length and end marker

    explicit operator bool() const { return tag >= 0; }
    [[nodiscard]] bool isUniversal(int wanted) const;
    [[nodiscard]] bool isContext(int wanted) const;
};

/// Steps through elements that stand one behind the other. All readers of one encoding share a
/// budget of steps, so that hostile nesting ends soon.
class BerReader {
public:
    BerReader(ByteView bytes, int& budget) : m_rest(bytes), m_budget(&budget) {}

    /// Without a tag at the end, and where no whole element follows.
    BerElement next();

    /// The next element if it has this universal tag, such as V_ASN1_SEQUENCE; it is passed in any
    /// case.
    BerElement nextUniversal(int tag);

    /// A reader of what an element holds; of nothing for one that holds no elements.
    [[nodiscard]] BerReader in(const BerElement& element) const;

    /// The bytes of an octet string, which may come in pieces.
    [[nodiscard]] std::string octets(const BerElement& string, int depth = 0) const;

private:
    BerElement header(ByteView bytes);
    std::optional<std::size_t> sizeBeforeEnd(ByteView bytes);

    ByteView m_rest;
    int* m_budget;
};

} // namespace veridane
