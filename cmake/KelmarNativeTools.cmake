# Programs that run during the build, as targets native::<tool>. A cross build takes them from a native build,
# which it sets up and keeps up to date.

# kelmar_build_tool(NAME)
#
# Makes the executable NAME known as native::NAME, also to cross builds.
function(kelmar_build_tool NAME)
    if(CMAKE_CROSSCOMPILING)
        return()
    endif()
    add_executable(native::${NAME} ALIAS ${NAME})
    if(NOT TARGET kelmar_build_tools)
        file(REMOVE ${CMAKE_BINARY_DIR}/KelmarBuildTools.cmake)
        add_custom_target(kelmar_build_tools)
    endif()
    add_dependencies(kelmar_build_tools ${NAME})
    export(TARGETS ${NAME} NAMESPACE native:: APPEND FILE ${CMAKE_BINARY_DIR}/KelmarBuildTools.cmake)
endfunction()

if(CMAKE_CROSSCOMPILING)
    set(KELMAR_NATIVE_BUILD ${CMAKE_BINARY_DIR}/native CACHE PATH
        "Folder of the native build whose tools this build runs; made when it is missing")
    set(options)
    if(NOT EXISTS ${KELMAR_NATIVE_BUILD}/CMakeCache.txt)
        set(options -G ${CMAKE_GENERATOR}
            -D CMAKE_BUILD_TYPE=Release -D KELMAR_TESTS=OFF -D KELMAR_BENCHMARKS=OFF)
    endif()
    message(STATUS "Configuring the native build of the build tools")
    # The variables name the cross compilers here.
    execute_process(
        COMMAND ${CMAKE_COMMAND} -E env --unset=CC --unset=CXX --unset=RC
            ${CMAKE_COMMAND} -S ${CMAKE_SOURCE_DIR} -B ${KELMAR_NATIVE_BUILD} ${options}
        OUTPUT_QUIET
        COMMAND_ERROR_IS_FATAL ANY)
    include(${KELMAR_NATIVE_BUILD}/KelmarBuildTools.cmake)
    get_property(tools DIRECTORY PROPERTY IMPORTED_TARGETS)
    list(FILTER tools INCLUDE REGEX "^native::")
    set(programs)
    foreach(tool IN LISTS tools)
        get_target_property(configuration ${tool} IMPORTED_CONFIGURATIONS)
        get_target_property(program ${tool} IMPORTED_LOCATION_${configuration})
        list(APPEND programs ${program})
    endforeach()
    # Each build asks the native one, which knows best whether there is something to do.
    add_custom_target(kelmar_native_tools
        COMMAND ${CMAKE_COMMAND} --build ${KELMAR_NATIVE_BUILD} --target kelmar_build_tools
        BYPRODUCTS ${programs}
        USES_TERMINAL)
endif()
