"""Judges mutants: a mutant is caught by the first test that fails with it."""

import queue
import random
import threading
import time
from collections import defaultdict
from dataclasses import dataclass
from pathlib import Path

import native_tests
from mutants import Mutant
from native_tests import Test
from reach import Reach


@dataclass
class Verdict:
    mutant: Mutant
    result: str  # caught, survived, not reached, not judged, without effect
    by: str = ""
    tests: int = 0  # that were run
    seconds: float = 0.0


class Judge:
    def __init__(self, reaches: list[Reach], seconds: float, jobs: int, most_tests: int) -> None:
        self._seconds = {reach.test: reach.seconds for reach in reaches}
        self._tests: dict[int, list[Test]] = defaultdict(list)
        for reach in reaches:
            for number in reach.mutants:
                self._tests[number].append(reach.test)
        self._catchers: dict[str, set[Test]] = defaultdict(set)  # by file
        self._end = time.monotonic() + seconds
        self._jobs = jobs
        self._most_tests = most_tests  # for one mutant; 0: all

    def judge(self, mutants: list[Mutant], without_effect: set[int]) -> list[Verdict]:
        """Judges in a random order, so that the mutants judged in time are a fair sample. A mutant
        that was begun is judged to its end, as survivors take the longest."""
        waiting: queue.SimpleQueue[Mutant] = queue.SimpleQueue()
        reached = [
            mutant
            for mutant in mutants
            if mutant.number in self._tests and mutant.number not in without_effect
        ]
        random.Random(1).shuffle(reached)
        for mutant in reached:
            waiting.put(mutant)
        verdicts = {mutant.number: Verdict(mutant, "not judged") for mutant in reached}

        def work() -> None:
            while time.monotonic() < self._end:
                try:
                    mutant = waiting.get_nowait()
                except queue.Empty:
                    return
                verdicts[mutant.number] = self._judge_one(mutant)

        workers = [threading.Thread(target=work, daemon=True) for _ in range(self._jobs)]
        for worker in workers:
            worker.start()
        for worker in workers:
            worker.join()

        def verdict(mutant: Mutant) -> Verdict:
            known = "without effect" if mutant.number in without_effect else "not reached"
            return verdicts.get(mutant.number, Verdict(mutant, known))

        return [verdict(mutant) for mutant in mutants]

    def _in_order(self, mutant: Mutant) -> list[Test]:
        """Returns the tests that caught a neighbour, then those named for the file or the function,
        then those of the folder; the quickest first. Slow tests come last: those named for the file,
        or all of them when no quick test reaches the mutant."""
        reaching = self._tests[mutant.number]
        catchers = set(self._catchers[mutant.file])
        stem = Path(mutant.file).stem.lower()
        names = [name for name in (stem, mutant.function.lower()) if name]

        def order(test: Test) -> tuple[bool, bool, bool, float]:
            unrelated = not any(name in test.name.lower() for name in names)
            elsewhere = test.program != f"{mutant.folder}_tests"
            return test not in catchers, unrelated, elsewhere, self._seconds[test]

        quick = [test for test in reaching if not test.slow]
        slow = [test for test in reaching if test.slow and (not quick or stem in test.name.lower())]
        return sorted(quick, key=order)[: self._most_tests or None] + sorted(slow, key=order)

    def _judge_one(self, mutant: Mutant) -> Verdict:
        start = time.monotonic()
        variables = {"VELA_MUTANT": str(mutant.number)}
        tests = self._in_order(mutant)
        for count, test in enumerate(tests, 1):
            outcome = native_tests.run(test, variables, 5 * self._seconds[test] + 15)
            if not outcome.passed:
                self._catchers[mutant.file].add(test)
                return Verdict(mutant, "caught", str(test), count, time.monotonic() - start)
        return Verdict(mutant, "survived", "", len(tests), time.monotonic() - start)
