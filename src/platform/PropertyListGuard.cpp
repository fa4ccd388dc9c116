#include "platform/PropertyListGuard.h"

#include <algorithm>
#include <optional>
#include <vector>

namespace veridane::PropertyListGuard {
namespace {

// The property lists of bundles and launch services hold some hundred elements, five levels deep.
constexpr std::size_t maxDepth = 512;
constexpr std::uint64_t maxNodes = 100'000;
constexpr std::uint64_t maxUnfoldedBytes = std::uint64_t{16} << 20; // of texts and data
// Bytes that libplist may touch again and again where it takes quadratic time: some 0.4 s.
constexpr std::uint64_t maxRepeatedBytes = std::uint64_t{1} << 32;

/// Goes over the markup of an XML list once. It must never see fewer open elements than libplist
/// does, so whatever the two could read differently is refused.
class XmlScan {
public:
    explicit XmlScan(std::string_view text) : m_text(text) {}

    bool staysInBounds() {
        for (;;) {
            const auto start = m_text.find('<', m_position);
            if (start == std::string_view::npos)
                return true;
            m_position = start;
            if (!passMarkup())
                return false;
        }
    }

private:
    bool passMarkup() {
        const auto start = m_position;
        m_nodes += startsWith("</") ? 0 : 1;
        if (m_nodes > maxNodes)
            return false;
        if (startsWith("<!--"))
            return pass("<!--", "-->").has_value();
        if (startsWith("<![CDATA["))
            return pass("<![CDATA[", "]]>").has_value();
        if (startsWith("<?")) // "<?>" is whole for libplist
            return passQuoting("<", "?>").has_value();
        if (startsWith("<!")) {
            // Entities that a document declares itself can multiply.
            const auto declaration = passQuoting("<!", ">");
            return declaration && declaration->find('[') == std::string_view::npos;
        }
        const auto tag = passQuoting("<", ">");
        // libplist reads a name up to a zero, but skips as many bytes as stood there at first.
        if (!tag || tag->find('\0') != std::string_view::npos)
            return false;
        const auto text = m_text.substr(m_textStart, start - m_textStart);
        m_textStart = m_position;
        const bool isKey =
            tag->starts_with("/key") || (tag->starts_with("key") && tag->ends_with('/'));
        return countText(text, isKey) && countDepth(*tag);
    }

    bool startsWith(std::string_view opening) const {
        return m_text.substr(m_position).starts_with(opening);
    }

    /// Moves behind the closing mark and gives what stands between the two.
    std::optional<std::string_view> pass(std::string_view opening, std::string_view closing) {
        const auto begin = m_position + opening.size();
        const auto end = m_text.find(closing, begin);
        if (end == std::string_view::npos)
            return std::nullopt;
        m_position = end + closing.size();
        return m_text.substr(begin, end - begin);
    }

    /// The same where libplist looks for the closing mark behind double quotes only. One inside of
    /// quotes serves no honest purpose.
    std::optional<std::string_view> passQuoting(std::string_view opening,
                                                std::string_view closing) {
        const auto content = pass(opening, closing);
        if (!content || std::ranges::count(*content, '"') % 2 != 0)
            return std::nullopt;
        return content;
    }

    /// libplist moves the whole text at each entity in it, and compares a key with all before it
    /// in its dictionary when their hashes agree.
    bool countText(std::string_view text, bool isKey) {
        constexpr std::uint64_t bytesOfAComparison = 64; // its cost, however short the keys are
        const auto entities = static_cast<std::uint64_t>(std::ranges::count(text, '&'));
        m_repeatedBytes += entities * text.size();
        if (isKey)
            m_repeatedBytes += m_dictionaries.back().keys++ * (bytesOfAComparison + text.size());
        return m_repeatedBytes <= maxRepeatedBytes;
    }

    bool countDepth(std::string_view tag) {
        if (tag.starts_with('/')) {
            if (m_dictionaries.size() > 1 && m_dictionaries.back().depth == m_depth)
                m_dictionaries.pop_back();
            return m_depth-- > 0;
        }
        m_depth += tag.ends_with('/') ? 0 : 1;
        // Spelled in any other way, the keys of a dictionary count for the one around it.
        if (tag == "dict")
            m_dictionaries.push_back({m_depth});
        return m_depth <= maxDepth;
    }

    struct OpenDictionary {
        std::size_t depth;
        std::uint64_t keys = 0;
    };

    std::string_view m_text;
    std::size_t m_position = 0;
    std::size_t m_textStart = 0; // behind the last tag; comments do not end a text
    std::size_t m_depth = 0;
    std::uint64_t m_nodes = 0;
    std::vector<OpenDictionary> m_dictionaries = {{0}}; // never empty
    std::uint64_t m_repeatedBytes = 0;
};

constexpr std::uint64_t headerSize = 8;
constexpr std::uint64_t trailerSize = 32;

/// What the upper half of an object's first byte says.
enum ObjectKind : std::uint8_t {
    integerKind = 0x1,
    dataKind = 0x4,
    asciiKind = 0x5,
    utf16Kind = 0x6,
    arrayKind = 0xA,
    orderedSetKind = 0xB,
    setKind = 0xC,
    dictionaryKind = 0xD,
};

std::uint64_t number(ByteView bytes) {
    std::uint64_t value = 0;
    for (const std::uint8_t byte : bytes.bytes())
        value = value << 8 | byte;
    return value;
}

/// Follows a binary list from its root as libplist does, an object as often as it is named. The
/// bounds make that cheap, and end a cycle as well.
class BinaryWalk {
public:
    explicit BinaryWalk(ByteView bytes) : m_bytes(bytes) {}

    bool staysInBounds() {
        if (!readTrailer() || !enter(m_root, false))
            return false;
        while (!m_open.empty()) {
            auto& list = m_open.back();
            const auto reference =
                list.references.slice(list.next * m_referenceSize, m_referenceSize);
            if (!reference) {
                m_open.pop_back();
                continue;
            }
            const bool isKey = list.next < list.keys;
            ++list.next;
            if (!enter(number(*reference), isKey))
                return false;
        }
        return true;
    }

private:
    struct OpenList {
        ByteView references; // those of a dictionary's keys come first
        std::uint64_t keys;
        std::uint64_t next = 0;
    };

    struct Object {
        std::uint8_t kind;
        std::uint64_t count;
        ByteView content; // all that follows
    };

    bool readTrailer() {
        if (m_bytes.size() < headerSize + trailerSize)
            return false;
        const auto trailerStart = m_bytes.size() - trailerSize;
        const auto field = [&](std::uint64_t offset, std::uint64_t size) {
            return number(m_bytes.slice(trailerStart + offset, size).value_or(ByteView()));
        };
        const auto offsetSize = field(6, 1);
        m_referenceSize = field(7, 1);
        const auto objectCount = field(8, 8);
        m_root = field(16, 8);
        const auto tableStart = field(24, 8);
        if (offsetSize < 1 || offsetSize > 8 || m_referenceSize < 1 || m_referenceSize > 8)
            return false;
        // Each object of an honest list is a node, so that there are no more of them.
        if (objectCount > maxNodes || tableStart > trailerStart)
            return false;
        m_offsetSize = offsetSize;
        const auto table = m_bytes.slice(tableStart, objectCount * offsetSize);
        if (!table || table->size() > trailerStart - tableStart)
            return false;
        m_offsets = *table;
        m_objects = m_bytes.slice(0, tableStart).value_or(ByteView());
        return true;
    }

    std::optional<Object> object(std::uint64_t index) const {
        if (index >= m_offsets.size() / m_offsetSize)
            return std::nullopt;
        const auto offset = m_offsets.slice(index * m_offsetSize, m_offsetSize);
        const auto bytes = m_objects.from(number(offset.value_or(ByteView())));
        const auto marker = bytes.slice(0, 1);
        if (!marker)
            return std::nullopt;
        const auto byte = static_cast<std::uint8_t>(number(*marker));
        return Object{static_cast<std::uint8_t>(byte >> 4), byte & 0xFU, bytes.from(1)};
    }

    /// A count above 14 stands in an integer object of its own in front of the content.
    static bool readLongCount(Object& object) {
        constexpr std::uint64_t longCount = 0xF;
        if (object.count != longCount)
            return true;
        const auto marker = number(object.content.slice(0, 1).value_or(ByteView()));
        const auto power = marker & 0xF;
        if (marker >> 4 != integerKind || power > 3)
            return false;
        const auto size = std::uint64_t{1} << power;
        const auto count = object.content.slice(1, size);
        if (!count)
            return false;
        object.count = number(*count);
        object.content = object.content.from(1 + size);
        return true;
    }

    bool enter(std::uint64_t index, bool isKey) {
        auto found = object(index);
        if (!found || ++m_nodes > maxNodes)
            return false;
        if (isKey && found->kind != asciiKind && found->kind != utf16Kind)
            return false;
        switch (found->kind) {
        case dataKind:
        case asciiKind:
            return readLongCount(*found) && countBytes(*found, 1);
        case utf16Kind:
            return readLongCount(*found) && countBytes(*found, 2);
        case arrayKind:
        case orderedSetKind:
        case setKind:
            return readLongCount(*found) && open(*found, 0);
        case dictionaryKind:
            return readLongCount(*found) && open(*found, found->count);
        default:
            return true; // numbers, dates and the like: nothing in them grows
        }
    }

    bool countBytes(const Object& object, std::uint64_t unitSize) {
        if (object.count > object.content.size() / unitSize)
            return false;
        m_unfoldedBytes += object.count * unitSize;
        return m_unfoldedBytes <= maxUnfoldedBytes;
    }

    bool open(const Object& object, std::uint64_t keys) {
        // Held against the bound first, so that the product below cannot wrap.
        if (object.count > maxNodes || m_open.size() >= maxDepth)
            return false;
        const auto references = object.content.slice(0, (object.count + keys) * m_referenceSize);
        if (!references)
            return false;
        m_open.push_back({*references, keys});
        return true;
    }

    ByteView m_bytes;
    ByteView m_objects;
    ByteView m_offsets;
    std::uint64_t m_offsetSize = 1;
    std::uint64_t m_referenceSize = 1;
    std::uint64_t m_root = 0;
    std::vector<OpenList> m_open;
    std::uint64_t m_nodes = 0;
    std::uint64_t m_unfoldedBytes = 0;
};

} // namespace

bool allowsXml(std::string_view text) {
    return XmlScan(text).staysInBounds();
}

bool allowsBinary(ByteView bytes) {
    return BinaryWalk(bytes).staysInBounds();
}

} // namespace veridane::PropertyListGuard
