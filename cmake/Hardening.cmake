# What is made to be installed is compiled as Debian hardens its own programs. Where its tool is
# missing, as on other systems, the compiler's defaults have to do.
if(NOT VERIDANE_HARDENING)
    return()
endif()
find_program(VERIDANE_DPKG_BUILDFLAGS dpkg-buildflags)
if(VERIDANE_DPKG_BUILDFLAGS)
    # veridane_debian_flags(<result> <variable>...): without what the build type sets, and without
    # Debian's own mapping of paths, which no space may stand in.
    function(veridane_debian_flags result)
        set(all "")
        foreach(variable IN LISTS ARGN)
            execute_process(
                COMMAND "${CMAKE_COMMAND}" -E env --unset=${variable} --unset=DEB_BUILD_OPTIONS
                    "DEB_BUILD_MAINT_OPTIONS=hardening=+all reproducible=-fixfilepath,-fixdebugpath"
                    "${VERIDANE_DPKG_BUILDFLAGS}" --get ${variable}
                OUTPUT_VARIABLE text OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
            separate_arguments(flags UNIX_COMMAND "${text}")
            list(APPEND all ${flags})
        endforeach()
        list(FILTER all EXCLUDE REGEX "^-(g|O.)$")
        set(${result} "${all}" PARENT_SCOPE)
    endfunction()

    veridane_debian_flags(c_flags CFLAGS CPPFLAGS)
    veridane_debian_flags(cxx_flags CXXFLAGS CPPFLAGS)
    veridane_debian_flags(link_flags LDFLAGS)
    add_compile_options("$<$<COMPILE_LANGUAGE:C>:${c_flags}>"
        "$<$<COMPILE_LANGUAGE:CXX>:${cxx_flags}>")
    add_link_options(${link_flags})
else()
    message(STATUS "No dpkg-buildflags: built without Debian's hardening flags")
endif()

# Newer releases of Debian have this among their flags, and control-flow protection, which the
# linker drops in Debian 12 because the C library's start-up code is built without it.
include(CheckCXXCompilerFlag)
check_cxx_compiler_flag(-fstack-clash-protection VERIDANE_HAS_STACK_CLASH_PROTECTION)
if(VERIDANE_HAS_STACK_CLASH_PROTECTION)
    add_compile_options(-fstack-clash-protection)
endif()

# Nobody needs to know where this was built.
add_compile_options("-ffile-prefix-map=${PROJECT_SOURCE_DIR}=."
    "-ffile-prefix-map=${PROJECT_BINARY_DIR}=./build")
