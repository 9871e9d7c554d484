include(GenerateExportHeader)

# Gives every source of a target the compile definition KV_LOG_FILE: its path
# relative to the repository root without extension, as the log lines name it.
function(pelkaro_log_file_names target)
    get_target_property(_sources ${target} SOURCES)
    get_target_property(_dir ${target} SOURCE_DIR)
    foreach(_source IN LISTS _sources)
        get_filename_component(_abs ${_source} ABSOLUTE BASE_DIR ${_dir})
        if(NOT _abs MATCHES "\\.(cpp|mm)$")
            continue()
        endif()
        file(RELATIVE_PATH _rel ${PROJECT_SOURCE_DIR} ${_abs})
        string(REGEX REPLACE "\\.[^./]*$" "" _rel ${_rel})
        set_property(SOURCE ${_abs} DIRECTORY ${_dir} APPEND PROPERTY
            COMPILE_DEFINITIONS "KV_LOG_FILE=\"${_rel}\"")
    endforeach()
endfunction()

# pelkaro_add_library(<target> NAME <output and export name> EXPORT_MACRO <macro>
#                     HEADERS <public headers...> SOURCES <sources...>
#                     [GENERATED_HEADERS <public headers made in the build tree...>]
#                     [PUBLIC_LIBS <libraries...>] [PRIVATE_LIBS <libraries...>])
# A versioned shared library with hidden symbols, a generated export header,
# the alias Pelkaro::<name>, and install rules into the PelkaroCore package.
#
# The sources compile once, into the object library <target>_objects; the
# shared library is linked from it. Whatever needs the library's internals
# (its own tests and fuzz targets) links <target>_objects instead of the shared
# library, and so reaches functions that the shared library does not export,
# with the source folder (private headers included) on its include path.
# Never link both into one program: each would bring its own singletons.
#
# Users of the shared library see <build>/<folder>/include alone: the export
# header and one forwarding header per public header, so that a private
# header is out of reach in the build tree as it is in the installed package.
function(pelkaro_add_library target)
    cmake_parse_arguments(ARG ""
        "NAME;EXPORT_MACRO" "HEADERS;SOURCES;GENERATED_HEADERS;PUBLIC_LIBS;PRIVATE_LIBS" ${ARGN})
    set(_include_dir ${CMAKE_CURRENT_BINARY_DIR}/include)
    string(TOLOWER ${ARG_EXPORT_MACRO} _export_file)
    set(_export_header ${_include_dir}/${_export_file}.h)

    set(_public_headers)
    foreach(_header IN LISTS ARG_HEADERS)
        get_filename_component(_abs ${_header} ABSOLUTE)
        get_filename_component(_name ${_header} NAME)
        file(GENERATE OUTPUT ${_include_dir}/${_name}
            CONTENT "#pragma once\n#include \"${_abs}\"\n")
        list(APPEND _public_headers ${_abs})
    endforeach()

    set(_objects ${target}_objects)
    add_library(${_objects} OBJECT ${ARG_HEADERS} ${ARG_SOURCES})
    set_target_properties(${_objects} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    # The export header's macro marks definitions as exported in these objects.
    target_compile_definitions(${_objects} PRIVATE ${target}_EXPORTS)
    target_include_directories(${_objects} PUBLIC ${_include_dir} ${CMAKE_CURRENT_SOURCE_DIR})
    if(EXISTS ${CMAKE_CURRENT_SOURCE_DIR}/private)
        target_include_directories(${_objects} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}/private)
    endif()
    target_link_libraries(${_objects} PUBLIC ${ARG_PUBLIC_LIBS} ${ARG_PRIVATE_LIBS})
    pelkaro_log_file_names(${_objects})

    add_library(${target} SHARED)
    add_library(Pelkaro::${ARG_NAME} ALIAS ${target})
    target_link_libraries(${target} PRIVATE ${_objects} PUBLIC ${ARG_PUBLIC_LIBS})
    generate_export_header(${target}
        EXPORT_MACRO_NAME ${ARG_EXPORT_MACRO}
        EXPORT_FILE_NAME ${_export_header})
    set_target_properties(${target} PROPERTIES
        OUTPUT_NAME ${ARG_NAME}
        EXPORT_NAME ${ARG_NAME}
        AUTOMOC OFF
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        PUBLIC_HEADER "${_public_headers};${_export_header};${ARG_GENERATED_HEADERS}")
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${_include_dir}>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/Pelkaro>)

    install(TARGETS ${target} EXPORT PelkaroCoreTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        PUBLIC_HEADER DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Pelkaro)
endfunction()
