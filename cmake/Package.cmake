# The Debian package and the relocatable archive that scripts/package makes; see docs/packaging.md.
set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME veridane)
set(CPACK_PACKAGE_VENDOR "Mirefold Software")
set(CPACK_PACKAGE_CONTACT "${CPACK_PACKAGE_VENDOR} <hallo@mirefold.example>")
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_FILE_NAME "veridane-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "find the software on a Mac that depends on Rosetta 2")
set(CPACK_PACKAGE_DESCRIPTION
"Rosetta 2 is Apple's translation layer for Intel code, available up to and
including macOS 27. Veridane examines the disk of a Mac, judges which
applications, plug-ins, extensions and command-line tools depend on it, and
asks for newer versions where it is told to. It only reads.
.
This package holds a window, veridane, and a program for terminals and
scripts, veridane-cli.")

# Libraries are found by themselves; with those of Qt come its plug-ins for X11 and SVG pictures.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The texts of the toolkit's own dialogs in German.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-translations-l10n")
# In this order: secure connections for update checks, the typefaces of the window, the theme that
# the icons belong to, windows without X11, and what opens links and folders.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ca-certificates, fonts-inter, fonts-jetbrains-mono, "
    "hicolor-icon-theme, qt6-wayland, xdg-utils")
list(JOIN CPACK_DEBIAN_PACKAGE_RECOMMENDS "" CPACK_DEBIAN_PACKAGE_RECOMMENDS)
# Tells of the desktop's light and dark appearance.
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "xdg-desktop-portal")

# Debian wants a changelog of the package itself.
find_program(VERIDANE_DATE date REQUIRED)
execute_process(
    COMMAND "${CMAKE_COMMAND}" -E env LC_ALL=C
        "${VERIDANE_DATE}" --utc --rfc-email "--date=${VERIDANE_RELEASE_DATE}"
    OUTPUT_VARIABLE VERIDANE_RELEASE_TIME OUTPUT_STRIP_TRAILING_WHITESPACE
    COMMAND_ERROR_IS_FATAL ANY)
configure_file(resources/install/changelog.Debian.in "${made}/changelog.Debian" @ONLY)
veridane_compressed("${made}/changelog.Debian" changelog.Debian.gz)
add_custom_target(veridane-package-files ALL DEPENDS "${made}/changelog.Debian.gz")

set(CPACK_VERIDANE_DEBIAN_CHANGELOG "${made}/changelog.Debian.gz")
set(CPACK_VERIDANE_LINTIAN_OVERRIDES "${sources}/lintian-overrides")
set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/FinishPackage.cmake")
set(CPACK_POST_BUILD_SCRIPTS "${PROJECT_SOURCE_DIR}/cmake/SortArchive.cmake")
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
