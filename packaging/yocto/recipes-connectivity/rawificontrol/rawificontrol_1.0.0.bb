# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
SUMMARY = "Wi-Fi settings page for small touch-screen devices"
DESCRIPTION = "A shared library that gives a Qt application its whole Wi-Fi settings page and the machinery behind it."
SECTION = "libs"
LICENSE = "MIT"
LIC_FILES_CHKSUM = "file://LICENSE;md5=852a06b88c8a6d6ffb68cdc75a301ff5"

DEPENDS = "qtbase qttools-native nettle"

inherit qt6-cmake pkgconfig externalsrc

# The tree that this layer lies in.
EXTERNALSRC ?= "${@os.path.normpath(d.getVar('FILE_DIRNAME') + '/../../../..')}"

EXTRA_OECMAKE = "-DRAWIFI_QT=6 -DRAWIFI_BUILD_TESTS=OFF -DRAWIFI_BUILD_BENCHMARKS=OFF"

do_install:append() {
    DESTDIR='${D}' cmake --install ${B} --component device
}

PACKAGES =+ "${PN}-device ${PN}-tools"

SUMMARY:${PN}-device = "Helper scripts and pictures for the Wi-Fi settings page"
FILES:${PN}-device = "${bindir}/*.sh ${bindir}/wpa_cli ${datadir}/rawifi /apps/res"
RDEPENDS:${PN}-device = "busybox busybox-udhcpc wpa-supplicant wpa-supplicant-cli"

SUMMARY:${PN}-tools = "Programs around the Wi-Fi settings page"
FILES:${PN}-tools = "\
    ${bindir}/rawifictl \
    ${bindir}/rawifigallery \
    ${bindir}/rawifihost \
    ${datadir}/bash-completion \
    ${datadir}/fish \
    ${datadir}/zsh \
    ${mandir}/man1 \
"

RRECOMMENDS:${PN} = "${PN}-device"
