# Builds the plug-in against the vendor's development kit: its headers stand in <kit>/include, its
# libraries in <kit>/lib or in the installed host's lib folder.

set(kit_help "\nDEVKIT_LOCATION (for the preset \"devkit\") or -DMAYA_DEVKIT=<dir> names the kit's root, the "
  "folder that holds include/maya. Leave both away to build against the stand-in host.")
string(CONCAT kit_help ${kit_help})

get_filename_component(kit "${MAYA_DEVKIT}" ABSOLUTE)
if(MAYA_DEVKIT STREQUAL "/")
  message(FATAL_ERROR "DEVKIT_LOCATION is not set.${kit_help}")
endif()
if(NOT IS_DIRECTORY "${kit}")
  message(FATAL_ERROR "There is no development kit in \"${kit}\": no such folder.${kit_help}")
endif()
foreach(header MFnPlugin.h MTypes.h MQtUtil.h)
  if(NOT EXISTS "${kit}/include/maya/${header}")
    message(FATAL_ERROR "There is no development kit in \"${kit}\": include/maya/${header} is missing.${kit_help}")
  endif()
endforeach()

# Releases do not load each other's plug-ins, so that a wrong kit is better noticed here.
set(release 2024)
file(STRINGS "${kit}/include/maya/MTypes.h" version REGEX "^[ \t]*#[ \t]*define[ \t]+MAYA_API_VERSION[ \t]+[0-9]+")
if(version MATCHES "MAYA_API_VERSION[ \t]+([0-9]+)")
  set(MAYA_KIT_API_VERSION "${CMAKE_MATCH_1}")
else()
  message(FATAL_ERROR "\"${kit}/include/maya/MTypes.h\" does not say which MAYA_API_VERSION it is for.")
endif()
if(NOT MAYA_KIT_API_VERSION MATCHES "^${release}[0-9][0-9][0-9][0-9]$")
  message(FATAL_ERROR "The kit in \"${kit}\" is for API version ${MAYA_KIT_API_VERSION}; this plug-in is made for "
    "${release} (${release}0000 and its updates).")
endif()

add_library(maya_api INTERFACE)
target_include_directories(maya_api SYSTEM INTERFACE "${kit}/include")
target_compile_definitions(maya_api INTERFACE REQUIRE_IOSTREAM _BOOL LINUX LINUX_64)

set(MAYA_LIBRARY_FOLDERS "${kit}/lib")
if(DEFINED ENV{MAYA_LOCATION})
  list(APPEND MAYA_LIBRARY_FOLDERS "$ENV{MAYA_LOCATION}/lib")
endif()
list(APPEND MAYA_LIBRARY_FOLDERS "/usr/autodesk/maya${release}/lib")
foreach(library Foundation OpenMaya OpenMayaUI)
  # Not from the cache: the next kit has other ones.
  find_library(found ${library} PATHS ${MAYA_LIBRARY_FOLDERS} NO_DEFAULT_PATH NO_CACHE)
  if(NOT found)
    list(JOIN MAYA_LIBRARY_FOLDERS ", " folders)
    message(FATAL_ERROR "lib${library}.so is in none of: ${folders}.\nWhere the kit has no libraries, "
      "MAYA_LOCATION names the folder of the installed host.")
  endif()
  target_link_libraries(maya_api INTERFACE "${found}")
  unset(found)
endforeach()
message(STATUS "Development kit: ${kit}, API version ${MAYA_KIT_API_VERSION}")
