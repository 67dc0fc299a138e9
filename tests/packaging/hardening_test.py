"""Checks how the program and its module are protected, and shows on small programs that each check can fail."""

import os
import subprocess
import tempfile
import unittest
from pathlib import Path

from elf_file import ElfFile

MODULE = Path(os.environ["MIREVAL_BUILD"], "libmireval-audio.so")
PROGRAM = Path(os.environ["MIREVAL_PROGRAM"])
COMPILER = os.environ["CXX"]
ON_ARM = os.uname().machine == "aarch64"
CONTROL_FLOW = "-mbranch-protection=standard" if ON_ARM else "-fcf-protection=full"
NO_CONTROL_FLOW = "-mbranch-protection=none" if ON_ARM else "-fcf-protection=none"
PROTECTED = ("-g", "-O2", "-fPIE", "-pie", "-fstack-protector-strong", CONTROL_FLOW, "-D_FORTIFY_SOURCE=2",
             "-Wl,-z,relro,-z,now,-z,noexecstack")
# A call through a pointer that is kept in the data, and a buffer to protect.
SOURCE = """
#include <cstring>
int length(const char* text) { char copy[64]; std::strcpy(copy, text); return copy[0]; }
int (*volatile called)(const char*) = length;
int main(int, char** arguments) { return called(arguments[0]); }
"""
# The option that takes one protection away, and the faults that it leaves.
UNPROTECTED = (
    (["-fno-pie", "-no-pie"], ["position", "control flow"], []),
    (["-Wl,-z,norelro"], ["relro"], []),
    (["-Wl,-z,lazy"], ["relro"], []),
    (["-Wl,-z,execstack"], ["stack"], []),
    (["-fno-stack-protector"], ["stack protector"], ["stack protector"]),
    ([NO_CONTROL_FLOW], ["control flow"], ["control flow"]),
    (["-Wl,-rpath,/nowhere"], ["search path"], []),
    (["-Wl,-rpath,/nowhere,--disable-new-dtags"], ["search path"], []),
    (["-rdynamic"], ["exports"], []),
)


class SmallProgramsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="mireval-hardening-")
        self.addCleanup(folder.cleanup)
        self.folder = Path(folder.name)

    def build(self, source, *options):
        program = self.folder / "program"
        subprocess.run([COMPILER, "-x", "c++", "-", "-o", program, *options], input=source, text=True, check=True,
                       timeout=60)
        return ElfFile(program)

    def test_a_protected_program_has_no_fault(self):
        program = self.build(SOURCE, *PROTECTED)
        self.assertEqual(program.faults([], is_program=True), [])
        self.assertEqual(program.faults_of_units(), [])
        self.assertTrue(program.is_fortified())
        self.assertIn("__strcpy_chk", program.imports())

    def test_checks_that_are_missing_are_seen(self):
        program = self.build(SOURCE, *PROTECTED, "-U_FORTIFY_SOURCE")
        self.assertFalse(program.is_fortified())
        self.assertNotIn("__strcpy_chk", program.imports())

    def test_each_protection_that_is_missing_is_a_fault(self):
        for options, faults, faults_of_units in UNPROTECTED:
            with self.subTest(options=options):
                program = self.build(SOURCE, *PROTECTED, *options)
                self.assertEqual(program.faults([], is_program=True), faults)
                self.assertEqual(program.faults_of_units(), faults_of_units)

    def test_one_unit_without_an_option_is_a_fault(self):
        unit = self.folder / "unit.o"
        subprocess.run([COMPILER, "-x", "c++", "-", "-c", "-o", unit, *PROTECTED[:3]], input="int other;",
                       text=True, check=True, timeout=60)
        program = self.build(SOURCE, *PROTECTED, "-x", "none", str(unit))
        self.assertEqual(program.faults_of_units(), ["stack protector", "control flow"])

    def test_code_that_changes_when_it_is_loaded_is_a_fault(self):
        source = SOURCE + 'asm(".text\\n.quad called\\n");'
        program = self.build(source, *PROTECTED, "-Wl,-z,notext")
        self.assertEqual(program.faults([], is_program=True), ["text relocations"])

    def test_a_copy_of_a_library_s_variable_is_a_fault(self):
        program = self.build(SOURCE + 'extern "C" char** environ; char** copy() { return environ; }', *PROTECTED)
        self.assertEqual(program.faults([], is_program=True), ["copied variables", "exports"])

    def test_a_shared_object_is_no_program(self):
        module = self.build(SOURCE.replace("int main", 'extern "C" int run'), *PROTECTED[:2], "-fPIC", "-shared",
                            "-fvisibility=hidden", *PROTECTED[4:])
        self.assertEqual(module.faults([], is_program=False), [])
        self.assertEqual(module.faults(["run"], is_program=True), ["position", "exports"])


class ProgramTest(unittest.TestCase):
    def test_the_program(self):
        program = ElfFile(PROGRAM)
        self.assertEqual(program.faults([], is_program=True), [])
        self.assertEqual(program.faults_of_units(), [])
        self.assertTrue(program.is_fortified())

    def test_the_module(self):
        # Its own code calls none of the functions that have a checked variant.
        module = ElfFile(MODULE)
        self.assertEqual(module.faults(["mirevalMakeAudioPlayerFactory"], is_program=False), [])
        self.assertEqual(module.faults_of_units(), [])
