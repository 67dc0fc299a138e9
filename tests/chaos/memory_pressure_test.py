"""The soak must know when the player was told to drop its covers."""

import tempfile
import unittest
from pathlib import Path

from memory_pressure import MemoryPressure


class MemoryPressureTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.file = Path(folder.name, "memory")

    def wait_for_memory(self, microseconds):
        self.file.write_text(f"some avg10=0.00 avg60=1.43 avg300=2.84 total={microseconds}\n"
                             "full avg10=0.00 avg60=0.05 avg300=0.54 total=7\n")

    def test_a_long_wait_is_felt_once(self):
        self.wait_for_memory(23_000_000)
        pressure = MemoryPressure(self.file)
        self.assertFalse(pressure.was_felt())
        self.wait_for_memory(23_120_000)
        self.assertTrue(pressure.was_felt())
        self.assertFalse(pressure.was_felt())

    def test_a_short_wait_is_not_felt(self):
        self.wait_for_memory(23_000_000)
        pressure = MemoryPressure(self.file)
        self.wait_for_memory(23_050_000)
        self.assertFalse(pressure.was_felt())

    def test_a_kernel_that_tells_nobody_has_no_pressure(self):
        pressure = MemoryPressure(self.file)
        self.assertFalse(pressure.was_felt())


if __name__ == "__main__":
    unittest.main()
