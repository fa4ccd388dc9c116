#include "model/JsonForms.h"

#include "model/RecordFields.h"
#include "platform/Text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace veridane::json {
namespace {

bool isPlain(char c) {
    return c >= ' ' && c <= '~' && c != '"' && c != '\\';
}

/// Appends values to a text, each in its form.
class Writer {
public:
    explicit Writer(std::string& text) : m_text(text) {}

    void write(bool value) { m_text += value ? "true" : "false"; }
    void write(std::int64_t value) { m_text += std::to_string(value); }
    void write(const Uuid& value) { quoted(value.text()); }
    void write(Date value) { quoted(formatISO8601(value)); }

    void write(const std::string& value) {
        if (std::ranges::all_of(value, isPlain))
            return quoted(value);
        // Text is valid by contract. Where it is not, a damaged name is better than no cache.
        escaped(text::validUtf8(value));
    }

    template <typename Enumeration>
    requires requires(Enumeration value) { rawString(value); }
    void write(Enumeration value) { quoted(rawString(value)); }

    template <typename T>
    void write(const std::vector<T>& list) {
        m_text += '[';
        for (const T& element : list) {
            if (&element != &list.front())
                m_text += ',';
            write(element);
        }
        m_text += ']';
    }

    void write(const UpdateCheckResult& result) {
        const UpdateResultForm& form = updateResultForms[static_cast<std::size_t>(result.kind)];
        m_text += '{';
        key(form.name);
        m_text += '{';
        if (form.payloadKey) {
            key(form.payloadKey);
            write(result.payload);
        }
        m_text += "}}";
    }

    void write(const Record auto& record) {
        char separator = '{';
        visitFields(record, [&](const char* name, const auto& value) {
            if (const auto* present = ifPresent(value)) {
                m_text += separator;
                key(name);
                write(*present);
                separator = ',';
            }
        });
        m_text += '}';
    }

private:
    template <typename T>
    static const T* ifPresent(const T& value) {
        return &value;
    }
    template <typename T>
    static const T* ifPresent(const std::optional<T>& value) {
        return value ? &*value : nullptr;
    }

    void key(const char* name) {
        quoted(name);
        m_text += ':';
    }

    void quoted(std::string_view plain) {
        m_text += '"';
        m_text += plain;
        m_text += '"';
    }

    void escaped(std::string_view value) {
        m_text += '"';
        for (const char c : value) {
            if (c == '"' || c == '\\')
                m_text += '\\';
            if (static_cast<unsigned char>(c) < ' ')
                control(c);
            else
                m_text += c;
        }
        m_text += '"';
    }

    void control(char c) {
        constexpr std::string_view digits = "0123456789abcdef";
        m_text += "\\u00";
        m_text += digits[static_cast<unsigned char>(c) >> 4];
        m_text += digits[static_cast<unsigned char>(c) & 15];
    }

    std::string& m_text;
};

} // namespace

std::string snapshotText(const CachedScanSnapshot& snapshot) {
    std::string text;
    Writer(text).write(snapshot);
    return text;
}

} // namespace veridane::json
