# The code that docs/plugin-guide.md quotes is cut from the starter plug-in's
# sources, so that the guide shows code that builds. A source marks a snippet
# with lines of their own,
#     // [name]          (# [name] in CMake files)
#     ...
#     // [name-end]
# and the guide quotes it in the fenced block that follows
#     <!-- snippet: name -->
# Marker lines inside a snippet are left out of it.
#
#   cmake -P docs/snippets.cmake               fails when a quote differs from
#                                              its source, or a snippet is not
#                                              quoted, or a quote has no source
#   cmake -DUPDATE=ON -P docs/snippets.cmake   rewrites the quotes from the sources
#
# -DGUIDE=<file> and -DSOURCE_DIR=<folder> choose other files.

cmake_minimum_required(VERSION 3.16)
get_filename_component(_root ${CMAKE_CURRENT_LIST_DIR}/.. ABSOLUTE)
if(NOT GUIDE)
    set(GUIDE ${_root}/docs/plugin-guide.md)
endif()
if(NOT SOURCE_DIR)
    set(SOURCE_DIR ${_root}/examples/plugins/starter)
endif()

set(_marker "[ \t]*(//|#) \\[([a-z0-9-]+)\\][ \t]*\n")

# Every snippet of the sources, by name.
file(GLOB _sources ${SOURCE_DIR}/*.h ${SOURCE_DIR}/*.cpp ${SOURCE_DIR}/CMakeLists.txt)
set(_names)
foreach(_source IN LISTS _sources)
    file(READ ${_source} _text)
    string(REGEX MATCHALL "(//|#) \\[[a-z0-9-]+\\]" _found "${_text}")
    foreach(_mark IN LISTS _found)
        string(REGEX REPLACE "^(//|#) \\[([a-z0-9-]+)\\]$" "\\2" _name "${_mark}")
        if(_name MATCHES "-end$")
            continue()
        endif()
        if(_name IN_LIST _names)
            message(FATAL_ERROR "snippet ${_name} is marked twice")
        endif()
        string(FIND "${_text}" "[${_name}]\n" _begin)
        string(FIND "${_text}" "[${_name}-end]" _end)
        if(_begin EQUAL -1 OR _end EQUAL -1 OR _end LESS _begin)
            message(FATAL_ERROR "${_source}: snippet ${_name} has no end marker after it")
        endif()
        string(LENGTH "[${_name}]\n" _length)
        math(EXPR _begin "${_begin} + ${_length}")
        math(EXPR _length "${_end} - ${_begin}")
        string(SUBSTRING "${_text}" ${_begin} ${_length} _snippet)
        # Up to the end marker's line, without the marker lines inside.
        string(REGEX REPLACE "\n[^\n]*$" "" _snippet "${_snippet}")
        string(REGEX REPLACE "${_marker}" "" _snippet "${_snippet}")
        string(REGEX REPLACE "^[ \t]*(//|#) \\[[a-z0-9-]+\\][ \t]*$" "" _snippet "${_snippet}")
        set(_snippet_${_name} "${_snippet}")
        list(APPEND _names ${_name})
    endforeach()
endforeach()
if(NOT _names)
    message(FATAL_ERROR "no snippets in ${SOURCE_DIR}")
endif()

# Every quote of the guide against its snippet.
file(READ ${GUIDE} _guide)
set(_rest "${_guide}")
set(_result "")
set(_quoted)
set(_problems)
while(TRUE)
    string(FIND "${_rest}" "<!-- snippet: " _at)
    if(_at EQUAL -1)
        break()
    endif()
    string(SUBSTRING "${_rest}" 0 ${_at} _before)
    string(SUBSTRING "${_rest}" ${_at} -1 _rest)
    if(NOT _rest MATCHES "^<!-- snippet: ([a-z0-9-]+) -->\n(```[a-z]*\n)")
        message(FATAL_ERROR "${GUIDE}: a snippet marker without a fenced block right after it")
    endif()
    set(_name ${CMAKE_MATCH_1})
    set(_head "<!-- snippet: ${_name} -->\n${CMAKE_MATCH_2}")
    string(LENGTH "${_head}" _length)
    string(SUBSTRING "${_rest}" ${_length} -1 _rest)
    # The quote: every line up to the closing fence.
    string(FIND "\n${_rest}" "\n```" _close)
    if(_close EQUAL -1)
        message(FATAL_ERROR "${GUIDE}: the block of snippet ${_name} does not end")
    endif()
    string(SUBSTRING "${_rest}" 0 ${_close} _quote)
    string(SUBSTRING "${_rest}" ${_close} -1 _rest)
    list(APPEND _quoted ${_name})

    set(_expected "${_snippet_${_name}}\n")
    if(NOT _name IN_LIST _names)
        list(APPEND _problems "the guide quotes ${_name}, which no source marks")
        string(APPEND _result "${_before}${_head}${_quote}")
    elseif(UPDATE)
        string(APPEND _result "${_before}${_head}${_expected}")
    else()
        if(NOT _quote STREQUAL _expected)
            list(APPEND _problems "the quote of ${_name} differs from its source")
        endif()
        string(APPEND _result "${_before}${_head}${_quote}")
    endif()
endwhile()
string(APPEND _result "${_rest}")

foreach(_name IN LISTS _names)
    if(NOT _name IN_LIST _quoted)
        list(APPEND _problems "the guide does not quote ${_name}")
    endif()
endforeach()

if(UPDATE AND NOT _result STREQUAL _guide)
    file(WRITE ${GUIDE} "${_result}")
    message(STATUS "updated ${GUIDE}")
endif()
if(_problems)
    list(JOIN _problems "\n  " _list)
    if(NOT UPDATE)
        string(APPEND _list "\nRefresh the quotes with: cmake -DUPDATE=ON -P docs/snippets.cmake")
    endif()
    message(FATAL_ERROR "${GUIDE}:\n  ${_list}")
endif()
