# Creates the portable folder: the executable with everything that it reads at run time, in subfolders. It can be copied
# anywhere. Settings of a trial run in it are kept; build results are copied again when they change.
set(QUILLMERE_PORTABLE_DIR ${CMAKE_BINARY_DIR}/portable CACHE PATH "Where the portable folder is laid")
set(PORTABLE_DIR ${QUILLMERE_PORTABLE_DIR})

set_target_properties(quillmere PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${PORTABLE_DIR})
set_target_properties(quillmere_decoder quillmere_global_keys quillmere_internet quillmere_mpris quillmere_mpv
    quillmere_pedals quillmere_portaudio quillmere_printing quillmere_spelling PROPERTIES
    LIBRARY_OUTPUT_DIRECTORY ${PORTABLE_DIR}/Modules)
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
# Qt's translations, under the names of the language files. What they lack is in the .words files of data/.
find_package(Qt6 6.4 REQUIRED COMPONENTS Core)
get_target_property(qmake Qt6::qmake IMPORTED_LOCATION)
execute_process(COMMAND ${qmake} -query QT_INSTALL_TRANSLATIONS OUTPUT_VARIABLE QT_WORDS OUTPUT_STRIP_TRAILING_WHITESPACE)
foreach(words Brazilian=pt_BR Français=fr Hungarian=hu Italiano=it Nederlands=nl Polish=pl Russian=ru Spanish=es)
    string(REGEX MATCH "(.*)=(.*)" words ${words})
    set(catalogue ${QT_WORDS}/qtbase_${CMAKE_MATCH_2}.qm)
    set(beside ${PORTABLE_DIR}/Files/Lang/${CMAKE_MATCH_1}.qm)
    if(NOT EXISTS ${catalogue})
        message(FATAL_ERROR "${catalogue} is missing: install Qt's translations")
    endif()
    add_custom_command(OUTPUT ${beside} COMMAND ${CMAKE_COMMAND} -E copy ${catalogue} ${beside} DEPENDS ${catalogue})
    list(APPEND laid ${beside})
endforeach()
# The skin, rendered from its drawings. The stamp stands for all pictures; unchanged pictures are not rewritten.
file(GLOB DRAWINGS CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/art/*.svg)
add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/art.stamp
    COMMAND ${CMAKE_COMMAND} -E make_directory ${PORTABLE_DIR}/Files
    COMMAND render_art ${CMAKE_SOURCE_DIR}/art ${PORTABLE_DIR}/Files
    COMMAND ${CMAKE_COMMAND} -E touch ${CMAKE_BINARY_DIR}/art.stamp
    DEPENDS render_art ${CMAKE_SOURCE_DIR}/art/manifest.txt ${DRAWINGS})
list(APPEND laid ${CMAKE_BINARY_DIR}/art.stamp)

add_custom_target(portable ALL
    COMMAND ${CMAKE_COMMAND} -DFROM=${CMAKE_SOURCE_DIR}/data/Files/Quillmere.ini
            -DTO=${PORTABLE_DIR}/Files/Quillmere.ini -P ${CMAKE_SOURCE_DIR}/cmake/lay_settings.cmake
    DEPENDS quillmere ${laid})
add_dependencies(portable quillmere_decoder quillmere_global_keys quillmere_internet quillmere_mpris quillmere_mpv
    quillmere_pedals quillmere_portaudio quillmere_printing quillmere_spelling)
