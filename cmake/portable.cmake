# Lays the portable folder: the executable with everything that it reads at run time below its own folder. It can be
# copied anywhere. Settings that a trial run left there are kept; what the build makes is laid anew when it changed.
set(PORTABLE_DIR ${CMAKE_BINARY_DIR}/quillmere CACHE PATH "Where the portable folder is laid")

set_target_properties(quillmere PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PORTABLE_DIR})
set_target_properties(quillmere_mpv PROPERTIES LIBRARY_OUTPUT_DIRECTORY ${PORTABLE_DIR}/Modules)
file(GLOB_RECURSE PORTABLE_DATA CONFIGURE_DEPENDS RELATIVE ${CMAKE_SOURCE_DIR}/data ${CMAKE_SOURCE_DIR}/data/*)
set(laid)
foreach(file ${PORTABLE_DATA})
    if(file STREQUAL "Files/Quillmere.ini")
        continue()
    endif()
    add_custom_command(
        OUTPUT ${PORTABLE_DIR}/${file}
        COMMAND ${CMAKE_COMMAND} -E copy ${CMAKE_SOURCE_DIR}/data/${file} ${PORTABLE_DIR}/${file}
        DEPENDS ${CMAKE_SOURCE_DIR}/data/${file})
    list(APPEND laid ${PORTABLE_DIR}/${file})
endforeach()
add_custom_target(portable ALL
    COMMAND ${CMAKE_COMMAND} -DFROM=${CMAKE_SOURCE_DIR}/data/Files/Quillmere.ini
            -DTO=${PORTABLE_DIR}/Files/Quillmere.ini -P ${CMAKE_SOURCE_DIR}/cmake/lay_settings.cmake
    DEPENDS quillmere ${laid})
