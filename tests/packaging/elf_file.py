"""Reads from a program or a shared object how it is protected, with the tools of binutils."""

import re
import subprocess

# The instructions at which a protected function of x86-64 or arm64 begins.
LANDING_PADS = {"endbr64", "bti", "paciasp"}
# What the linker itself defines.
LINKER_SYMBOLS = {"__bss_start", "_edata", "_end", "_fini", "_init"}
# By the fault: the compiler's options of that kind, of which the last one counts, and the values that protect.
UNIT_OPTIONS = {
    "stack protector": (r"-f(?:no-)?stack-protector\S*", {"-fstack-protector-strong"}),
    "control flow": (r"-fcf-protection\S*|-mbranch-protection\S*",
                     {"-fcf-protection=full", "-mbranch-protection=standard"}),
}


def _output(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True, timeout=120,
                          env={"LC_ALL": "C", "PATH": "/usr/bin:/bin"}).stdout


class ElfFile:
    def __init__(self, path):
        self._path = path
        self._header = _output("readelf", "--wide", "--file-header", path)
        self._segments = _output("readelf", "--wide", "--segments", path)
        self._dynamic = _output("readelf", "--wide", "--dynamic", path)
        self._relocations = _output("readelf", "--wide", "--relocs", path)
        # Number, value, size, type, binding, visibility, section, name and perhaps a version.
        self._symbols = [line.split() for line in _output("readelf", "--wide", "--dyn-syms", path).splitlines()
                         if re.match(r" +\d+: ", line)]

    def imports(self):
        return {symbol[7].partition("@")[0] for symbol in self._symbols if len(symbol) > 7 and symbol[6] == "UND"}

    def exports(self):
        """The names that it defines for others, without those of the linker."""
        return {symbol[7].partition("@")[0] for symbol in self._symbols
                if len(symbol) > 7 and symbol[6] != "UND"} - LINKER_SYMBOLS

    def _has_landing_pads(self):
        """Whether each function whose address is stored, so that it can be called through a pointer, begins with the
        instruction that permits that. Without such functions nothing is shown, and the answer is no.
        """
        instructions = {int(address, 16): name for address, name in re.findall(
            r"^ +([0-9a-f]+):\t(\S+)", _output("objdump", "--disassemble", "--no-show-raw-insn", self._path), re.M)}
        stored = {int(address, 16) for address in re.findall(r"_RELATIVE +([0-9a-f]+)$", self._relocations, re.M)}
        functions = stored & instructions.keys()
        return bool(functions) and all(instructions[address] in LANDING_PADS for address in functions)

    def faults(self, exports, *, is_program):
        """What a hardened file must not be: a list of short names. `exports` are the symbols that it should define."""
        segments = {line.split()[0]: line for line in self._segments.splitlines() if line.startswith("  GNU_")}
        found = {
            "position": not re.search(r"Type: +DYN ", self._header)
            or is_program and not re.search(r"\(FLAGS_1\).*\bPIE\b", self._dynamic),
            "relro": "GNU_RELRO" not in segments or not re.search(r"\bBIND_NOW\b", self._dynamic),
            "stack": not re.search(r" RW +0x", segments.get("GNU_STACK", "")),
            "stack protector": "__stack_chk_fail" not in self.imports(),
            "control flow": not self._has_landing_pads(),
            "search path": bool(re.search(r"\(R(UN)?PATH\)", self._dynamic)),
            "text relocations": "TEXTREL" in self._dynamic,
            "copied variables": bool(re.search(r"\bR_\w+_COPY\b", self._relocations)),
            "exports": self.exports() != set(exports),
        }
        return [name for name, is_fault in found.items() if is_fault]

    def faults_of_units(self):
        """Which options some unit of an unstripped file was compiled without."""
        units = re.findall(r"DW_AT_producer.*: (GNU C.*)",
                           _output("readelf", "--wide", "--debug-dump=info", "--dwarf-depth=1", self._path))
        assert units, f"{self._path} has no debug information"
        missing = []
        for fault, (kind, protecting) in UNIT_OPTIONS.items():
            given = [re.findall(kind, unit) for unit in units]
            if not all(options and options[-1] in protecting for options in given):
                missing.append(fault)
        return missing

    def is_fortified(self):
        """Whether an unstripped file uses the C library's header that replaces memcpy and its kin by checked variants.
        The compiler removes each check that it can make itself, so the variants need not be among the imports.
        """
        return "string_fortified.h" in _output("readelf", "--string-dump=.debug_line_str", self._path)
