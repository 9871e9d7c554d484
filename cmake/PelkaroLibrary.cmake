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
#                     HEADERS <public headers...> SOURCES <sources...>)
# A versioned shared library with hidden symbols, a generated export header,
# the alias Pelkaro::<name>, and install rules into the PelkaroCore package.
function(pelkaro_add_library target)
    cmake_parse_arguments(ARG "" "NAME;EXPORT_MACRO" "HEADERS;SOURCES" ${ARGN})
    string(TOLOWER ${ARG_EXPORT_MACRO} _export_file)
    set(_export_header ${CMAKE_CURRENT_BINARY_DIR}/include/${_export_file}.h)

    add_library(${target} SHARED ${ARG_HEADERS} ${ARG_SOURCES})
    add_library(Pelkaro::${ARG_NAME} ALIAS ${target})
    generate_export_header(${target}
        EXPORT_MACRO_NAME ${ARG_EXPORT_MACRO}
        EXPORT_FILE_NAME ${_export_header})
    set_target_properties(${target} PROPERTIES
        OUTPUT_NAME ${ARG_NAME}
        EXPORT_NAME ${ARG_NAME}
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        PUBLIC_HEADER "${ARG_HEADERS};${_export_header}")
    target_include_directories(${target} PUBLIC
        $<BUILD_INTERFACE:${CMAKE_CURRENT_SOURCE_DIR}>
        $<BUILD_INTERFACE:${CMAKE_CURRENT_BINARY_DIR}/include>
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/Pelkaro>)
    pelkaro_log_file_names(${target})

    install(TARGETS ${target} EXPORT PelkaroCoreTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
        PUBLIC_HEADER DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/Pelkaro)
endfunction()
