#include "platform/Path.h"

#include "platform/Text.h"

namespace veridane {
namespace {

void appendComponents(std::string& bytes, std::string_view components) {
    for (const char c : components) {
        if (c == '/' && bytes.back() == '/')
            continue;
        bytes += c;
    }
    if (bytes.size() > 1 && bytes.back() == '/')
        bytes.pop_back();
}

} // namespace

Path::Path(std::string_view bytes) : m_bytes("/") {
    m_bytes.reserve(bytes.size() + 1);
    appendComponents(m_bytes, bytes);
}

std::string Path::text() const {
    return text::validUtf8(m_bytes);
}

std::string_view Path::name() const {
    const std::string_view bytes = m_bytes;
    return bytes.size() == 1 ? bytes : bytes.substr(bytes.rfind('/') + 1);
}

std::string_view Path::extension() const {
    const std::string_view whole = name();
    const std::size_t dot = whole.rfind('.');
    if (dot == std::string_view::npos || dot == 0)
        return {};
    return whole.substr(dot + 1);
}

std::string_view Path::stem() const {
    const std::string_view whole = name();
    const std::size_t dot = whole.rfind('.');
    return dot == 0 ? whole : whole.substr(0, dot);
}

Path Path::operator/(std::string_view components) const {
    Path result;
    result.m_bytes.reserve(m_bytes.size() + 1 + components.size());
    result.m_bytes = m_bytes;
    if (result.m_bytes.back() != '/')
        result.m_bytes += '/';
    appendComponents(result.m_bytes, components);
    return result;
}

} // namespace veridane
