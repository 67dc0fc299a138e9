"""Lets strace write down what a program asks of the kernel, and names what it should not have asked."""

import re

# All that take a file's name, and what else opens a socket, changes a file or avoids being traced. The question mark is
# for those that some processors do not have.
TRACED = "%file,socket,connect,bind,fchmod,fchown,fsetxattr,fremovexattr,?io_uring_setup"
# They change nothing.
READING = {"access", "chdir", "faccessat", "faccessat2", "fstatat64", "getcwd", "getxattr", "inotify_add_watch",
           "lgetxattr", "listxattr", "llistxattr", "lstat", "newfstatat", "readlink", "readlinkat", "stat", "statfs",
           "statx"}
OPENING = {"open", "openat", "openat2", "creat"}
FOR_WRITING = re.compile(r"\bO_(WRONLY|RDWR|CREAT|TRUNC|APPEND)\b")
CALL = re.compile(r"(\w+)\((.*)\) += (\S+)(?: (E[A-Z]+))?")
QUOTED = re.compile(r'(@?)"([^"]*)"')


def _names(arguments):
    """The names among a call's arguments. Those of sockets that are no files begin with @."""
    return [at + name for at, name in QUOTED.findall(arguments)]


class SystemCalls:
    """The calls of a program and of all its threads and children."""

    def __init__(self, folder):
        """`folder` must exist, and be empty."""
        self._folder = folder

    def command(self, *command):
        """The command that runs another one and traces it."""
        # A file for each thread: in a common one, their calls would interrupt each other.
        return ["strace", "--follow-forks", "--output-separately", "--seccomp-bpf", f"--trace={TRACED}",
                f"--output={self._folder / 'trace'}", *command]

    def all(self):
        """Name, arguments, result and, if it failed, the error of each call, in no particular order of the threads."""
        # While the program runs, a last line may be unfinished.
        lines = [line for file in sorted(self._folder.iterdir())
                 for line in file.read_text(encoding="utf-8").rpartition("\n")[0].splitlines()]
        calls = []
        for line in lines:
            if line.startswith(("+++ ", "--- ")):
                continue
            call = CALL.match(line)
            assert call, line
            calls.append(call.groups())
        assert calls, "nothing was traced"
        return calls

    def opened(self):
        """The files that were opened, whatever for."""
        return {_names(arguments)[0] for name, arguments, _, error in self.all()
                if name in OPENING and not error}

    def connected(self):
        """The names of the sockets that were connected."""
        return {_names(arguments)[0] for name, arguments, _, error in self.all()
                if name == "connect" and not error and "AF_UNIX" in arguments}

    def faults(self, *, program, sockets=(), own_sockets=(), written=()):
        """The calls that should not have been, as strace writes them; calls that failed count, too.

        `program` alone may be executed, once. Regular expressions say, for the whole name, which sockets it may connect
        to, which ones it may offer and remove, and which files and folders it may create or open for writing.
        """
        def is_one_of(expressions, text):
            names = _names(text)
            return len(names) == 1 and any(re.fullmatch(expression, names[0]) for expression in expressions)

        def is_harmless(name, arguments, error):
            if name in OPENING:
                return (name != "creat" and not FOR_WRITING.search(arguments)) or is_one_of(written, arguments)
            if name == "socket":
                return arguments.startswith("AF_UNIX,")
            if name == "connect":
                return arguments.partition("{")[2].startswith("sa_family=AF_UNIX,") and is_one_of(sockets, arguments)
            if name in ("bind", "unlink", "unlinkat"):
                return is_one_of(own_sockets, arguments)
            if name in ("mkdir", "mkdirat"):
                # Libraries make sure of folders that exist.
                return error == "EEXIST" or is_one_of(written, arguments)
            return name in READING

        calls = self.all()
        executed = [call for call in calls if call[0] in ("execve", "execveat")]
        faults = [call for call in executed if not call[1].startswith(f'"{program}", ')] or executed[1:]
        faults += [call for call in calls if call not in executed and not is_harmless(call[0], call[1], call[3])]
        return [f"{name}({arguments}) = {result}" + (f" {error}" if error else "")
                for name, arguments, result, error in faults]
