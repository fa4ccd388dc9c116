# Run by CPack with what goes into a package laid out in a folder.
if(CPACK_GENERATOR STREQUAL "DEB")
    set(share "${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}/share")
    file(COPY "${CPACK_VERIDANE_DEBIAN_CHANGELOG}" DESTINATION "${share}/doc/veridane")
    file(MAKE_DIRECTORY "${share}/lintian/overrides")
    file(COPY_FILE "${CPACK_VERIDANE_LINTIAN_OVERRIDES}" "${share}/lintian/overrides/veridane")
endif()

# The time of the commit in place of the build's, so that the same commit gives the same package.
if(DEFINED ENV{SOURCE_DATE_EPOCH})
    execute_process(
        COMMAND find "${CPACK_TEMPORARY_INSTALL_DIRECTORY}" -exec
            touch --no-dereference "--date=@$ENV{SOURCE_DATE_EPOCH}" {} +
        COMMAND_ERROR_IS_FATAL ANY)
endif()
