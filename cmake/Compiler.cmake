# What every target of the project is compiled with.
add_library(veridane_options INTERFACE)
target_compile_options(veridane_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wno-missing-field-initializers -Werror
    $<$<COMPILE_LANGUAGE:CXX>:-Wconversion>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Optimising, g++ 12 sees overlapping copies in any `"text" + string`, and reads of the unset
    # value in any copied std::optional<std::string>; there are none. Clang checks both as well.
    target_compile_options(veridane_options INTERFACE -Wno-restrict -Wno-maybe-uninitialized)
endif()
target_include_directories(veridane_options INTERFACE "${PROJECT_SOURCE_DIR}/src")

if(VERIDANE_SANITIZERS)
    add_compile_options(-fsanitize=${VERIDANE_SANITIZERS} -fno-omit-frame-pointer
        -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${VERIDANE_SANITIZERS})
endif()
if(VERIDANE_BUILD_FUZZERS)
    # Coverage counters in our own code are what lead the fuzzer to new inputs.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# veridane_library(<folder> <library>...): one static library for a folder of src/, linked to just
# the libraries below it, so that the linker keeps the layers apart as well.
function(veridane_library name)
    file(GLOB sources CONFIGURE_DEPENDS "${CMAKE_CURRENT_SOURCE_DIR}/${name}/*.cpp")
    list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
    add_library(veridane_${name} STATIC ${sources})
    target_link_libraries(veridane_${name} PUBLIC veridane_options ${ARGN})
endfunction()
