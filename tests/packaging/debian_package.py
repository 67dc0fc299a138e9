"""Looks into a Debian package."""

import io
import subprocess
import tarfile


def _output(*command):
    return subprocess.run(command, capture_output=True, check=True, timeout=120).stdout


class DebianPackage:
    def __init__(self, path):
        self.path = path

    def field(self, name):
        return _output("dpkg-deb", "--field", self.path, name).decode().strip()

    def relations(self, name):
        """The entries of a field such as Depends, without versions: a list of alternatives for each."""
        return [[alternative.split()[0] for alternative in entry.split("|")] for entry in self.field(name).split(",")]

    def files(self):
        """What is installed: an open archive, with names like "./usr/bin/mireval"."""
        return tarfile.open(fileobj=io.BytesIO(_output("dpkg-deb", "--fsys-tarfile", self.path)))

    def control(self):
        """What tells the package manager about it: an open archive."""
        return tarfile.open(fileobj=io.BytesIO(_output("dpkg-deb", "--ctrl-tarfile", self.path)))


def _members(archive):
    """A list of name, metadata and content, in the archive's order."""
    with archive:
        return [(member.name, (oct(member.mode), member.type, member.mtime, member.uname, member.gname,
                               member.linkname),
                 archive.extractfile(member).read() if member.isfile() else None) for member in archive]


def _archive_differences(one, other):
    one, other = _members(one), _members(other)
    by_name = {name: (metadata, content) for name, metadata, content in other}
    differences = []
    for name, metadata, content in one:
        other_metadata, other_content = by_name.pop(name, (None, None))
        if other_metadata is None:
            differences.append(f"{name} is only in the first")
        elif content != other_content:
            differences.append(f"{name} has another content")
        elif metadata != other_metadata:
            differences.append(f"{name}: {metadata} became {other_metadata}")
    differences += [f"{name} is only in the second" for name in by_name]
    if not differences and [member[0] for member in one] != [member[0] for member in other]:
        differences.append("the files are in another order")
    return differences


def differences(one, other):
    """What tells two packages apart, a line for each file; nothing if they are the same byte for byte."""
    if one.path.read_bytes() == other.path.read_bytes():
        return []
    return (_archive_differences(one.control(), other.control()) + _archive_differences(one.files(), other.files())
            or ["only the compression or the outer archive differs"])
