#!/usr/bin/env python3
"""Reads the #include lines below a source folder and fails on an arrow that points up.

usage: check_includes.py <path of Mireval_Mac>
"""

import posixpath
import re
import sys
from pathlib import Path

SUFFIXES = {".h", ".hpp", ".cpp", ".c", ".cc", ".inc", ".in"}

# The one class that may know every room of its system.
LINUX_DESKTOP = {
    "platform", "platform/qt", "platform/linux/audio", "platform/linux/bus", "platform/linux/instance",
    "platform/linux/media", "platform/linux/memory", "platform/linux/settings", "platform/linux/tray",
    "platform/linux/wayland", "platform/linux/windows", "platform/linux/LinuxDesktop.h",
}

# What a file of each floor or room may include of ours. A file belongs to the longest of these that begins its
# path. The rooms of a service do not know each other.
ALLOWED = {
    "platform": {"platform"},
    "platform/qt": {"platform", "platform/qt"},
    "platform/linux/audio": {"platform", "platform/qt", "platform/linux/audio", "platform/linux/posix"},
    "platform/linux/bus": {"platform/linux/bus"},
    "platform/linux/instance": {"platform/linux/bus", "platform/linux/instance", "platform/linux/posix"},
    "platform/linux/media": {"platform", "platform/linux/bus", "platform/linux/media"},
    "platform/linux/memory": {"platform", "platform/linux/memory", "platform/linux/posix"},
    "platform/linux/posix": {"platform/linux/posix"},
    "platform/linux/settings": {"platform", "platform/qt", "platform/linux/bus", "platform/linux/settings"},
    "platform/linux/tray": {"platform", "platform/linux/bus", "platform/linux/tray", "platform/linux/x11"},
    "platform/linux/wayland": {"platform/linux/posix", "platform/linux/wayland"},
    "platform/linux/windows": {"platform", "platform/linux/posix", "platform/linux/wayland", "platform/linux/windows",
                               "platform/linux/x11"},
    "platform/linux/x11": {"platform/linux/x11"},
    "platform/linux/LinuxDesktop.h": LINUX_DESKTOP,
    "platform/linux/LinuxDesktop.cpp": LINUX_DESKTOP,
    "library": {"library"},
    "playback": {"library", "platform", "playback"},
    "localization": {"library", "platform", "localization"},
    "ui": {"library", "playback", "localization", "platform", "ui"},
    "main.cpp": {"ui"},
}

# The wiring: the only file above the platform that may name a system.
WIRING = "ui/MirevalMacApp.cpp"

STANDARD_HEADERS = set(
    """
    algorithm any array atomic barrier bit bitset cassert cctype cerrno cfenv cfloat charconv chrono
    cinttypes climits clocale cmath codecvt compare complex concepts condition_variable coroutine csetjmp
    csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque exception
    execution filesystem format forward_list fstream functional future initializer_list iomanip ios iosfwd
    iostream istream iterator latch limits list locale map memory memory_resource mutex new numbers
    numeric optional ostream queue random ranges ratio regex scoped_allocator semaphore set shared_mutex
    source_location span sstream stack stdexcept stop_token streambuf string string_view strstream
    syncstream system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set
    utility valarray variant vector version
    """.split()
)

# Values, and what declares them to the meta-object system; nothing that has an event loop or does I/O.
QT_VALUE_HEADERS = set(
    """
    QByteArray QByteArrayView QFlags QHash QHashFunctions QLatin1String QLatin1StringView QList QMap QMetaType
    QObject QPair QRandomGenerator QRandomGenerator64 QSet QString QStringList QStringLiteral QStringView
    QStringBuilder QUuid QVariant QVector QtGlobal QtTypes
    """.split()
)

# The result of a call that may fail, which every floor above the library may use.
RESULT_HEADER = "tl/expected.hpp"

# The interfaces of the platform speak of no system.
PORTABLE_QT = re.compile(r"Q\w+$")
NOT_PORTABLE_QT = re.compile(r"(Qt?DBus|QX11|QNative|QSocketNotifier|QLocalSocket|QLocalServer)")

INCLUDE = re.compile(r'^\s*#\s*include\s*(?:"([^"]+)"|<([^>]+)>)')
BLOCK_COMMENT = re.compile(r"/\*.*?\*/", re.DOTALL)


def floor_of(path):
    """The floor that a path relative to the source folder belongs to, or None."""
    candidates = [floor for floor in ALLOWED if path == floor or path.startswith(floor + "/")]
    return max(candidates, key=len, default=None)


def includes_of(file):
    text = BLOCK_COMMENT.sub(lambda match: "\n" * match[0].count("\n"), file.read_text(encoding="utf-8"))
    for number, line in enumerate(text.splitlines(), start=1):
        if match := INCLUDE.match(line):
            yield number, match[1] or match[2], match[1] is not None


def ours(root, path, name, quoted):
    """The included path relative to the source folder if the file is ours, else None."""
    if (root / name).is_file():
        return posixpath.normpath(name)
    if quoted:
        beside = posixpath.normpath(posixpath.join(posixpath.dirname(path), name))
        if not beside.startswith("..") and (root / beside).is_file():
            return beside
    # Not there (generated, or gone): its path still says where it belongs.
    return posixpath.normpath(name) if floor_of(posixpath.normpath(name)) else None


def fault_of_ours(path, floor, target):
    target_floor = floor_of(target)
    if target_floor is None:
        return "belongs to no floor"
    if target_floor in ALLOWED[floor]:
        return None
    if target_floor == "platform/linux/LinuxDesktop.h" and path == WIRING:
        return None
    return f"{floor} may not know {target_floor}" if floor != "ui" else (
        "only the wiring in ui/MirevalMacApp.cpp may name a system, and only as a whole")


def fault_of_foreign(path, floor, name):
    if floor == "library":
        if name not in STANDARD_HEADERS and name not in QT_VALUE_HEADERS:
            return "library knows only the standard library and Qt's value types"
    if floor == "platform" and name not in STANDARD_HEADERS | {RESULT_HEADER}:
        if not PORTABLE_QT.match(name) or NOT_PORTABLE_QT.match(name):
            return "an interface of the platform must not know a system"
    return None


def check(root):
    """The faults below `root` as text, one per include, and how many includes were read."""
    faults = []
    count = 0
    for file in sorted(root.rglob("*")):
        if file.suffix not in SUFFIXES or not file.is_file():
            continue
        path = file.relative_to(root).as_posix()
        floor = floor_of(path)
        if floor is None:
            faults.append(f"{path}: belongs to no floor")
            continue
        for number, name, quoted in includes_of(file):
            count += 1
            target = ours(root, path, name, quoted)
            if target is not None:
                fault = fault_of_ours(path, floor, target)
            elif quoted and not name.endswith(".moc"):
                fault = "not found; name our files from the source folder on"
            else:
                fault = fault_of_foreign(path, floor, name)
            if fault:
                faults.append(f"{path}:{number}: {name}: {fault}")
    return faults, count


def main(arguments):
    if len(arguments) != 2 or not Path(arguments[1]).is_dir():
        print(__doc__, file=sys.stderr)
        return 2
    faults, count = check(Path(arguments[1]))
    for fault in faults:
        print(fault, file=sys.stderr)
    # An empty tree must not pass for a clean one.
    if count == 0:
        print("no #include line was found", file=sys.stderr)
        return 1
    print(f"{count} includes, {len(faults)} faults")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv))
