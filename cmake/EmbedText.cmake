# veridane_embed_text(<target> <file> <symbol>): makes the file's text available to the target as
# `extern const std::string_view veridane::<symbol>`, so that the programs need no data files.
function(veridane_embed_text target file symbol)
    set(output "${CMAKE_CURRENT_BINARY_DIR}/${symbol}.cpp")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    file(READ "${file}" bytes HEX)
    string(LENGTH "${bytes}" digits)
    math(EXPR size "${digits} / 2")
    # A list of characters and not a literal: the longest literal that compilers must take is short.
    string(REPEAT "[0-9a-f]" 32 line)
    string(REGEX REPLACE "(${line})" "\\1\n" characters "${bytes}")
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," characters "${characters}")
    file(CONFIGURE OUTPUT "${output}" CONTENT
"#include <string_view>

namespace veridane {
namespace {
constexpr char text[] = {
${characters}'\\0'};
}
extern const std::string_view ${symbol};
const std::string_view ${symbol}(text, ${size});
} // namespace veridane
")
    target_sources(${target} PRIVATE "${output}")
endfunction()
