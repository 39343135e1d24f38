# Qwt 6.1 built with Qt 5, from a Debian package or from a sysroot of a cross compiler: header and library are
# looked for below CMAKE_PREFIX_PATH and CMAKE_FIND_ROOT_PATH as everywhere. Makes the target Qwt::Qwt.

find_path(QWT_INCLUDE_DIR qwt_plot.h PATH_SUFFIXES qwt qwt6 qwt-qt5 qwt6-qt5 qt5/qwt qt5/qwt6)
find_library(QWT_LIBRARY NAMES qwt-qt5 qwt6-qt5 qwt)

if(QWT_INCLUDE_DIR AND EXISTS "${QWT_INCLUDE_DIR}/qwt_global.h")
    file(STRINGS "${QWT_INCLUDE_DIR}/qwt_global.h" qwt_version_line REGEX "define[ \t]+QWT_VERSION_STR")
    string(REGEX REPLACE ".*\"([0-9.]+)\".*" "\\1" QWT_VERSION "${qwt_version_line}")
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Qwt REQUIRED_VARS QWT_LIBRARY QWT_INCLUDE_DIR VERSION_VAR QWT_VERSION)
mark_as_advanced(QWT_INCLUDE_DIR QWT_LIBRARY)

if(Qwt_FOUND AND NOT TARGET Qwt::Qwt)
    add_library(Qwt::Qwt UNKNOWN IMPORTED)
    set_target_properties(Qwt::Qwt PROPERTIES
        IMPORTED_LOCATION "${QWT_LIBRARY}"
        INTERFACE_INCLUDE_DIRECTORIES "${QWT_INCLUDE_DIR}"
        INTERFACE_LINK_LIBRARIES "Qt5::Widgets;Qt5::Svg;Qt5::PrintSupport")
    # An import library may be called as a static one is: then its DLL lies beside it.
    get_filename_component(qwt_name ${QWT_LIBRARY} NAME_WE)
    string(REGEX REPLACE "^lib" "" qwt_name ${qwt_name})
    get_filename_component(qwt_folder ${QWT_LIBRARY} DIRECTORY)
    if(QWT_LIBRARY MATCHES "\\.dll\\.a$|\\.lib$" OR EXISTS "${qwt_folder}/../bin/${qwt_name}.dll")
        set_property(TARGET Qwt::Qwt PROPERTY INTERFACE_COMPILE_DEFINITIONS QWT_DLL)
    elseif(QWT_LIBRARY MATCHES "\\.a$")
        # A static library names nothing that it needs itself.
        find_package(Qt5 5.15 QUIET OPTIONAL_COMPONENTS Concurrent OpenGL)
        foreach(component Concurrent OpenGL)
            if(TARGET Qt5::${component})
                set_property(TARGET Qwt::Qwt APPEND PROPERTY INTERFACE_LINK_LIBRARIES Qt5::${component})
            endif()
        endforeach()
    endif()
endif()
