# Compiler settings shared by every target, and the few helpers that the folders use.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
set(CMAKE_AUTOGEN_PARALLEL 2)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()
# Line tables are what a back trace needs; full debug information doubles the build.
set(CMAKE_CXX_FLAGS_DEBUG "-O0 -g1")

# One place for everything that can be started or loaded, so that run paths are short.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/lib")

find_program(TE2_CCACHE ccache)
if(TE2_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # The build folders of one work tree share their cache.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND};-E;env;CCACHE_BASEDIR=${CMAKE_SOURCE_DIR};CCACHE_NOHASHDIR=1;CCACHE_SLOPPINESS=pch_defines,time_macros;${TE2_CCACHE}")
endif()

add_library(te2_flags INTERFACE)
target_compile_options(te2_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Woverloaded-virtual -Wnon-virtual-dtor
  $<$<BOOL:${TE2_WARNINGS_AS_ERRORS}>:-Werror>)
target_compile_definitions(te2_flags INTERFACE
  QT_NO_KEYWORDS QT_NO_FOREACH QT_NO_NARROWING_CONVERSIONS_IN_CONNECT QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
if(TE2_SANITIZE)
  target_compile_options(te2_flags INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer)
  target_link_options(te2_flags INTERFACE -fsanitize=address,undefined)
elseif(TE2_SANITIZE_THREADS)
  target_compile_options(te2_flags INTERFACE -fsanitize=thread)
  target_link_options(te2_flags INTERFACE -fsanitize=thread)
  target_compile_definitions(te2_flags INTERFACE TE2_SANITIZE_THREADS)
endif()
if(TE2_FUZZ)
  # Any fault ends the run. Unoptimised code would be too slow to get anywhere.
  target_compile_options(te2_flags INTERFACE -O1 -fsanitize=fuzzer-no-link,address,undefined
    -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(te2_flags INTERFACE -fsanitize=address,undefined)
endif()

# Product code names the encoding of every literal; tests may be briefer.
add_library(te2_strict_flags INTERFACE)
target_link_libraries(te2_strict_flags INTERFACE te2_flags)
target_compile_definitions(te2_strict_flags INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)

# No string of the plug-in may point into its file when the module is gone.
set(TE2_OWNED_LITERALS "${CMAKE_SOURCE_DIR}/src/plugin/OwnedLiterals.h")
add_library(te2_module_flags INTERFACE)
if(NOT TE2_PRECOMPILE) # else they begin with it
  target_compile_options(te2_module_flags INTERFACE "SHELL:-include ${TE2_OWNED_LITERALS}")
endif()

# The toolkit's headers are most of what there is to compile. With TE2_PRECOMPILE they are compiled
# once for each group of targets that have the same flags. Not by default: it hides what a file
# forgot to include.
function(te2_add_precompiled group)
  cmake_parse_arguments(ARG "" "" "HEADERS;LINKS" ${ARGN})
  if(TE2_PRECOMPILE AND NOT TARGET te2_headers_${group})
    add_library(te2_headers_${group} OBJECT "${CMAKE_SOURCE_DIR}/cmake/Precompiled.cpp")
    target_link_libraries(te2_headers_${group} PRIVATE ${ARG_LINKS})
    target_precompile_headers(te2_headers_${group} PRIVATE ${ARG_HEADERS})
    set_target_properties(te2_headers_${group} PROPERTIES AUTOMOC OFF AUTORCC OFF)
  endif()
endfunction()

# te2_use_precompiled(<target> <group>)
function(te2_use_precompiled target group)
  if(TE2_PRECOMPILE)
    target_precompile_headers(${target} REUSE_FROM te2_headers_${group})
    # Lets the compiler's cache see through them.
    target_compile_options(${target} PRIVATE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
  endif()
endfunction()

# te2_add_host_library(<name> SOURCES ... LINKS ...): one of the host's shared libraries.
function(te2_add_host_library name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} SHARED ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/host")
  target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE te2_strict_flags)
  if(Qt5::Widgets IN_LIST ARG_LINKS)
    te2_add_precompiled(host_widgets HEADERS <QtWidgets> LINKS Qt5::Widgets te2_strict_flags)
    te2_use_precompiled(${name} host_widgets)
  elseif(ARG_LINKS)
    te2_add_precompiled(host_core HEADERS <QtCore> LINKS Qt5::Core te2_strict_flags)
    te2_use_precompiled(${name} host_core)
  endif()
endfunction()

# te2_add_folder(<name> SOURCES ...): one object library of the plug-in. The folders call each
# other both ways, which static libraries cannot do without naming each other in circles.
function(te2_add_folder name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_library(te2_${name} OBJECT ${ARG_SOURCES})
  target_include_directories(te2_${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
  # Hidden inline statics do not become unique symbols, and so the module can be unloaded.
  set_target_properties(te2_${name} PROPERTIES CXX_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  target_link_libraries(te2_${name} PUBLIC Qt5::Widgets maya_api ${ARG_LINKS}
    PRIVATE te2_strict_flags te2_module_flags)
  if(ARG_SOURCES MATCHES "\\.cpp")
    te2_add_precompiled(product HEADERS "${TE2_OWNED_LITERALS}" <QtWidgets>
      LINKS Qt5::Widgets te2_strict_flags te2_module_flags)
    te2_use_precompiled(te2_${name} product)
  endif()
  set_property(GLOBAL APPEND PROPERTY TE2_FOLDERS te2_${name})
endfunction()

# te2_set_test_environment(<test>): no screen, and what the toolkit keeps is no leak. The longest take
# half a minute under a sanitizer, and several times that beside a build.
function(te2_set_test_environment test)
  set_tests_properties(${test} PROPERTIES TIMEOUT 300
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;TE2_BUILD_DIR=${CMAKE_BINARY_DIR};UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1;LSAN_OPTIONS=print_suppressions=0:suppressions=${CMAKE_SOURCE_DIR}/tests/support/lsan.supp;TSAN_OPTIONS=second_deadlock_stack=1:suppressions=${CMAKE_SOURCE_DIR}/tests/support/tsan.supp")
endfunction()

# Each test program has all of the plug-in in it, and the usual linker takes three times as long.
find_program(TE2_FAST_LINKER ld.gold)

# te2_add_test(<program> CLASSES A B SOURCES ... LINKS ... [THREADS A ...]): one Qt Test program per
# subsystem; each class is an entry of its own in the test list and runs in a process of its own.
# THREADS names the classes that the thread sanitizer watches, too.
function(te2_add_test name)
  cmake_parse_arguments(ARG "" "" "CLASSES;SOURCES;LINKS;THREADS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests")
  target_compile_definitions(${name} PRIVATE "TEST_DATA_DIR=\"${CMAKE_CURRENT_SOURCE_DIR}/data\"")
  target_link_libraries(${name} PRIVATE test_support ${ARG_LINKS} Qt5::Test te2_flags)
  if(TE2_FAST_LINKER)
    target_link_options(${name} PRIVATE -fuse-ld=gold)
  endif()
  if(TE2_PRECOMPILE)
    te2_use_precompiled(${name} tests)
    # Nearly always empty, since the classes include their own.
    set_property(SOURCE "${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/mocs_compilation.cpp"
      PROPERTY SKIP_PRECOMPILE_HEADERS ON)
  endif()
  foreach(class IN LISTS ARG_CLASSES)
    add_test(NAME ${name}.${class} COMMAND ${name} ${class})
    te2_set_test_environment(${name}.${class})
  endforeach()
  if(ARG_THREADS)
    list(TRANSFORM ARG_THREADS PREPEND "${name}.")
    set_tests_properties(${ARG_THREADS} PROPERTIES LABELS threads)
    if(NOT TARGET te2_thread_tests)
      add_custom_target(te2_thread_tests)
    endif()
    add_dependencies(te2_thread_tests ${name})
  endif()
endfunction()
