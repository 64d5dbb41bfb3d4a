# Builds the plug-in against the vendor's development kit: its headers stand in <kit>/include, its
# libraries in <kit>/lib or in the installed host's lib folder.

find_path(MAYA_INCLUDE_DIR maya/MFnPlugin.h HINTS "${MAYA_DEVKIT}/include" REQUIRED NO_DEFAULT_PATH)

add_library(maya_api INTERFACE)
target_include_directories(maya_api SYSTEM INTERFACE "${MAYA_INCLUDE_DIR}")
target_compile_definitions(maya_api INTERFACE REQUIRE_IOSTREAM _BOOL LINUX LINUX_64)

foreach(library Foundation OpenMaya OpenMayaUI)
  find_library(MAYA_${library}_LIBRARY ${library}
    HINTS "${MAYA_DEVKIT}/lib" "$ENV{MAYA_LOCATION}/lib" /usr/autodesk/maya2024/lib
    REQUIRED NO_DEFAULT_PATH)
  target_link_libraries(maya_api INTERFACE "${MAYA_${library}_LIBRARY}")
endforeach()
