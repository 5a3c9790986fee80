"""The native tests, each in a process of its own, as ctest runs them."""

import os
import shutil
import signal
import subprocess
import tempfile
import time
from dataclasses import dataclass
from pathlib import Path

from mirror import BUILD

SCRATCH = Path("build/mutation/scratch")


@dataclass(frozen=True)
class Test:
    program: str
    name: str

    @property
    def slow(self) -> bool:
        """Tells a test that really waits, as for a heartbeat."""
        return self.name.startswith("Slow")

    def __str__(self) -> str:
        return f"{self.program}:{self.name}"


@dataclass
class Outcome:
    passed: bool
    seconds: float
    output: str


def _path(program: str) -> str:
    return str((BUILD / "bin" / program).resolve())


def list_tests(program: str) -> list[Test]:
    command = [_path(program), "--gtest_list_tests"]
    listed = subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout
    tests = []
    suite = ""
    for line in listed.splitlines():
        name = line.split("#")[0].rstrip()
        if line.startswith("  "):
            tests.append(Test(program, suite + name.strip()))
        elif name.endswith("."):
            suite = name
    return tests


def _end_group(process: "subprocess.Popen[bytes]") -> None:
    """Ends the test and the processes that it started, if they still run."""
    try:
        os.killpg(process.pid, signal.SIGKILL)
    except ProcessLookupError:
        pass


def run(test: Test, variables: dict[str, str], limit: float) -> Outcome:
    """Runs the test in a new folder. One that takes longer than `limit` seconds has failed."""
    SCRATCH.mkdir(parents=True, exist_ok=True)
    folder = tempfile.mkdtemp(dir=SCRATCH.resolve())
    command = [_path(test.program), f"--gtest_filter={test.name}", "--gtest_brief=1"]
    environment = {**os.environ, "TMPDIR": folder, **variables}
    start = time.monotonic()
    with open(Path(folder, "output.txt"), "w+", encoding="utf-8", errors="replace") as output:
        process = subprocess.Popen(
            command,
            cwd=folder,
            env=environment,
            stdout=output,
            stderr=output,
            start_new_session=True,
        )
        try:
            passed = process.wait(limit) == 0
        except subprocess.TimeoutExpired:
            passed = False
        seconds = time.monotonic() - start
        _end_group(process)
        process.wait()
        output.seek(0)
        text = "" if passed else output.read(20000)
    shutil.rmtree(folder, ignore_errors=True)
    return Outcome(passed, seconds, text)
