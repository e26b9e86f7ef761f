# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Message catalogues are compiled into the library or program whose texts they are; QTranslator finds them in
# ":/translations".
option(RAWIFI_TRANSLATIONS "Compile the message catalogues in (needs the toolkit's lrelease)" ON)

if(RAWIFI_TRANSLATIONS)
    # Any generation's will do: compiled catalogues look the same. A bare "lrelease" may only choose between them.
    find_program(RAWIFI_LRELEASE NAMES lrelease
        PATHS /usr/lib/qt6/bin /usr/lib/qt5/bin /usr/lib/qt4/bin NO_DEFAULT_PATH)
    find_program(RAWIFI_LRELEASE NAMES lrelease-qt6 lrelease-qt5 lrelease-qt4 lrelease)
    if(NOT RAWIFI_LRELEASE)
        message(FATAL_ERROR
            "There is no lrelease (Debian: qt6-l10n-tools): install it, or set RAWIFI_TRANSLATIONS to OFF")
    endif()
endif()

# rawifi_add_catalogues(<target> <catalogue>...)
function(rawifi_add_catalogues target)
    if(NOT RAWIFI_TRANSLATIONS)
        return()
    endif()
    set(files)
    set(compiled)
    foreach(catalogue IN LISTS ARGN)
        get_filename_component(catalogue "${catalogue}" ABSOLUTE)
        get_filename_component(name "${catalogue}" NAME_WE)
        set(output "${CMAKE_CURRENT_BINARY_DIR}/${name}.qm")
        add_custom_command(OUTPUT "${output}"
            COMMAND "${RAWIFI_LRELEASE}" -silent "${catalogue}" -qm "${output}"
            DEPENDS "${catalogue}"
            VERBATIM)
        list(APPEND compiled "${output}")
        string(APPEND files "<file>${name}.qm</file>")
    endforeach()
    set(bundle "${CMAKE_CURRENT_BINARY_DIR}/${target}_translations")
    file(GENERATE OUTPUT "${bundle}.qrc"
        CONTENT "<RCC><qresource prefix=\"/translations\">${files}</qresource></RCC>\n")
    # Format 1 has no file times; Qt 4 knows no other.
    set(without_file_times --format-version 1)
    if(RAWIFI_QT EQUAL 4)
        set(without_file_times)
    endif()
    add_custom_command(OUTPUT "${bundle}.cpp"
        COMMAND Qt${RAWIFI_QT}::rcc -name ${target}_translations ${without_file_times} -o "${bundle}.cpp"
            "${bundle}.qrc"
        DEPENDS "${bundle}.qrc" ${compiled}
        VERBATIM)
    set_source_files_properties("${bundle}.cpp" PROPERTIES SKIP_AUTOMOC ON)
    target_sources(${target} PRIVATE "${bundle}.cpp")
endfunction()
