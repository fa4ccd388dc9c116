# The libraries of the project; scripts/setup installs them.
find_package(PkgConfig REQUIRED)
find_package(OpenSSL 3 REQUIRED COMPONENTS Crypto)
find_package(ICU REQUIRED COMPONENTS uc i18n)
find_package(nlohmann_json REQUIRED)
find_package(CLI11 REQUIRED)
find_package(Threads REQUIRED)
pkg_check_modules(libplist REQUIRED IMPORTED_TARGET libplist-2.0)
