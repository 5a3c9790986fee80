"""The mutants that nobody could notice, each with its reason: without_effect.txt."""

import re
from collections import Counter
from pathlib import Path

from mutants import Mutant

_LIST = Path(__file__).with_name("without_effect.txt")

# The file, the function, the code before, the code after, and which of the function's mutants with
# the same code it is, counted from 1.
_Key = tuple[str, str, str, str, int]


def _read() -> set[_Key]:
    """Reads blocks of lines: the file and the function; "- " and the code before, "+ " and the code
    after, which may repeat; the reason. "-2 " stands for the second mutant with that code. Lines
    with a hash are comments."""
    keys: set[_Key] = set()
    text = _LIST.read_text(encoding="utf-8")
    for block in text.split("\n\n"):
        lines = [line for line in block.splitlines() if line and not line.startswith("#")]
        if not lines:
            continue
        file, _, function = lines[0].partition(" ")
        before, which, reason = "", 1, ""
        for line in lines[1:]:
            removed = re.match(r"-(\d*) (.*)", line)
            if removed:
                which, before = int(removed[1] or 1), removed[2]
            elif line.startswith("+ "):
                keys.add((file, function, before, line[2:], which))
            else:
                reason = line
        if not reason:
            raise ValueError(f"{_LIST.name}: no reason for {file}: {before}")
    return keys


def _keys(mutants: list[Mutant]) -> dict[_Key, int]:
    """Returns the numbers of the mutants."""
    seen: Counter[tuple[str, str, str, str]] = Counter()
    numbers: dict[_Key, int] = {}
    for mutant in sorted(mutants, key=lambda each: (each.file, each.line, each.number)):
        key = (mutant.file, mutant.function, mutant.original, mutant.changed)
        seen[key] += 1
        numbers[(*key, seen[key])] = mutant.number
    return numbers


def find(mutants: list[Mutant]) -> set[int]:
    """Returns the numbers of the listed mutants. Prints the entries of which there is no mutant."""
    listed = _read()
    numbers = _keys(mutants)
    for file, function, before, after, _ in sorted(listed - numbers.keys()):
        print(f"{_LIST.name}: no such mutant: {file} {function}: {before}  ->  {after}", flush=True)
    return {number for key, number in numbers.items() if key in listed}
