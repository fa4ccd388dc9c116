#include "platform/XmlEvents.h"

#include <gtest/gtest.h>

#include <string>

namespace veridane {
namespace {

using namespace std::string_literals;

/// Writes down what it is told, a text as one however it was cut.
class Recorder : public XmlHandler {
public:
    std::string events;

private:
    void startElement(std::string_view name, const XmlAttributes& attributes) override {
        events.append("<").append(name);
        if (const auto value = attributes.value("x:a"))
            events.append(" ").append(*value);
        events += ">";
    }
    void characters(std::string_view text) override { events += text; }
    void endElement(std::string_view) override { events += "/"; }
};

std::string read(std::string_view document, std::size_t pieceSize = 1'000) {
    Recorder recorder;
    XmlReader reader(recorder);
    for (; !document.empty(); document.remove_prefix(std::min(pieceSize, document.size())))
        reader.feed(document.substr(0, pieceSize));
    return reader.finish() ? recorder.events : "unreadable";
}

std::string declared(const std::string& encoding, const std::string& text) {
    return "<?xml version='1.0' encoding='" + encoding + "'?><r>" + text + "</r>";
}

TEST(XmlEvents, TellInUtf8WhatStandsInAWellFormedDocument) {
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"names as written", "<x:r b='' x:a='&lt;1&#233;'><R/></x:r>", "<x:r <1\u00E9><R>//"},
        {"CDATA, comment, instruction", "<r>1<![CDATA[9]]>2<!-- 9 -->3<?p 9?>4</r>", "<r>1234/"},
        {"a document type elsewhere", "<!DOCTYPE r PUBLIC '-//A' '/etc/passwd'><r>&n;1</r>",
         "<r>1/"},
        {"other declarations", "<!DOCTYPE r [<!ELEMENT r ANY><!ATTLIST r x:a CDATA '1'>]><r/>",
         "<r 1>/"},
        {"an entity", "<!DOCTYPE r [<!ENTITY e '1'>]><r/>", "unreadable"},
        {"an external entity", "<!DOCTYPE r [<!ENTITY e SYSTEM '/etc/passwd'>]><r/>", "unreadable"},
        {"an unknown entity", "<r>&nbsp;</r>", "unreadable"},
        {"nothing", "", "unreadable"},
        {"broken off in a tag", "<r/><!--", "unreadable"},
        {"a byte order mark", "\xFE\xFF\0<\0r\0>\x20\xAC\0<\0/\0r\0>"s, "<r>\u20AC/"},
        {"UTF-8 misspelt", declared("UTF8", "\u20AC\U0001F600"), "<r>\u20AC\U0001F600/"},
        {"one byte each", declared("ISO-8859-15", "\xA4"), "<r>\u20AC/"},
        {"one byte each, but not like ASCII", declared("IBM037", ""), "unreadable"},
        {"more bytes each", declared("Shift_JIS", ""), "unreadable"},
        {"no encoding at all", declared("no-such-set", ""), "unreadable"},
        {"not the encoding it should be", "<r>\xE9</r>", "unreadable"},
    };
    for (const auto& [what, document, events] : cases)
        EXPECT_EQ(read(document), events) << what;
}

TEST(XmlEvents, DoNotDependOnWhereADocumentIsCut) {
    const std::string sample = "<r x:a='1&amp;2'>\u20AC\r\n&lt;<b/><!-- c --><![CDATA[]]]]>3</r>";
    const std::string events = read(sample);
    // Expat is given 16 KB at a time, however small the pieces are.
    for (std::size_t cut = 0; cut <= sample.size(); ++cut)
        EXPECT_EQ(read(std::string(16 * 1024 - cut, ' ') + sample), events) << cut;
    EXPECT_EQ(read(sample, 1), events);
}

TEST(XmlEvents, ComeFromATagOfSomeMegabytesInSmallPieces) {
    const std::string text(3'000'000, '1');
    EXPECT_EQ(read("<r x:a='" + text + "'><!--" + text + "-->2</r>"), "<r " + text + ">2/");
}

TEST(XmlEvents, StopWhereADocumentWouldTakeTooMuchMemoryOrTime) {
    std::string open, close, elements, attributes, declarations;
    for (int i = 0; i < 10'000; ++i) {
        const std::string name = "name" + std::to_string(i);
        open += i < 1'000 ? "<r>" : "";
        close += i < 1'000 ? "</r>" : "";
        elements += "<" + name + "/>";
        attributes += name + "='' ";
        declarations += i < 201 ? name + " CDATA '' " : "";
    }
    EXPECT_NE(read(open + close), "unreadable");
    EXPECT_EQ(read(open + "<r/>" + close), "unreadable");
    EXPECT_EQ(read("<r>" + elements + "</r>"), "unreadable");
    EXPECT_EQ(read("<r " + attributes + "/>"), "unreadable");
    EXPECT_EQ(read("<!DOCTYPE r [<!ATTLIST r " + declarations + ">]><r/>"), "unreadable");
}

} // namespace
} // namespace veridane
