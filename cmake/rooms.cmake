# A room is a static library. Its headers are reached as "<room>/<header>.h", and only by a target that links the room:
# each room has an include root of its own, with one link in it. So an include that points upward does not compile.
# A room without sources is a target of headers alone.
function(add_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;USES" ${ARGN})
    set(root ${CMAKE_BINARY_DIR}/rooms/${name})
    file(MAKE_DIRECTORY ${root})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${name} ${root}/${name} SYMBOLIC)
    if(ROOM_SOURCES)
        list(TRANSFORM ROOM_SOURCES PREPEND ${name}/)
        add_library(${name} STATIC ${ROOM_SOURCES})
        set(scope PUBLIC)
    else()
        add_library(${name} INTERFACE)
        set(scope INTERFACE)
    endif()
    target_include_directories(${name} ${scope} ${root})
    target_link_libraries(${name} ${scope} ${ROOM_USES})
endfunction()
