# The targets of the house: one function for the libraries, one for the test programs, one set of flags.

add_library(kelmar_flags INTERFACE)
target_include_directories(kelmar_flags INTERFACE ${CMAKE_SOURCE_DIR})
target_compile_definitions(kelmar_flags INTERFACE QT_NO_URL_CAST_FROM_STRING QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)
target_compile_options(kelmar_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wcast-align
    -Wunused -Wnull-dereference -Wformat=2 -Werror -Wno-deprecated-declarations)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(kelmar_flags INTERFACE
        -Wduplicated-cond -Wlogical-op
        # Inlined container code of the toolkit trips this one under optimisation and sanitizers.
        -Wno-null-dereference)
endif()

if(KELMAR_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer -g1)
    add_link_options(-fsanitize=address,undefined)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()
# Lets ccache reuse objects that were compiled with a precompiled header.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    add_compile_options(-fpch-preprocess)
endif()

set(KELMAR_PRECOMPILED_HEADERS
    <QtCore> <QtGui>
    <memory> <optional> <vector>)

# What is precompiled is compiled twice, with and without widgets, and shared by all libraries: it is some
# two hundred megabytes each time, and the disk is slower than the compiler.
file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/precompiled.cpp CONTENT "// Only the headers count.\n")
add_library(kelmar_precompiled_gui OBJECT ${CMAKE_BINARY_DIR}/precompiled.cpp)
target_link_libraries(kelmar_precompiled_gui PRIVATE Qt5::Gui kelmar_flags)
target_precompile_headers(kelmar_precompiled_gui PRIVATE ${KELMAR_PRECOMPILED_HEADERS})
add_library(kelmar_precompiled_widgets OBJECT ${CMAKE_BINARY_DIR}/precompiled.cpp)
target_link_libraries(kelmar_precompiled_widgets PRIVATE Qt5::Widgets kelmar_flags)
target_precompile_headers(kelmar_precompiled_widgets PRIVATE ${KELMAR_PRECOMPILED_HEADERS} <QtWidgets>)

# kelmar_library(NAME LEVEL n SOURCES ... [DEPENDS library ...] [QT Qt5::Module ...])
#
# A static library kelmar_NAME. DEPENDS takes the short names of libraries of lower levels only:
# who names one of its own level or above stops the configuration, so that the floors hold.
function(kelmar_library NAME)
    cmake_parse_arguments(ARG "" "LEVEL" "SOURCES;DEPENDS;QT" ${ARGN})
    set(target kelmar_${NAME})
    add_library(${target} STATIC ${ARG_SOURCES})
    set_property(TARGET ${target} PROPERTY KELMAR_LEVEL ${ARG_LEVEL})
    foreach(dependency IN LISTS ARG_DEPENDS)
        get_target_property(level kelmar_${dependency} KELMAR_LEVEL)
        if(NOT level LESS ARG_LEVEL)
            message(FATAL_ERROR
                "${target} (level ${ARG_LEVEL}) may not depend on kelmar_${dependency} (level ${level})")
        endif()
        target_link_libraries(${target} PUBLIC kelmar_${dependency})
    endforeach()
    target_link_libraries(${target} PUBLIC ${ARG_QT} PRIVATE kelmar_flags)
    if("Qt5::Widgets" IN_LIST ARG_QT)
        target_precompile_headers(${target} REUSE_FROM kelmar_precompiled_widgets)
    else()
        target_precompile_headers(${target} REUSE_FROM kelmar_precompiled_gui)
    endif()
endfunction()

# kelmar_test(NAME SOURCES ... [LIBRARIES kelmar_x ...] [TIMEOUT seconds] [WINDOWS])
#
# One test program. It runs offscreen, or with WINDOWS on an X server of its own under a window
# manager; locale, time zone and time limit are fixed for each entry.
function(kelmar_test NAME)
    cmake_parse_arguments(ARG "WINDOWS" "TIMEOUT" "SOURCES;LIBRARIES;ARGUMENTS" ${ARGN})
    if(NOT ARG_SOURCES)
        set(ARG_SOURCES ${NAME}.cpp)
    endif()
    if(NOT ARG_TIMEOUT)
        set(ARG_TIMEOUT 600)
    endif()
    add_executable(${NAME} ${ARG_SOURCES})
    set_target_properties(${NAME} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin/tests)
    target_link_libraries(${NAME} PRIVATE kelmar_test_support ${ARG_LIBRARIES} Qt5::Test kelmar_flags)
    target_precompile_headers(${NAME} REUSE_FROM kelmar_test_support)
    if(WIN32)
        # Only the system's own platform has its fonts. There is one desktop, and one program has the keyboard.
        add_test(NAME ${NAME} COMMAND ${NAME} ${ARG_ARGUMENTS})
        set_tests_properties(${NAME} PROPERTIES RESOURCE_LOCK desktop)
        set(platform windows)
        set(environment "KELMAR_WIN64_SYSROOT=${KELMAR_WIN64_SYSROOT};KELMAR_WINE_PATH=${CMAKE_BINARY_DIR}/bin/native-programs;")
    elseif(ARG_WINDOWS)
        add_test(NAME ${NAME}
            COMMAND ${CMAKE_SOURCE_DIR}/tests/support/in-real-windows.sh $<TARGET_FILE:${NAME}> ${ARG_ARGUMENTS})
        set_tests_properties(${NAME} PROPERTIES RESOURCE_LOCK x-server)
        set(platform xcb)
    else()
        add_test(NAME ${NAME} COMMAND ${NAME} ${ARG_ARGUMENTS})
        set(platform offscreen)
    endif()
    # Plugins that have been unloaded by the end of a test of whole windows leave behind what can't be told
    # from leaks of ours.
    set(detect_leaks 1)
    if(ARG_WINDOWS OR "${ARG_LIBRARIES}" MATCHES "shell|whole")
        set(detect_leaks 0)
    endif()
    set_tests_properties(${NAME} PROPERTIES
        TIMEOUT ${ARG_TIMEOUT}
        WORKING_DIRECTORY ${CMAKE_BINARY_DIR}/bin/tests
        ENVIRONMENT "${environment}QT_QPA_PLATFORM=${platform};LC_ALL=C.UTF-8;LANG=C.UTF-8;TZ=UTC;QT_LOGGING_RULES=qt.qpa.*=false;ASAN_OPTIONS=detect_leaks=${detect_leaks}:malloc_context_size=9;LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/leaks.supp:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1")
endfunction()
