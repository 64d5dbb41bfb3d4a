# The module as users install it: a .mod file and a folder beside it, for a folder of MAYA_MODULE_PATH.
#
#   TarnwickEditor2.mod
#   TarnwickEditor2/plug-ins/TarnwickEditor2.so
#   TarnwickEditor2/docs/       README.md (how to install), guide.md and its pictures
#   TarnwickEditor2/licenses/

# Nothing of the host and the build machine may get in: this names files, never whole folders.
install(TARGETS TarnwickEditor2 LIBRARY DESTINATION TarnwickEditor2/plug-ins)

configure_file("${CMAKE_SOURCE_DIR}/src/plugin/TarnwickEditor2.mod.in"
  "${CMAKE_BINARY_DIR}/TarnwickEditor2.mod" @ONLY NEWLINE_STYLE UNIX)
install(FILES "${CMAKE_BINARY_DIR}/TarnwickEditor2.mod" DESTINATION .)

if(MAYA_DEVKIT)
  set(TE2_BUILT_AGAINST "the host's development kit, API version ${MAYA_KIT_API_VERSION}")
else()
  set(TE2_BUILT_AGAINST "the stand-in host (`tarnwick-host`), for trying the module there")
endif()
configure_file("${CMAKE_SOURCE_DIR}/docs/module.md.in" "${CMAKE_BINARY_DIR}/docs/README.md"
  @ONLY NEWLINE_STYLE UNIX)
file(GLOB pictures "${CMAKE_SOURCE_DIR}/docs/images/*.png")
install(FILES "${CMAKE_BINARY_DIR}/docs/README.md" "${CMAKE_SOURCE_DIR}/docs/guide.md"
  DESTINATION TarnwickEditor2/docs)
install(FILES ${pictures} DESTINATION TarnwickEditor2/docs/images)

file(GLOB licences "${CMAKE_SOURCE_DIR}/licenses/*.txt")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  "${CMAKE_SOURCE_DIR}/docs/images" "${CMAKE_SOURCE_DIR}/licenses")
install(FILES "${CMAKE_SOURCE_DIR}/LICENSE" ${licences} DESTINATION TarnwickEditor2/licenses)

set(CPACK_PACKAGE_NAME TarnwickEditor2)
set(CPACK_PACKAGE_VENDOR Quenholt)
set(CPACK_PACKAGE_FILE_NAME "TarnwickEditor2-${PROJECT_VERSION}-maya2024-linux")
set(CPACK_RESOURCE_FILE_LICENSE "${CMAKE_SOURCE_DIR}/LICENSE")
set(CPACK_GENERATOR TGZ ZIP)
# The archive's content is dropped into a modules folder as it is.
set(CPACK_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)

# The archives in build/package; unlike the target "package" without building all the rest.
add_custom_target(te2_package
  COMMAND "${CMAKE_CPACK_COMMAND}" --config "${CMAKE_BINARY_DIR}/CPackConfig.cmake"
    -B "${CMAKE_SOURCE_DIR}/build/package"
  COMMENT "Packing the module" VERBATIM)
add_dependencies(te2_package TarnwickEditor2)
