# Run by CPack behind the making of a package. Its archives list files in the order in which the
# disk does, which differs from machine to machine.
if(CPACK_GENERATOR STREQUAL "TGZ" AND DEFINED ENV{SOURCE_DATE_EPOCH})
    cmake_path(GET CPACK_TEMPORARY_INSTALL_DIRECTORY PARENT_PATH folder)
    cmake_path(GET CPACK_TEMPORARY_INSTALL_DIRECTORY FILENAME name)
    execute_process(
        COMMAND tar --create --sort=name --format=ustar --owner=0 --group=0 --numeric-owner
            "--use-compress-program=gzip -9n" "--file=${CPACK_PACKAGE_FILES}"
            "--directory=${folder}" "${name}"
        COMMAND_ERROR_IS_FATAL ANY)
endif()
