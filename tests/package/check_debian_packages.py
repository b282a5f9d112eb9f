"""Checks Debian packages and unpacks them into one empty folder: check_debian_packages.py PACKAGES INSTALLED VERSION ROOT

PACKAGES is the folder with the .deb files, INSTALLED what "cmake --install" gives, VERSION the project's, ROOT the folder to
make. Entry point: main; PACKAGES_WANTED and PLACES say what is expected.
"""
import re
import shutil
import subprocess
import sys
from pathlib import Path

LIBRARY = "libtesselmxf0.1"
# Section and dependencies by package; {version} is that of the package.
PACKAGES_WANTED = {
    LIBRARY: ("libs", ["libc6", "libstdc++6", "libxerces-c3.2", "libxqilla6v5"]),
    "libtesselmxf-dev": ("libdevel", [LIBRARY + " (= {version})"]),
    "mxf-metadict": ("video", [LIBRARY + " (= {version})", "libc6"]),
    "tesselmxf-schemas": ("misc", []),
}
# Which package has which files; the first pattern that matches counts.
PLACES = [
    (r"usr/share/doc/([^/]+)/(copyright|changelog(\.Debian)?\.gz)", None),  # the package that the folder is named after
    (r"usr/lib/.*\.so\.[0-9.]+", LIBRARY),
    (r"usr/(include/TesselMXF/.*\.h|lib/.*\.(so|cmake|pc))", "libtesselmxf-dev"),
    (r"usr/(bin/mxf-metadict|share/man/man1/mxf-metadict\.1\.gz|share/bash-completion/completions/mxf-metadict)",
     "mxf-metadict"),
    (r"usr/share/tesselmxf/schemas/.*\.xsd", "tesselmxf-schemas"),
    (r"usr/share/doc/TesselMXF/docs/[a-z.-]+", "mxf-metadict"),
    (r"usr/share/doc/TesselMXF/((docs/guide|examples)/.*|[A-Z]+\.md)", "libtesselmxf-dev"),
]
DOCUMENTS = {"copyright", "changelog.gz", "changelog.Debian.gz"}


def deb(*arguments):
    return subprocess.run(["dpkg-deb", *map(str, arguments)], check=True, capture_output=True, text=True).stdout


def field(package, name):
    return deb("--field", package, name).strip()


def files_of(folder):
    return {path.relative_to(folder).as_posix() for path in folder.rglob("*") if path.is_symlink() or path.is_file()}


def owner(file):
    for pattern, package in PLACES:
        if match := re.fullmatch(pattern, file):
            return package or match[1]
    return None


def control_faults(name, package, version):
    section, dependencies = PACKAGES_WANTED[name]
    if field(package, "Section") != section:
        yield f"{name}: section {field(package, 'Section')}, not {section}"
    full_version = field(package, "Version")
    if not re.fullmatch(re.escape(version) + r"-\d+", full_version):
        yield f"{name}: version {full_version} for {version}"
    summary, *text = field(package, "Description").splitlines()
    if len(summary) > 80 or not text:
        yield f"{name}: needs a summary of one short line, and a description"
    depends = field(package, "Depends").split(", ")
    for wanted in (text.format(version=full_version) for text in dependencies):
        if not any(found == wanted or found.startswith(wanted + " (") for found in depends):
            yield f"{name}: does not depend on {wanted}, but on {depends}"


def file_faults(name, files):
    for file in sorted(files):
        if owner(file) != name:
            yield f"{name}: has {file}, which belongs to {owner(file)}"
    if missing := DOCUMENTS - {Path(file).name for file in files}:
        yield f"{name}: lacks {sorted(missing)}"


def left_out(installed, packaged):
    """What is installed and in no package; a package has the licence as its copyright, and the manual compressed."""
    for file in sorted(files_of(installed)):
        if Path(file).name != "LICENSE" and not {f"usr/{file}", f"usr/{file}.gz"} & packaged:
            yield f"{file} is installed and in no package"


def main():
    packages, installed, version, root = Path(sys.argv[1]), Path(sys.argv[2]), sys.argv[3], Path(sys.argv[4])
    shutil.rmtree(root, ignore_errors=True)
    faults, owners = [], {}
    found = {field(package, "Package"): package for package in packages.glob("*.deb")}
    if set(found) != set(PACKAGES_WANTED):
        faults.append(f"packages are {sorted(found)}")
    for name, package in sorted(found.items()):
        folder = root.with_name(root.name + "-" + name)
        shutil.rmtree(folder, ignore_errors=True)
        deb("--extract", package, folder)
        deb("--extract", package, root)
        files = files_of(folder)
        faults += [f"{file} is in {owners[file]} and {name}" for file in sorted(files & owners.keys())]
        owners.update(dict.fromkeys(files, name))
        if name in PACKAGES_WANTED:
            faults += [*control_faults(name, package, version), *file_faults(name, files)]
    faults += left_out(installed, owners.keys())
    sys.exit("\n".join(faults) or None)


if __name__ == "__main__":
    main()
