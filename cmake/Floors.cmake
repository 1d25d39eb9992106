# A floor is a static library with an include directory of its own. It sees the floors that it names, and no other: an
# arrow in the wrong direction does not compile.
#
#   tessel_floor(<target> DIRECTORY <include directory> SEES <targets...> SOURCES <files...>)
function(tessel_floor target)
    cmake_parse_arguments(floor "" "DIRECTORY" "SEES;SOURCES" ${ARGN})
    add_library(${target} STATIC ${floor_SOURCES})
    target_include_directories(${target} PUBLIC ${floor_DIRECTORY})
    target_link_libraries(${target} PUBLIC ${floor_SEES} PRIVATE tessel_warnings)
endfunction()
