#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The rawificontrol authors
# SPDX-License-Identifier: MIT
"""Shows what can be shown of the recipes in packaging/ without the systems they are for: that they parse, and that
their lists name just the files that the library installs. Looks at the build in build/qt6, or at the one given."""

import hashlib
import pathlib
import re
import subprocess
import sys
import tempfile

import kconfiglib

ROOT = pathlib.Path(__file__).resolve().parents[2]
BUILD = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else ROOT / "build/qt6").resolve()
YOCTO = ROOT / "packaging/yocto"
BUILDROOT = ROOT / "packaging/buildroot"
VERSION = (ROOT / "version.txt").read_text().split()[0]

# What bitbake.conf gives to every recipe.
YOCTO_DEFAULTS = {
    "PN": "rawificontrol", "bindir": "/usr/bin", "datadir": "/usr/share", "includedir": "/usr/include",
    "libdir": "/usr/lib", "mandir": "/usr/share/man",
    "FILES:${PN}": "${bindir}/* ${libdir}/lib*.so.*",
    "FILES:${PN}-dev": "${includedir} ${libdir}/lib*.so ${libdir}/pkgconfig ${libdir}/cmake",
    "FILES:${PN}-doc": "${mandir}",
    "PACKAGES": "${PN}-doc ${PN}-dev ${PN}",
}


def installed(*options):
    """The paths that `cmake --install` gives, relative to the image's root."""
    with tempfile.TemporaryDirectory() as image:
        subprocess.run(["cmake", "--install", BUILD, "--prefix", "/usr", *options], check=True,
                       env={"DESTDIR": image, "PATH": "/usr/bin:/bin"}, stdout=subprocess.DEVNULL)
        files = (path for path in pathlib.Path(image).rglob("*") if not path.is_dir())
        return {"/" + str(path.relative_to(image)) for path in files}


class BitbakeFile:
    """The subset of bitbake's grammar that the recipe and the layer keep to; a line outside it is an error."""

    assignment = re.compile(r'^([A-Za-z_][\w:${}+.-]*?)\s*(\?=|=\+|\.=|\+=|=)\s*"((?:[^"\\]|\\.)*)"$')

    def __init__(self, path):
        self.variables, self.prepended, self.functions = {}, {}, {}
        self.inherited = []
        lines = iter(path.read_text().replace("\\\n", " ").splitlines())
        for line in lines:
            if not line.strip() or line.startswith("#"):
                continue
            assigned = self.assignment.match(line)
            function = re.match(r"^([\w:]+)\(\) \{$", line)
            if assigned:
                name, how, value = assigned.groups()
                (self.prepended if how == "=+" else self.variables)[name] = value
            elif function:
                body = []
                for inner in lines:
                    if inner == "}":
                        break
                    body.append(inner)
                else:
                    raise ValueError(f"{path.name}: {function[1]} has no end")
                self.functions[function[1]] = "\n".join(body)
            elif line.startswith("inherit "):
                self.inherited += line.split()[1:]
            else:
                raise ValueError(f"{path.name}: not understood: {line}")

    def words(self, name):
        value = self.prepended.get(name, "") + " " + self.variables.get(name, YOCTO_DEFAULTS.get(name, ""))
        while "${" in value:
            value = re.sub(r"\$\{(\w+)\}", lambda found: YOCTO_DEFAULTS[found[1]], value)
        return value.split()


def recipe():
    return BitbakeFile(YOCTO / f"recipes-connectivity/rawificontrol/rawificontrol_{VERSION}.bb")


def claims(pattern, path):
    """As do_package has it: a directory stands for all below it."""
    return pathlib.PurePath(path).match(pattern) or any(
        parent.match(pattern) for parent in pathlib.PurePath(path).parents)


def recipe_and_layer_parse():
    wanted = {"SUMMARY", "LICENSE", "LIC_FILES_CHKSUM", "DEPENDS"}
    assert wanted <= recipe().variables.keys(), wanted - recipe().variables.keys()
    assert "BBFILE_COLLECTIONS" in BitbakeFile(YOCTO / "conf/layer.conf").variables


def recipe_knows_the_licence():
    digest = hashlib.md5((ROOT / "LICENSE").read_bytes()).hexdigest()
    assert recipe().variables["LIC_FILES_CHKSUM"] == f"file://LICENSE;md5={digest}", digest


def recipe_functions_are_shell():
    for name, body in recipe().functions.items():
        subprocess.run(["sh", "-n"], input=body, text=True, check=True)
        assert "--component device" in body, name


def recipe_packages_every_file_and_lists_no_other():
    found = recipe()
    unclaimed = installed() | installed("--component", "device")
    for package in found.words("PACKAGES"):
        key = "FILES:" + package.replace("rawificontrol", "${PN}", 1)
        for pattern in found.words(key):
            taken = {path for path in unclaimed if claims(pattern, path)}
            assert taken or key in YOCTO_DEFAULTS, f"{package}: nothing is installed as {pattern}"
            unclaimed -= taken
    assert not unclaimed, f"in no package: {sorted(unclaimed)}"


def recipe_device_package_is_the_device_component():
    found = recipe()
    patterns = found.words("FILES:${PN}-device")
    taken = {path for path in installed() | installed("--component", "device")
             if any(claims(pattern, path) for pattern in patterns)}
    assert taken == installed("--component", "device"), taken ^ installed("--component", "device")


def buildroot_options(values):
    """The external tree's options on top of Buildroot's own that they name, with some of these set."""
    own = ["BR2_PACKAGE_QT6", "BR2_PACKAGE_NETTLE", "BR2_PACKAGE_WPA_SUPPLICANT", "BR2_PACKAGE_WPA_SUPPLICANT_CLI"]
    own += ["BR2_PACKAGE_QT6BASE_" + part for part in ("DBUS", "GUI", "PNG", "WIDGETS")]
    with tempfile.TemporaryDirectory() as scratch:
        top = pathlib.Path(scratch) / "Config.in"
        text = "".join(f'config {name}\n\tbool "{name}"\n' for name in own)
        source = (BUILDROOT / "Config.in").read_text().replace("$BR2_EXTERNAL_RAWIFICONTROL_PATH", str(BUILDROOT))
        top.write_text(text + source)
        options = kconfiglib.Kconfig(str(top), warn_to_stderr=False)
    undefined = [s.name for s in options.syms.values() if not s.nodes and s.name.startswith("BR2_")]
    assert not options.warnings and not undefined, (options.warnings, undefined)
    for name, value in values.items():
        options.syms[name].set_value(value)
    return {name: symbol.str_value for name, symbol in options.syms.items()}


def buildroot_options_parse_and_select_what_is_needed():
    chosen = buildroot_options({"BR2_PACKAGE_QT6": "y", "BR2_PACKAGE_RAWIFICONTROL": "y"})
    for name in ("RAWIFICONTROL", "RAWIFICONTROL_DEVICE", "NETTLE", "QT6BASE_WIDGETS", "WPA_SUPPLICANT_CLI"):
        assert chosen["BR2_PACKAGE_" + name] == "y", name


def buildroot_package_cannot_be_chosen_without_the_toolkit():
    chosen = buildroot_options({"BR2_PACKAGE_RAWIFICONTROL": "y"})
    assert chosen["BR2_PACKAGE_RAWIFICONTROL"] == "n"


def buildroot_make(tool, *settings):
    """What make itself reads in the package's file, with the package macro left out."""
    show = f"cmake-package =\ninclude {BUILDROOT}/package/rawificontrol/rawificontrol.mk\n{tool}\n"
    shown = subprocess.run(["make", "--no-print-directory", "-s", "-f", "-", "show", *settings,
                            f"BR2_EXTERNAL_RAWIFICONTROL_PATH={BUILDROOT}"],
                           input=show, text=True, capture_output=True)
    assert shown.returncode == 0 and not shown.stderr, shown.stderr
    return shown.stdout


def buildroot_makefile_parses():
    shown = buildroot_make("show:\n\t@echo '$(RAWIFICONTROL_VERSION)|$(realpath $(RAWIFICONTROL_SITE))"
                           "|$(RAWIFICONTROL_CONF_OPTS)|$(RAWIFICONTROL_POST_INSTALL_TARGET_HOOKS)'")
    version, site, options, hooks = shown.strip().split("|")
    assert version == VERSION, version
    assert site == str(ROOT), site
    assert options.split()[0] == "-DRAWIFI_QT=6" and "-DRAWIFI_BUILD_EXAMPLES=OFF" in options, options
    assert hooks == "", hooks


def buildroot_hook_installs_the_device_component():
    with tempfile.TemporaryDirectory() as image:
        buildroot_make("show:\n\t$($(RAWIFICONTROL_POST_INSTALL_TARGET_HOOKS)) --prefix /usr >/dev/null",
                       "BR2_PACKAGE_RAWIFICONTROL_DEVICE=y", "BR2_CMAKE=cmake", f"RAWIFICONTROL_BUILDDIR={BUILD}",
                       f"TARGET_DIR={image}")
        files = {"/" + str(path.relative_to(image)) for path in pathlib.Path(image).rglob("*") if not path.is_dir()}
    assert files and files == installed("--component", "device"), files


def main():
    checks = [value for name, value in globals().items() if name.startswith(("recipe_", "buildroot_"))
              and value.__code__.co_argcount == 0]
    failed = 0
    for check in checks:
        name = check.__name__.replace("_", " ")
        try:
            check()
            print(f"ok: {name}")
        except (AssertionError, ValueError, KeyError, kconfiglib.KconfigError, subprocess.CalledProcessError) as error:
            failed += 1
            print(f"FAIL: {name}: {error}")
    print(f"{len(checks) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
