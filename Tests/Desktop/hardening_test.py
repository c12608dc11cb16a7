"""How the program that ships is protected, read off its file and the commands that compiled it."""

import json
import os
import re
import subprocess
import unittest
from pathlib import Path

PROGRAM = Path(os.environ["VEXORA_STAGE"], "vexora-one-click-installer")
SOURCE = Path(os.environ["VEXORA_SOURCE"])


def read(*options):
    return subprocess.run(["readelf", "--wide", *options, PROGRAM], check=True, text=True, stdout=subprocess.PIPE,
                          env={**os.environ, "LC_ALL": "C"}).stdout


class HardeningTest(unittest.TestCase):
    """Each protection by the trace that it leaves."""

    def test_program_may_lie_anywhere_in_memory(self):
        self.assertRegex(read("--file-header"), r"Type:\s+DYN ")
        self.assertRegex(read("--dynamic"), r"\(FLAGS_1\).*\bPIE\b")

    def test_table_of_functions_is_complete_and_read_only_from_the_start(self):
        self.assertRegex(read("--dynamic"), r"\(FLAGS_1\).*\bNOW\b")
        self.assertRegex(read("--program-headers"), r"GNU_RELRO\s")

    def test_stack_holds_no_code(self):
        self.assertRegex(read("--program-headers"), r"GNU_STACK\s+(0x\w+\s+){5}RW\s")

    def test_no_memory_is_writable_and_executable(self):
        self.assertNotRegex(read("--program-headers"), r"LOAD\s+(0x\w+\s+){5}RWE")

    def test_libraries_come_from_the_system_alone(self):
        self.assertNotRegex(read("--dynamic"), r"\((RPATH|RUNPATH)\)")

    def test_stack_functions_and_containers_are_checked(self):
        wanted = re.findall(r" UND (\w+)", read("--dyn-syms"))
        for function in (r"__stack_chk_fail", r"__\w+_chk", r"_ZSt\d+__glibcxx_assert_fail\w*"):
            self.assertTrue([name for name in wanted if re.fullmatch(function, name)], function)

    def test_every_source_is_compiled_so(self):
        commands = json.loads(Path(os.environ["VEXORA_BUILD"], "compile_commands.json").read_text("utf-8"))
        ours = [command["command"].split() for command in commands
                if Path(command["file"]).is_relative_to(SOURCE / "Source")
                or Path(command["file"]).is_relative_to(SOURCE / "vxlocal")]
        self.assertGreater(len(ours), 20)
        for words in ours:
            self.assertLessEqual({"-fstack-protector-strong", "-fstack-clash-protection", "-D_FORTIFY_SOURCE=3",
                                  "-D_GLIBCXX_ASSERTIONS"}, set(words))
            self.assertTrue({"-O1", "-O2", "-O3", "-Os"} & set(words))
            self.assertTrue({"-fPIE", "-fPIC"} & set(words))
