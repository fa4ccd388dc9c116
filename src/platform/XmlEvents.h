#pragma once

#include <memory>
#include <optional>
#include <string_view>

namespace veridane {

/// The attributes of one start tag. Good only while that tag is being reported.
class XmlAttributes {
public:
    /// Names and values in turn, a null pointer behind the last.
    explicit XmlAttributes(const char* const* namesAndValues) : m_namesAndValues(namesAndValues) {}

    /// The value with its references resolved; nothing unless the tag has this attribute.
    [[nodiscard]] std::optional<std::string_view> value(std::string_view name) const;

private:
    const char* const* m_namesAndValues;
};

/// Told what stands in a document, in its order. Names come as they are written, with their
/// prefix; every text is UTF-8 and good only during the call.
class XmlHandler {
public:
    virtual ~XmlHandler() = default;

    virtual void startElement(std::string_view name, const XmlAttributes& attributes) = 0;
    /// A piece of a text; where a text is cut says nothing. CDATA sections, comments and
    /// processing instructions are left out.
    virtual void characters(std::string_view text) = 0;
    virtual void endElement(std::string_view name) = 0;
};

/// Reads one XML document that arrives in pieces, and holds no more of it than the tag or comment
/// that is not at its end yet. Nothing that the document refers to is ever loaded, and one that
/// declares entities is unreadable. For one thread at a time.
class XmlReader {
public:
    /// The handler must outlive the reader. Events may come some thousand bytes late.
    explicit XmlReader(XmlHandler& handler);
    ~XmlReader();
    XmlReader(const XmlReader&) = delete;
    XmlReader& operator=(const XmlReader&) = delete;

    /// Once the document is known to be unreadable, what follows is passed over.
    void feed(std::string_view piece);

    /// Says that nothing more comes. Whether all of it was one well-formed document.
    [[nodiscard]] bool finish();

private:
    class Parser;
    std::unique_ptr<Parser> m_parser;
};

} // namespace veridane
