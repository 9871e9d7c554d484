# Fails when an enumerator of the API reference has no comment. Doxygen warns
# about every other undocumented public name but not about enumerators, so
# this reads its XML output instead.
#   cmake -DXML_DIR=<build>/docs/xml -P CheckEnumerators.cmake

file(GLOB _files ${XML_DIR}/*.xml)
if(NOT _files)
    message(FATAL_ERROR "no Doxygen XML in ${XML_DIR}")
endif()

# An enumerator whose brief and detailed descriptions are both empty.
set(_blank "[ \t\r\n]*")
set(_undocumented
    "<name>[A-Za-z0-9_]+</name>${_blank}(<initializer>[^<]*</initializer>${_blank})?"
    "<briefdescription>${_blank}</briefdescription>${_blank}"
    "<detaileddescription>${_blank}</detaileddescription>${_blank}</enumvalue>")
string(CONCAT _undocumented ${_undocumented})

set(_missing)
foreach(_file IN LISTS _files)
    file(READ ${_file} _xml)
    string(REGEX MATCHALL "${_undocumented}" _matches "${_xml}")
    if(NOT _matches)
        continue()
    endif()
    string(REGEX MATCH "<compoundname>([^<]*)</compoundname>" _compound "${_xml}")
    set(_scope ${CMAKE_MATCH_1})
    foreach(_match IN LISTS _matches)
        string(REGEX MATCH "<name>([A-Za-z0-9_]+)</name>" _name "${_match}")
        list(APPEND _missing "${_scope}::${CMAKE_MATCH_1}")
    endforeach()
endforeach()

if(_missing)
    list(JOIN _missing "\n  " _list)
    message(FATAL_ERROR "enumerators without a comment:\n  ${_list}")
endif()
