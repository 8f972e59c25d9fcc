# Part of the install script: finishes the pkg-config file kamo_pc_template
# with the prefix being installed to and installs it into
# <prefix>/<kamo_pc_libdir>/pkgconfig.
#
# Each destination stages its file in a folder of its own: `cmake --install`
# and cpack may run from one build at the same time.
get_filename_component(kamo_pc_name ${kamo_pc_template} NAME_WLE)
get_filename_component(kamo_pc_stage ${kamo_pc_template} DIRECTORY)
string(SHA1 kamo_pc_destination "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}")
set(kamo_pc_stage ${kamo_pc_stage}/install-${kamo_pc_destination})
set(KAMO_PC_PREFIX ${CMAKE_INSTALL_PREFIX})
configure_file(${kamo_pc_template} ${kamo_pc_stage}/${kamo_pc_name} @ONLY)
file(INSTALL DESTINATION ${CMAKE_INSTALL_PREFIX}/${kamo_pc_libdir}/pkgconfig TYPE FILE
    FILES ${kamo_pc_stage}/${kamo_pc_name})
