# A room is a static library. Its headers are reached as "<room>/<header>.h", and only by a target that links the room:
# each room has an include root of its own, with one link in it. So an include that points upward does not compile.
# A room without sources is a target of headers alone.
# The rooms below the desktop share one precompiled header, that of the lowest: what nearly every file of theirs includes.
function(add_room name)
    cmake_parse_arguments(ROOM "OWN_PRECOMPILED" "" "SOURCES;USES" ${ARGN})
    set(root ${CMAKE_BINARY_DIR}/rooms/${name})
    file(MAKE_DIRECTORY ${root})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR}/${name} ${root}/${name} SYMBOLIC)
    if(ROOM_SOURCES)
        list(TRANSFORM ROOM_SOURCES PREPEND ${name}/)
        add_library(${name} STATIC ${ROOM_SOURCES})
        set(scope PUBLIC)
        if(name STREQUAL "base")
            target_precompile_headers(base PRIVATE <algorithm> <array> <cstdint> <functional> <memory> <optional> <string>
                <string_view> <utility> <vector>)
        elseif(NOT ROOM_OWN_PRECOMPILED)
            target_precompile_headers(${name} REUSE_FROM base)
        endif()
    else()
        add_library(${name} INTERFACE)
        set(scope INTERFACE)
    endif()
    target_include_directories(${name} ${scope} ${root})
    target_link_libraries(${name} ${scope} ${ROOM_USES})
endfunction()
