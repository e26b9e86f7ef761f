# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# A room is one folder of the library: an object library that sees only the rooms it names.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE RelWithDebInfo)
endif()

find_package(Threads REQUIRED)

# Warnings and the toolkit's strict mode, for everything in this tree and for no consumer.
add_library(rawifi_strict INTERFACE)
target_compile_options(rawifi_strict INTERFACE
    -Wall -Wextra -Wformat=2 -Werror -Werror=format-security
    "-ffile-prefix-map=${CMAKE_SOURCE_DIR}/=")
target_compile_definitions(rawifi_strict INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS)

# rawifi_add_room(<name> SOURCES <files> [PUBLIC_HEADERS <files>] [USES <rooms and libraries>])
# Public headers are installed and listed for the library target.
function(rawifi_add_room name)
    cmake_parse_arguments(ROOM "" "" "SOURCES;PUBLIC_HEADERS;USES" ${ARGN})
    add_library(rawifi_${name} OBJECT ${ROOM_SOURCES} ${ROOM_PUBLIC_HEADERS})
    target_include_directories(rawifi_${name} PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}")
    target_compile_definitions(rawifi_${name} PRIVATE RAWIFI_BUILDING)
    target_link_libraries(rawifi_${name} PUBLIC rawifi_toolkit Threads::Threads PRIVATE rawifi_strict)
    foreach(used IN LISTS ROOM_USES)
        target_link_libraries(rawifi_${name} PUBLIC ${used})
    endforeach()
    if(ROOM_PUBLIC_HEADERS)
        install(FILES ${ROOM_PUBLIC_HEADERS} DESTINATION "${CMAKE_INSTALL_INCLUDEDIR}/rawificontrol"
            COMPONENT development)
    endif()
endfunction()
