#include "platform/XmlEvents.h"

#include "platform/Text.h"

#include <expat.h>
#include <unicode/ucnv.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <set>
#include <span>
#include <string>

namespace veridane {
namespace {

// Expat spends memory on each open element. Feeds have five levels, and a page in one some dozens.
constexpr int maxDepth = 1'000;
// Attributes that are declared with a value cost time at every element of that name.
constexpr int maxDeclaredAttributes = 200;
// Expat keeps all names and declared values to the end. A feed has some forty names.
constexpr std::size_t maxKeptBytes = 64 * 1024;
// Bytes that expat gets at once, and so about half of the longest tag or comment.
constexpr XML_Index minRoom = 16 * 1024;
constexpr XML_Index maxRoom = 32 * 1024 * 1024;

/// Fills in what each byte means in a character set that expat does not know itself: ISO-8859-15,
/// windows-1252, KOI8-R. Expat in turn refuses a set that is no superset of ASCII.
int describeEncoding(void*, const XML_Char* name, XML_Encoding* encoding) {
    UErrorCode error = U_ZERO_ERROR;
    const icu::LocalUConverterPointer converter(ucnv_open(name, &error));
    if (U_FAILURE(error) || ucnv_getMaxCharSize(converter.getAlias()) != 1)
        return XML_STATUS_ERROR;
    ucnv_setToUCallBack(converter.getAlias(), UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr,
                        &error);
    for (int i = 0; i < 256; ++i) {
        const char byte = static_cast<char>(i);
        const char* source = &byte;
        error = U_ZERO_ERROR;
        const UChar32 character =
            ucnv_getNextUChar(converter.getAlias(), &source, &byte + 1, &error);
        encoding->map[i] = U_SUCCESS(error) ? character : -1;
        ucnv_resetToUnicode(converter.getAlias());
    }
    return XML_STATUS_OK;
}

/// Some feeds write the name without its hyphen, which expat does not take for UTF-8.
bool isUtf8Misspelt(std::string_view start) {
    const std::string declaration = text::lowercased(start.substr(0, start.find("?>")));
    return declaration.starts_with("<?xml") &&
           (declaration.find("encoding=\"utf8\"") != std::string::npos ||
            declaration.find("encoding='utf8'") != std::string::npos);
}

struct FreeParser {
    void operator()(XML_Parser parser) const { XML_ParserFree(parser); }
};

} // namespace

class XmlReader::Parser {
public:
    explicit Parser(XmlHandler& handler) : m_handler(handler), m_expat(XML_ParserCreate(nullptr)) {
        if (m_expat)
            listen();
        else
            m_isUnreadable = true; // no memory
    }

    void feed(std::string_view piece) {
        while (!m_isUnreadable && !piece.empty() && makeRoom()) {
            const auto size = std::min(piece.size(), m_room.size() - m_filled);
            std::copy_n(piece.data(), size, m_room.data() + m_filled);
            m_filled += size;
            piece.remove_prefix(size);
            if (m_filled == m_room.size())
                parseRoom(/*isEnd=*/false);
        }
    }

    bool finish() {
        if (!m_isUnreadable && makeRoom())
            parseRoom(/*isEnd=*/true);
        return !m_isUnreadable;
    }

private:
    void listen() {
        XML_Parser expat = m_expat.get();
        XML_SetUserData(expat, this);
        XML_SetUnknownEncodingHandler(expat, describeEncoding, nullptr);
        XML_SetElementHandler(
            expat,
            [](void* self, const XML_Char* name, const XML_Char** attributes) {
                static_cast<Parser*>(self)->startElement(name, attributes);
            },
            [](void* self, const XML_Char* name) { static_cast<Parser*>(self)->endElement(name); });
        XML_SetCharacterDataHandler(expat, [](void* self, const XML_Char* text, int size) {
            static_cast<Parser*>(self)->characters({text, static_cast<std::size_t>(size)});
        });
        XML_SetCdataSectionHandler(
            expat, [](void* self) { static_cast<Parser*>(self)->m_isInCdata = true; },
            [](void* self) { static_cast<Parser*>(self)->m_isInCdata = false; });
        XML_SetEntityDeclHandler(expat, [](void* self, const XML_Char*, int, const XML_Char*, int,
                                           const XML_Char*, const XML_Char*, const XML_Char*,
                                           const XML_Char*) {
            static_cast<Parser*>(self)->refuse(); // it may unfold to any size
        });
        XML_SetAttlistDeclHandler(expat, [](void* self, const XML_Char*, const XML_Char* name,
                                            const XML_Char*, const XML_Char* value, int) {
            static_cast<Parser*>(self)->declareAttribute(name, value ? value : "");
        });
    }

    void declareAttribute(std::string_view name, std::string_view value) {
        keep(name.size() + value.size());
        if (++m_declaredAttributes > maxDeclaredAttributes)
            refuse();
    }

    void startElement(const XML_Char* name, const XML_Char** attributes) {
        if (++m_depth > maxDepth)
            refuse();
        report([&] {
            meet(name);
            // Behind those that the tag has itself come the declared ones.
            for (int i = 0; i < XML_GetSpecifiedAttributeCount(m_expat.get()); i += 2)
                meet(attributes[i]);
        });
        report([&] { m_handler.startElement(name, XmlAttributes(attributes)); });
    }

    void meet(std::string_view name) {
        if (m_names.contains(name))
            return;
        keep(name.size());
        if (!m_isUnreadable)
            m_names.emplace(name);
    }

    void keep(std::size_t bytes) {
        m_keptBytes += bytes;
        if (m_keptBytes > maxKeptBytes)
            refuse();
    }

    void characters(std::string_view text) {
        if (!m_isInCdata)
            report([&] { m_handler.characters(text); });
    }

    void endElement(const XML_Char* name) {
        --m_depth;
        report([&] { m_handler.endElement(name); });
    }

    /// An exception, which can only mean that there is no memory, must not pass through expat: its
    /// frames are those of a C library.
    template <typename Event>
    void report(Event event) {
        // The end of an empty element is still told after the parser was stopped at its start.
        if (m_isUnreadable)
            return;
        try {
            event();
        } catch (...) {
            refuse();
        }
    }

    void refuse() {
        m_isUnreadable = true;
        XML_StopParser(m_expat.get(), XML_FALSE);
    }

    /// Before version 2.6, expat reads a tag or comment that is not at its end yet anew from its
    /// beginning in each call, which for a long one in many pieces takes quadratic time. So it gets
    /// at least as many new bytes as the last call left over.
    bool makeRoom() {
        if (!m_room.empty())
            return true;
        const XML_Index leftOver = m_fed - XML_GetCurrentByteIndex(m_expat.get());
        const int size = static_cast<int>(std::clamp(leftOver, minRoom, maxRoom));
        void* room = leftOver <= maxRoom ? XML_GetBuffer(m_expat.get(), size) : nullptr;
        if (room)
            m_room = {static_cast<char*>(room), static_cast<std::size_t>(size)};
        else
            m_isUnreadable = true;
        return !m_isUnreadable;
    }

    void parseRoom(bool isEnd) {
        if (m_fed == 0 && isUtf8Misspelt({m_room.data(), m_filled}))
            XML_SetEncoding(m_expat.get(), "UTF-8");
        m_fed += static_cast<XML_Index>(m_filled);
        const auto status = XML_ParseBuffer(m_expat.get(), static_cast<int>(m_filled), isEnd);
        if (status != XML_STATUS_OK)
            m_isUnreadable = true;
        m_room = {};
        m_filled = 0;
    }

    XmlHandler& m_handler;
    std::unique_ptr<XML_ParserStruct, FreeParser> m_expat;
    std::span<char> m_room; // of expat's buffer; empty where none has been asked for
    std::size_t m_filled = 0;
    XML_Index m_fed = 0; // bytes that expat has been given
    std::set<std::string, std::less<>> m_names;
    std::size_t m_keptBytes = 0;
    int m_depth = 0; // open elements
    int m_declaredAttributes = 0;
    bool m_isInCdata = false;
    bool m_isUnreadable = false;
};

std::optional<std::string_view> XmlAttributes::value(std::string_view name) const {
    for (auto pair = m_namesAndValues; *pair; pair += 2)
        if (pair[0] == name)
            return pair[1];
    return std::nullopt;
}

XmlReader::XmlReader(XmlHandler& handler) : m_parser(std::make_unique<Parser>(handler)) {}
XmlReader::~XmlReader() = default;

void XmlReader::feed(std::string_view piece) {
    m_parser->feed(piece);
}

bool XmlReader::finish() {
    return m_parser->finish();
}

} // namespace veridane
