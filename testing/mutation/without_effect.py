"""The mutants that nobody could notice, each with its reason: without_effect.txt."""

from pathlib import Path

from mutants import Change, Mutant

_LIST = Path(__file__).with_name("without_effect.txt")


def _read() -> set[Change]:
    """Reads blocks of lines: the file, "- " and the code before, "+ " and the code after, which may
    repeat, and the reason. Lines with a hash are comments."""
    changes = set()
    text = _LIST.read_text(encoding="utf-8")
    for block in text.split("\n\n"):
        lines = [line for line in block.splitlines() if line and not line.startswith("#")]
        if not lines:
            continue
        file, before, reason = lines[0], "", ""
        for line in lines[1:]:
            if line.startswith("- "):
                before = line[2:]
            elif line.startswith("+ "):
                changes.add((file, before, line[2:]))
            else:
                reason = line
        if not reason:
            raise ValueError(f"{_LIST.name}: no reason for {file}: {before}")
    return changes


def find(mutants: list[Mutant]) -> set[int]:
    """Returns the numbers of the listed mutants. Prints the entries of which there is no mutant."""
    listed = _read()
    for file, before, after in sorted(listed - {mutant.change for mutant in mutants}):
        print(f"{_LIST.name}: no such mutant: {file}: {before}  ->  {after}", flush=True)
    return {mutant.number for mutant in mutants if mutant.change in listed}
