#include "platform/XmlEvents.h"

#include <gtest/gtest.h>

#include <string>

namespace veridane {
namespace {

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

std::string repeated(std::string_view text, int count) {
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

TEST(XmlEvents, TellWhatStandsInAWellFormedDocument) {
    const struct {
        const char* what;
        std::string_view document, events;
    } cases[] = {
        {"names as written", "<x:r b='' x:a='&lt;1&#233;'><R/></x:r>", "<x:r <1\u00E9><R>//"},
        {"CDATA, comment, instruction", "<r>1<![CDATA[9]]>2<!-- 9 -->3<?p 9?>4</r>", "<r>1234/"},
        {"a document type elsewhere", "<!DOCTYPE r PUBLIC '-//A' '/etc/passwd'><r>&n;1</r>",
         "<r>1/"},
        {"other declarations", "<!DOCTYPE r [<!ELEMENT r ANY><!ATTLIST r x:a CDATA '1'>]><r/>",
         "<r 1>/"},
        {"an entity", "<!DOCTYPE r [<!ENTITY e '1'>]><r/>", "unreadable"},
        {"an external entity", "<!DOCTYPE r [<!ENTITY e SYSTEM '/etc/passwd'>]><r/>", "unreadable"},
        {"a parameter entity", "<!DOCTYPE r [<!ENTITY % e '1'>]><r/>", "unreadable"},
        {"an unknown entity", "<r>&nbsp;</r>", "unreadable"},
        {"nothing", "", "unreadable"},
        {"blanks", " \n", "unreadable"},
        {"not XML", "{\"r\": 1}", "unreadable"},
        {"broken off", "<r><a/>", "unreadable"},
        {"broken off in a tag", "<r/><!--", "unreadable"},
        {"crossed tags", "<r><a></r></a>", "unreadable"},
        {"more behind the end", "<r/><r/>", "unreadable"},
        {"not the encoding it should be", "<r>\xE9</r>", "unreadable"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(read(c.document), c.events) << c.what;
}

TEST(XmlEvents, AreUtf8InEveryEncodingOfADocument) {
    const auto declared = [](const std::string& encoding, const std::string& text) {
        return "<?xml version='1.0' encoding='" + encoding + "'?><r>" + text + "</r>";
    };
    const auto wide = [](std::string_view text, bool isBigEndian) {
        std::string bytes;
        for (const char c : text)
            bytes += isBigEndian ? std::string{'\0', c} : std::string{c, '\0'};
        return bytes;
    };
    const struct {
        std::string document, text;
    } cases[] = {
        {declared("UTF-8", "\u20AC"), "\u20AC"},
        {"\xEF\xBB\xBF<r>\u20AC</r>", "\u20AC"},
        {"\xFF\xFE" + wide("<r>\xE9</r>", false), "\u00E9"},
        {"\xFE\xFF" + wide(declared("UTF-16", "\xE9"), true), "\u00E9"},
        {declared("us-ascii", "&#8364;"), "\u20AC"},
        {declared("ISO-8859-1", "\xE9"), "\u00E9"},
        {declared("ISO-8859-15", "\xA4"), "\u20AC"},
        {declared("windows-1252", "\x80"), "\u20AC"},
        {declared("KOI8-R", "\xC1"), "\u0430"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(read(c.document), "<r>" + c.text + "/") << c.document;
    for (const char* encoding : {"Shift_JIS", "UTF-7", "IBM037", "no-such-set"})
        EXPECT_EQ(read(declared(encoding, "1")), "unreadable") << encoding;
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
    const auto nested = [](int depth) {
        return repeated("<r>", depth) + repeated("</r>", depth);
    };
    EXPECT_EQ(read(nested(1'000)), repeated("<r>", 1'000) + repeated("/", 1'000));
    EXPECT_EQ(read(nested(1'001)), "unreadable");

    std::string elements, attributes, declarations;
    for (int i = 0; i < 10'000; ++i) {
        const std::string name = "name" + std::to_string(i);
        elements += "<" + name + "/>";
        attributes += name + "='' ";
        declarations += i < 201 ? name + " CDATA '' " : "";
    }
    EXPECT_EQ(read("<r>" + elements + "</r>"), "unreadable");
    EXPECT_EQ(read("<r " + attributes + "/>"), "unreadable");
    EXPECT_EQ(read("<!DOCTYPE r [<!ATTLIST r " + declarations + ">]><r/>"), "unreadable");
}

TEST(XmlEvents, AFaultIsToldAtOnceAndForGood) {
    Recorder recorder;
    XmlReader reader(recorder);
    EXPECT_TRUE(reader.feed("<r/>"));
    EXPECT_FALSE(reader.feed(std::string(20'000, '<')));
    EXPECT_FALSE(reader.feed(" "));
    EXPECT_FALSE(reader.finish());
}

} // namespace
} // namespace veridane
