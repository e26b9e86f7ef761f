# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
#
# Finds the chosen toolkit generation and gives three targets that hide it:
#   rawifi_toolkit       core, widgets            (part of the public interface)
#   rawifi_toolkit_bus   the inter-process bus    (private; nothing for Qt 4, which has a channel of its own)
#   rawifi_toolkit_test  the unit test module

set(CMAKE_AUTOMOC ON)

# rawifi_generate_moc(<target>)
# Makes <target>.moc, which <target>.cpp includes; for a target without AUTOMOC.
function(rawifi_generate_moc target)
    set(moc "${CMAKE_CURRENT_BINARY_DIR}/${target}.moc")
    if(RAWIFI_QT EQUAL 4)
        qt4_generate_moc(${target}.cpp "${moc}")
    else()
        qt_generate_moc(${target}.cpp "${moc}" TARGET ${target})
    endif()
    target_sources(${target} PRIVATE "${moc}")
    target_include_directories(${target} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}")
endfunction()

add_library(rawifi_toolkit INTERFACE)
add_library(rawifi_toolkit_bus INTERFACE)
add_library(rawifi_toolkit_test INTERFACE)

if(RAWIFI_QT EQUAL 4)
    find_package(Qt4 4.8 REQUIRED QtCore QtGui)
    target_link_libraries(rawifi_toolkit INTERFACE Qt4::QtGui Qt4::QtCore)
    if(RAWIFI_BUILD_TESTS OR RAWIFI_BUILD_BENCHMARKS)
        find_package(Qt4 4.8 REQUIRED QtTest)
        target_link_libraries(rawifi_toolkit_test INTERFACE Qt4::QtTest)
    endif()
elseif(RAWIFI_QT EQUAL 5 OR RAWIFI_QT EQUAL 6)
    find_package(Qt${RAWIFI_QT} REQUIRED COMPONENTS Core Gui Widgets DBus)
    target_link_libraries(rawifi_toolkit INTERFACE Qt${RAWIFI_QT}::Widgets)
    target_link_libraries(rawifi_toolkit_bus INTERFACE Qt${RAWIFI_QT}::DBus)
    if(RAWIFI_BUILD_TESTS OR RAWIFI_BUILD_BENCHMARKS)
        find_package(Qt${RAWIFI_QT} REQUIRED COMPONENTS Test)
        target_link_libraries(rawifi_toolkit_test INTERFACE Qt${RAWIFI_QT}::Test)
    endif()
else()
    message(FATAL_ERROR "RAWIFI_QT must be 6, 5 or 4, not '${RAWIFI_QT}'")
endif()
