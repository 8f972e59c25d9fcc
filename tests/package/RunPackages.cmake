# cmake -DBUILD_DIR=... -DCONSUMER_SOURCE_DIR=... -DWORK_DIR=... -DQMAKE=... -DQT_MAJOR_VERSION=5|6
#       -P RunPackages.cmake
#
# Builds the Debian packages of the build, unpacks them into a scratch root
# (dpkg -x: no root rights, nothing installed on the machine) and builds the
# consumer against the unpacked files three ways, as hosts do: CMake's
# find_package, qmake with pkg-config, and a plain Makefile with pkg-config.
file(REMOVE_RECURSE ${WORK_DIR})
set(root ${WORK_DIR}/root)
file(MAKE_DIRECTORY ${root})

function(run)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "failed (${result}): ${ARGN}")
    endif()
endfunction()

set(config_args)
if(CONFIG)
    set(config_args -C ${CONFIG})
endif()
run(${CMAKE_CPACK_COMMAND} -G DEB -B ${WORK_DIR}/packages ${config_args}
    --config ${BUILD_DIR}/CPackConfig.cmake)
file(GLOB packages ${WORK_DIR}/packages/*.deb)
list(LENGTH packages count)
if(NOT count EQUAL 3)
    message(FATAL_ERROR "expected three packages, got: ${packages}")
endif()
foreach(package ${packages})
    run(dpkg-deb -x ${package} ${root})
endforeach()

# Debian's own checks of a package: names, sonames, control files, the
# files every package carries, manual pages.
find_program(LINTIAN lintian)
if(LINTIAN)
    run(${LINTIAN} --fail-on error,warning --tag-display-limit 0 ${packages})
else()
    message(WARNING "lintian not found: the packages are not checked against Debian's rules")
endif()
# The dependencies computed from the binaries name packages and versions
# that this system's archive has: apt resolves them without installing.
find_program(APT_GET apt-get)
if(APT_GET)
    run(${APT_GET} install --simulate --quiet=2 ${packages})
endif()

if(QT_MAJOR_VERSION EQUAL 6)
    set(suffix -qt6)
    set(include_dir /usr/include/kamo-qt6/kamo_tools)
else()
    set(suffix "")
    set(include_dir /usr/include/kamo_tools)
endif()
file(GLOB_RECURSE pc_files ${root}/usr/*/kamo_tools${suffix}.pc)
list(GET pc_files 0 pc_file)
get_filename_component(pc_dir ${pc_file} DIRECTORY)
get_filename_component(lib_dir ${pc_dir} DIRECTORY)
set(ENV{PKG_CONFIG_PATH} ${pc_dir})
set(ENV{LD_LIBRARY_PATH} ${lib_dir})

# The pkg-config files name the packages' prefix, so the paths they give
# are the plain ones of an installed system...
execute_process(COMMAND pkg-config --cflags kamo_tools${suffix} OUTPUT_VARIABLE cflags)
if(NOT cflags MATCHES "(^| )-I${include_dir} ")
    message(FATAL_ERROR "pkg-config --cflags kamo_tools${suffix} does not name ${include_dir}: ${cflags}")
endif()
# ...which pkg-config itself moves into the scratch root; qmake's calls of
# pkg-config inherit the setting. It moves Qt's paths as well, so the root
# gets Qt's headers (the machine's) as a system with the development
# package installed has them through its dependency.
execute_process(COMMAND pkg-config --variable=includedir Qt${QT_MAJOR_VERSION}Core
    OUTPUT_VARIABLE qt_include_dir OUTPUT_STRIP_TRAILING_WHITESPACE)
if(NOT IS_DIRECTORY "${qt_include_dir}")
    message(FATAL_ERROR "pkg-config finds no headers of Qt${QT_MAJOR_VERSION}Core")
endif()
get_filename_component(qt_include_parent ${root}${qt_include_dir} DIRECTORY)
file(MAKE_DIRECTORY ${qt_include_parent})
file(CREATE_LINK ${qt_include_dir} ${root}${qt_include_dir} SYMBOLIC)
set(ENV{PKG_CONFIG_SYSROOT_DIR} ${root})

# The installed program runs from the unpacked tree.
run(${root}/usr/bin/kamo-tools --help OUTPUT_QUIET)

# CMake
run(${CMAKE_COMMAND} -S ${CONSUMER_SOURCE_DIR} -B ${WORK_DIR}/cmake
    -DCMAKE_PREFIX_PATH=${root}/usr -DCMAKE_BUILD_TYPE=Release -DQT_MAJOR_VERSION=${QT_MAJOR_VERSION})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/cmake --parallel 2 --target consumer)
run(${WORK_DIR}/cmake/consumer)

# qmake
file(MAKE_DIRECTORY ${WORK_DIR}/qmake)
run(${QMAKE} ${CONSUMER_SOURCE_DIR}/consumer.pro -o ${WORK_DIR}/qmake/Makefile)
run(make -C ${WORK_DIR}/qmake)
run(${WORK_DIR}/qmake/consumer)

# make
file(MAKE_DIRECTORY ${WORK_DIR}/make)
run(make -C ${CONSUMER_SOURCE_DIR} OUT=${WORK_DIR}/make KAMO=kamo_tools${suffix})
run(${WORK_DIR}/make/consumer)
