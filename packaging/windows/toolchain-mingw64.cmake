# Builds for Windows x64 on Debian: MinGW-w64 with posix threads, and Qt and Qwt from the sysroot that
# build-sysroot.sh makes. The preset "windows" uses it. The sysroot is the folder that the variable
# KELMAR_WIN64_SYSROOT names, in the cache or in the environment, else build/win64-sysroot of the source
# tree, where unpack-sysroot.sh puts it.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

if(NOT KELMAR_WIN64_SYSROOT)
    set(KELMAR_WIN64_SYSROOT "$ENV{KELMAR_WIN64_SYSROOT}")
    if(NOT IS_DIRECTORY "${KELMAR_WIN64_SYSROOT}/lib/cmake/Qt5")
        get_filename_component(KELMAR_WIN64_SYSROOT "${CMAKE_CURRENT_LIST_DIR}/../../build/win64-sysroot" ABSOLUTE)
    endif()
endif()
if(NOT IS_DIRECTORY "${KELMAR_WIN64_SYSROOT}/lib/cmake/Qt5")
    message(FATAL_ERROR "There is no sysroot in ${KELMAR_WIN64_SYSROOT}: see docs/windows.md")
endif()
set(KELMAR_WIN64_SYSROOT "${KELMAR_WIN64_SYSROOT}" CACHE PATH "Qt and Qwt for Windows x64")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KELMAR_WIN64_SYSROOT)

set(triple x86_64-w64-mingw32)
# Without posix threads there is no std::thread.
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

set(CMAKE_FIND_ROOT_PATH ${KELMAR_WIN64_SYSROOT} /usr/${triple})
# Relative to the two roots above.
set(CMAKE_PREFIX_PATH /)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# One DLL less to bring along.
set(ZLIB_LIBRARY /usr/${triple}/lib/libz.a CACHE FILEPATH "zlib for Windows")

# Catalogues are made by programs of this machine.
execute_process(COMMAND dpkg-architecture -qDEB_HOST_MULTIARCH
    OUTPUT_VARIABLE host_triple OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
if(NOT host_triple)
    set(host_triple x86_64-linux-gnu)
endif()
set(Qt5LinguistTools_DIR "/usr/lib/${host_triple}/cmake/Qt5LinguistTools" CACHE PATH "The linguist tools of this machine")

# What is built runs here, too, for the tests.
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/run-wine.sh")
