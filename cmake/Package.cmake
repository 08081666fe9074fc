# A Debian package of everything that is installed: cpack, or make package. What a distribution wants beside that goes
# into the package alone.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vellumark)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "Tarvo <support@tarvo.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://vellumark.example)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "fill relational databases with test data and remove it again")
set(CPACK_PACKAGE_DESCRIPTION
    "Vellumark reads the tables, columns and foreign keys of a database. You say how
many rows to make and how each column's value comes about, and it writes SQL
for one of several database systems, delimited text, or goes straight into a
database. Rows respect data types, uniqueness and foreign keys.

The package holds the desktop program and vellumark-cli for scripts. Databases
other than embedded ones are reached through ODBC drivers.")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                                WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION database)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS xdg-utils)
set(CPACK_DEBIAN_PACKAGE_SUGGESTS
    "odbc-postgresql, odbc-mariadb, tdsodbc, libsqliteodbc, unixodbc, sqlite3, qt6-wayland")
set(CPACK_COMPONENTS_ALL Unspecified debian)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_DEB_COMPONENT_INSTALL ON)

string(TIMESTAMP PACKAGE_MOMENT "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file(packaging/debian/changelog.in ${made}/changelog.Debian @ONLY)
configure_file(CHANGELOG.md ${made}/changelog COPYONLY)
add_compressed(${made}/changelog.Debian)
add_compressed(${made}/changelog)
install(FILES packaging/debian/copyright ${made}/changelog.gz ${made}/changelog.Debian.gz DESTINATION
        ${CMAKE_INSTALL_DOCDIR} COMPONENT debian EXCLUDE_FROM_ALL)
include(CPack)
