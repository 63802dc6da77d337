# The Debian packages, one for each component. ./package makes them.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_OUTPUT_FILE_PREFIX ${CMAKE_BINARY_DIR}/packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_COMPONENTS_ALL program scenario development)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEB_COMPONENT_INSTALL ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME koru-counting)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION misc)
set(CPACK_COMPONENT_PROGRAM_DESCRIPTION
    "count the goods of a store and register the differences
The staff of a store count their goods up to three times, a confirmer accepts
a count, the program compares it with the book stock of the receipts and
dispatches, and registration writes the documents that correct the difference.
.
All windows are in Persian, from right to left, and work from the keyboard
alone. The data is in one SQLite file, or in a database on SQL Server through
ODBC.")
# Not linked, and so not found by dpkg-shlibdeps: the Persian texts of Qt's own buttons, a font with Persian letters that
# are readable on forms, and the driver for SQL Server.
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS "fonts-dejavu-core, qt6-translations-l10n")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS "tdsodbc")
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SUGGESTS "koru-counting-scenario")

set(CPACK_DEBIAN_SCENARIO_PACKAGE_NAME koru-counting-scenario)
set(CPACK_DEBIAN_SCENARIO_PACKAGE_SECTION misc)
set(CPACK_COMPONENT_SCENARIO_DESCRIPTION
    "run scenarios of koru-counting
A scenario is a text file that describes what a user does step by step, and
what the forms, messages, statements and tables of koru-counting must then be.
This package has the program that runs them, on the forms or on the windows,
and the scenarios of a counting's life cycle.")
set(CPACK_DEBIAN_SCENARIO_PACKAGE_DEPENDS "koru-counting (= ${PROJECT_VERSION})")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkoru-counting-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "embed koru-counting in another program
Headers, static libraries and the CMake package KoruCounting, with one target
for each part: the stock-taking component alone, its embedded database, its
connection to SQL Server, and its windows as a Qt widget.")
set(depends "koru-counting (= ${PROJECT_VERSION})" libsqlite3-dev libxlsxwriter-dev libzip-dev qt6-base-dev unixodbc-dev
    zlib1g-dev)
if(KORU_FLOOR)
  list(APPEND depends libgnutls28-dev libmicrohttpd-dev libqrencode-dev)
endif()
list(JOIN depends ", " CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS)

include(CPack)
