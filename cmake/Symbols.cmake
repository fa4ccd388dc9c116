set(VERIDANE_PACKAGE_ICONS /usr/share/bootstrap-icons/svg CACHE PATH
    "Folder of the SVG files of bootstrap-icons")

# veridane_add_symbols(<target>): embeds the picture of every symbol as `:/symbols/<name>.svg`, and
# the pictures of program and maker as `:/brand/<name>.svg`. Whatever links the target, a static
# library as well, has them in it.
function(veridane_add_symbols target)
    set(folder "${PROJECT_SOURCE_DIR}/resources/symbols")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${folder}/package.txt")
    file(GLOB files CONFIGURE_DEPENDS "${folder}/*.svg")
    foreach(file IN LISTS files)
        cmake_path(GET file FILENAME name)
        set_source_files_properties("${file}" PROPERTIES QT_RESOURCE_ALIAS "symbols/${name}")
    endforeach()

    file(STRINGS "${folder}/package.txt" lines REGEX "^[^#]")
    foreach(line IN LISTS lines)
        if(NOT line MATCHES "^([^ ]+) +([^ ]+)$")
            message(FATAL_ERROR "${folder}/package.txt: no pair of names: ${line}")
        endif()
        set(name "${CMAKE_MATCH_1}")
        set(file "${VERIDANE_PACKAGE_ICONS}/${CMAKE_MATCH_2}.svg")
        if(NOT EXISTS "${file}")
            message(FATAL_ERROR "The picture of the symbol ${name} is missing: ${file}. "
                "Install bootstrap-icons (scripts/setup), or set VERIDANE_PACKAGE_ICONS.")
        endif()
        if(file IN_LIST files OR EXISTS "${folder}/${name}.svg")
            message(FATAL_ERROR "${folder}/package.txt: ${line}: used a second time")
        endif()
        set_source_files_properties("${file}" PROPERTIES QT_RESOURCE_ALIAS "symbols/${name}.svg")
        list(APPEND files "${file}")
    endforeach()

    # The first format: later ones hold the files' dates, which differ between checkouts.
    set(format OPTIONS --format-version 1)
    qt6_add_resources(${target} symbols PREFIX / FILES ${files} ${format})
    file(GLOB pictures CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/resources/brand/*.svg")
    qt6_add_resources(${target} brand PREFIX / BASE "${PROJECT_SOURCE_DIR}/resources"
        FILES ${pictures} ${format})
endfunction()
