"""Finds out which mutants each test reaches, and how long it takes, by a run without mutants."""

import json
from concurrent.futures import ThreadPoolExecutor
from dataclasses import asdict, dataclass
from pathlib import Path

from mirror import BUILD
from native_tests import Test, list_tests, run

_RESULT = Path("build/mutation/reach.json")
_NUMBERS = Path("build/mutation/reached")
_LIMIT = 120.0


class UnmutatedTestFailed(Exception):
    pass


@dataclass
class Reach:
    test: Test
    seconds: float
    mutants: list[int]


def _run(item: tuple[int, Test]) -> Reach:
    index, test = item
    numbers = (_NUMBERS / str(index)).resolve()
    outcome = run(test, {"VELA_MUTANTS_REACHED": str(numbers)}, _LIMIT)
    if not outcome.passed:
        raise UnmutatedTestFailed(f"{test} failed without a mutant\n{outcome.output}")
    reached = numbers.read_text().split() if numbers.exists() else []
    return Reach(test, outcome.seconds, sorted({int(number) for number in reached}))


def _run_all(programs: list[str], jobs: int) -> list[Reach]:
    tests = [test for program in programs for test in list_tests(program)]
    _NUMBERS.mkdir(parents=True, exist_ok=True)
    for old in _NUMBERS.iterdir():
        old.unlink()
    with ThreadPoolExecutor(jobs) as pool:
        return list(pool.map(_run, enumerate(tests)))


def measure(programs: list[str], jobs: int) -> list[Reach]:
    """Returns the last measurement, or a new one when a program has been built since."""
    stamp = [(BUILD / "bin" / program).stat().st_mtime_ns for program in programs]
    if _RESULT.exists():
        kept = json.loads(_RESULT.read_text())
        if kept["stamp"] == stamp:
            return [Reach(Test(**reach.pop("test")), **reach) for reach in kept["tests"]]
    reaches = _run_all(programs, jobs)
    _RESULT.write_text(json.dumps({"stamp": stamp, "tests": [asdict(reach) for reach in reaches]}))
    return reaches
