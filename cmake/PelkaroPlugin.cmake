# pelkaro_add_plugin(<target> BASE_NAME <base name> [VERSION <version>] SOURCES <sources...>)
#
# Builds a plug-in library that the editor loads: a MODULE library named
# "<base name>.<version>.dylib" on every platform (VERSION defaults to the
# library's major version, 2 for every 2.x), for example libadjustments.2.dylib. The loader takes a file by its base name,
# the part before the first dot, so name it after its family: libimageio,
# libadjustments, libfilter, libbasictools or libgeneraltools in the general
# plug-in folder; in the brush folder any name will do. The target links
# Pelkaro::plugincore and Pelkaro::core, builds with C++17, hides its symbols
# and runs moc.
#
# Its root object is the plug-in container: a QObject that implements
# IPluginContainer and declares the container's interface identifier,
#
#     class MyContainer : public QObject, public IPluginContainer
#     {
#         Q_OBJECT
#         Q_PLUGIN_METADATA(IID IPluginContainer_iid) // "Pelkaro.PluginContainer/1.0"
#         Q_INTERFACES(IPluginContainer)
#         ...
#     };
#
# without which the loader rejects the file as "Is not an Pelkaro's plugin.".

# The default VERSION: the major version of the PelkaroCore project that
# includes this file, or of the package found by find_package(PelkaroCore),
# which sets PelkaroCore_VERSION_MAJOR before it loads the package's files.
if(NOT PelkaroCore_VERSION_MAJOR)
    message(FATAL_ERROR "PelkaroPlugin.cmake: PelkaroCore_VERSION_MAJOR is not set; "
        "use find_package(PelkaroCore)")
endif()
set_property(GLOBAL PROPERTY PELKARO_PLUGIN_DEFAULT_VERSION ${PelkaroCore_VERSION_MAJOR})

function(pelkaro_add_plugin target)
    cmake_parse_arguments(ARG "" "BASE_NAME;VERSION" "SOURCES" ${ARGN})
    if(NOT ARG_BASE_NAME)
        message(FATAL_ERROR "pelkaro_add_plugin(${target}): BASE_NAME is required")
    endif()
    if(NOT ARG_SOURCES)
        message(FATAL_ERROR "pelkaro_add_plugin(${target}): SOURCES is required")
    endif()
    if(ARG_BASE_NAME MATCHES "\\.")
        message(FATAL_ERROR "pelkaro_add_plugin(${target}): BASE_NAME ${ARG_BASE_NAME} holds a "
            "dot, but the loader compares the name up to the first dot")
    endif()
    if(NOT DEFINED ARG_VERSION)
        get_property(ARG_VERSION GLOBAL PROPERTY PELKARO_PLUGIN_DEFAULT_VERSION)
    endif()

    add_library(${target} MODULE ${ARG_SOURCES})
    set_target_properties(${target} PROPERTIES
        PREFIX ""
        OUTPUT_NAME "${ARG_BASE_NAME}.${ARG_VERSION}"
        SUFFIX ".dylib"
        AUTOMOC ON
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON)
    target_compile_features(${target} PRIVATE cxx_std_17)
    target_link_libraries(${target} PRIVATE Pelkaro::plugincore Pelkaro::core)
endfunction()
