# What `cmake --install` puts where. Everything besides the programs is made from resources/install.
include(GNUInstallDirs)
find_program(VERIDANE_GZIP gzip REQUIRED)
set(VERIDANE_ZSH_COMPLETIONS "${CMAKE_INSTALL_DATADIR}/zsh/site-functions" CACHE STRING
    "Where the zsh finds completions, below the prefix")
set(VERIDANE_APPLICATION_ID "com.mirefold.Veridane") # of desktop entry, pictures and windows

# veridane_releases(<list> <latest>): the releases for the metainfo, and the date of this version's,
# from the headings `## 1.0 (2026-11-23)` of the changelog.
function(veridane_releases list_variable date_variable)
    set(changelog "${PROJECT_SOURCE_DIR}/CHANGELOG.md")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${changelog}")
    set(heading "^## ([0-9.]+) \\(([0-9]+-[0-9][0-9]-[0-9][0-9])\\)$")
    file(STRINGS "${changelog}" lines REGEX "${heading}" ENCODING UTF-8)
    set(releases "")
    set(date "")
    foreach(line IN LISTS lines)
        string(REGEX MATCH "${heading}" line "${line}")
        string(APPEND releases
            "    <release version=\"${CMAKE_MATCH_1}\" date=\"${CMAKE_MATCH_2}\"/>\n")
        if(CMAKE_MATCH_1 STREQUAL PROJECT_VERSION)
            set(date "${CMAKE_MATCH_2}")
        endif()
    endforeach()
    if(NOT date)
        message(FATAL_ERROR "CHANGELOG.md has no heading \"## ${PROJECT_VERSION} (<date>)\"")
    endif()
    set(${list_variable} "${releases}" PARENT_SCOPE)
    set(${date_variable} "${date}" PARENT_SCOPE)
endfunction()
veridane_releases(VERIDANE_RELEASES VERIDANE_RELEASE_DATE)

set(sources "${PROJECT_SOURCE_DIR}/resources/install")
set(made "${PROJECT_BINARY_DIR}/install")
set(made_files "")

# veridane_compressed(<file> <result>): the file as gzip, with neither its name nor its date in it.
function(veridane_compressed file result)
    set(compressed "${made}/${result}")
    cmake_path(GET compressed PARENT_PATH folder)
    file(MAKE_DIRECTORY "${folder}")
    add_custom_command(OUTPUT "${compressed}" DEPENDS "${file}" VERBATIM
        COMMAND "${VERIDANE_GZIP}" -9nc "${file}" > "${compressed}")
    list(APPEND made_files "${compressed}")
    set(made_files "${made_files}" PARENT_SCOPE)
endfunction()

install(TARGETS veridane veridane-cli RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")

install(FILES "${sources}/${VERIDANE_APPLICATION_ID}.desktop"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
configure_file("${sources}/${VERIDANE_APPLICATION_ID}.metainfo.xml.in"
    "${made}/${VERIDANE_APPLICATION_ID}.metainfo.xml" @ONLY)
install(FILES "${made}/${VERIDANE_APPLICATION_ID}.metainfo.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")

set(icon "${PROJECT_SOURCE_DIR}/resources/brand/veridane-icon.svg")
install(FILES "${icon}" RENAME "${VERIDANE_APPLICATION_ID}.svg"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")
foreach(size IN ITEMS 16 22 24 32 48 64 128 256 512)
    set(picture "${made}/icon-${size}.png")
    add_custom_command(OUTPUT "${picture}" DEPENDS "${icon}" veridane-icon VERBATIM
        COMMAND veridane-icon "${icon}" ${size} "${picture}")
    list(APPEND made_files "${picture}")
    install(FILES "${picture}" RENAME "${VERIDANE_APPLICATION_ID}.png"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps")
endforeach()

foreach(page IN ITEMS veridane.1 veridane-cli.1 de/veridane.1 de/veridane-cli.1)
    configure_file("${sources}/man/${page}.in" "${made}/man/${page}" @ONLY)
    veridane_compressed("${made}/man/${page}" "man/${page}.gz")
    cmake_path(GET page PARENT_PATH language)
    cmake_path(SET folder NORMALIZE "${CMAKE_INSTALL_MANDIR}/${language}/man1")
    install(FILES "${made}/man/${page}.gz" DESTINATION "${folder}")
endforeach()

set(completions "${sources}/completions")
foreach(program IN ITEMS veridane veridane-cli)
    # The bash looks for a file that is called like the program; one completes both.
    install(FILES "${completions}/veridane.bash" RENAME "${program}"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/bash-completion/completions")
    install(FILES "${completions}/${program}.fish"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d")
endforeach()
install(FILES "${completions}/_veridane" DESTINATION "${VERIDANE_ZSH_COMPLETIONS}")

veridane_compressed("${PROJECT_SOURCE_DIR}/CHANGELOG.md" changelog.gz)
install(FILES "${sources}/copyright" "${made}/changelog.gz"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/veridane")

add_custom_target(veridane-install-files ALL DEPENDS ${made_files})
