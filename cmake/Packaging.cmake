# Debian packages from one build: `cpack -G DEB` in the build folder gives
#   libkamo-tools<soversion>  the three shared libraries (translation embedded)
#   libkamo-tools-dev         headers, CMake package, pkg-config files
#   kamo-tools                the programs kamo-tools and kamo-host
# A Qt 6 build names them libkamo-tools-qt6-<soversion>, libkamo-tools-qt6-dev
# and kamo-tools-qt6. Its libraries install beside the Qt 5 ones; its
# programs are the same commands and replace the Qt 5 ones.
# Dependencies on other packages are computed from the binaries
# (dpkg-shlibdeps); the development package needs the runtime package of
# exactly its version.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kamo-tools${KAMO_QT_SUFFIX})
set(CPACK_PACKAGE_VENDOR "kamo_tools developers")
# Whoever builds and hands out the packages signs them; the default only
# keeps the fields well-formed.
set(KAMO_PACKAGE_MAINTAINER "kamo_tools developers <kamo-tools@example.org>"
    CACHE STRING "Maintainer of the Debian packages: Name <address>")
set(CPACK_PACKAGE_CONTACT "${KAMO_PACKAGE_MAINTAINER}")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
# The DEB generator stages through DESTDIR, so the install sees /usr, which
# the pkg-config files name. (A generator that stages under a prefix of its
# own instead would need CPACK_SET_DESTDIR and CPACK_INSTALL_PREFIX.)
set(CPACK_COMPONENTS_ALL runtime development programs)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Our own libraries, which dpkg-shlibdeps finds in no installed package.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/${CMAKE_INSTALL_LIBDIR})
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# Debug information stays in the build; packages carry the stripped code.
set(CPACK_STRIP_FILES ON)

# Debian's rule: a name that ends in a digit is followed by a hyphen.
if(KAMO_QT_SUFFIX)
    set(kamo_runtime_package libkamo-tools${KAMO_QT_SUFFIX}-${PROJECT_VERSION_MAJOR})
else()
    set(kamo_runtime_package libkamo-tools${PROJECT_VERSION_MAJOR})
endif()
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${kamo_runtime_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# A shlibs file, so that packages built against these libraries depend on
# this version or a later one of the same soname.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# ldconfig runs through dpkg's trigger, once for all packages installed
# together.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/cmake/debian/triggers)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "tools library for project-based geodata and document management hosts
The shared libraries kamo_tools, Kamo_view and Kamo_base: node tools over
annotation files, shape-file import, sheet geometry and a DXF workbench,
each a Qt dialog behind a facade that a host application calls, with
their German translation built in.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkamo-tools${KAMO_QT_SUFFIX}-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
if(QT_MAJOR_VERSION EQUAL 6)
    set(kamo_qt_dev_package "qt6-base-dev (>= ${KAMO_QT_MIN_VERSION})")
else()
    set(kamo_qt_dev_package "qtbase5-dev (>= ${KAMO_QT_MIN_VERSION})")
endif()
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${kamo_runtime_package} (= ${PROJECT_VERSION}), ${kamo_qt_dev_package}")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "tools library for geodata and document management hosts - development files
Headers, the CMake package ${KAMO_PACKAGE} (find_package(${KAMO_PACKAGE}))
and the pkg-config files kamo_tools${KAMO_QT_SUFFIX}, Kamo_view${KAMO_QT_SUFFIX}
and Kamo_base${KAMO_QT_SUFFIX} for hosts built with CMake, qmake, Meson or make.")

set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME kamo-tools${KAMO_QT_SUFFIX})
if(KAMO_QT_SUFFIX)
    set(CPACK_DEBIAN_PROGRAMS_PACKAGE_CONFLICTS kamo-tools)
    set(CPACK_DEBIAN_PROGRAMS_PACKAGE_REPLACES kamo-tools)
    set(CPACK_DEBIAN_PROGRAMS_PACKAGE_PROVIDES kamo-tools)
endif()
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION utils)
set(CPACK_COMPONENT_PROGRAMS_DEPENDS runtime)
set(CPACK_COMPONENT_PROGRAMS_DESCRIPTION
    "command-line node tools, shape import and DXF workbench, and a demo host
kamo-tools runs the library's node operations, shape-file import and DXF
listing and export from the command line; kamo-host is a small desktop
host that shows a project and opens the library's dialogs on it.")

# Every package carries its copyright file and the changelog, compressed as
# dpkg expects them (gzip -9n: the same bytes from every build).
set(kamo_debian_dir ${PROJECT_BINARY_DIR}/debian)
file(STRINGS ${PROJECT_SOURCE_DIR}/cmake/debian/changelog.in kamo_changelog_head LIMIT_COUNT 1)
if(NOT kamo_changelog_head MATCHES "^kamo-tools \\(${PROJECT_VERSION}\\) ")
    message(FATAL_ERROR "cmake/debian/changelog.in has no entry for version ${PROJECT_VERSION} at its top")
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/debian/changelog.in ${kamo_debian_dir}/changelog @ONLY)
configure_file(${PROJECT_SOURCE_DIR}/cmake/debian/copyright.in ${kamo_debian_dir}/copyright @ONLY)
execute_process(COMMAND gzip -9n -c ${kamo_debian_dir}/changelog
    OUTPUT_FILE ${kamo_debian_dir}/changelog.gz RESULT_VARIABLE kamo_gzip_result)
if(NOT kamo_gzip_result EQUAL 0)
    message(FATAL_ERROR "gzip failed on ${kamo_debian_dir}/changelog")
endif()
foreach(component runtime development programs)
    string(TOUPPER ${component} upper)
    install(FILES ${kamo_debian_dir}/copyright ${kamo_debian_dir}/changelog.gz
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/doc/${CPACK_DEBIAN_${upper}_PACKAGE_NAME}
        COMPONENT ${component})
endforeach()
# What lintian reports and is meant so, each with its reason in the file.
foreach(component runtime development)
    string(TOUPPER ${component} upper)
    set(overrides ${kamo_debian_dir}/lintian/${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
    configure_file(${PROJECT_SOURCE_DIR}/cmake/debian/lintian-overrides-${component}.in ${overrides} @ONLY)
    install(FILES ${overrides}
        DESTINATION ${CMAKE_INSTALL_DATAROOTDIR}/lintian/overrides COMPONENT ${component})
endforeach()

include(CPack)
