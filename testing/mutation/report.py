"""Prints a table by folder, and the mutants that no test catches."""

import json
from collections import Counter
from dataclasses import asdict
from pathlib import Path

from judge import Verdict
from mutants import Change

RESULTS = ["without effect", "caught", "survived", "not reached", "not judged"]


def _share(counts: Counter[str]) -> str:
    """Returns the share of the mutants with an effect; those judged are a sample of the ones that
    are reached."""
    judged = counts["caught"] + counts["survived"]
    reached = judged + counts["not judged"]
    if judged == 0:
        return "-"
    return f"{100 * counts['caught'] / judged * reached / (reached + counts['not reached']):.1f}%"


def _row(name: str, verdicts: list[Verdict]) -> str:
    counts = Counter(verdict.result for verdict in verdicts)
    cells = " ".join(f"{counts[result]:14d}" for result in RESULTS)
    return f"{name:12} {len(verdicts):8d} {cells} {_share(counts):>8}"


def _table(verdicts: list[Verdict]) -> list[str]:
    heads = " ".join(f"{result:>14}" for result in RESULTS)
    lines = [f"{'':12} {'mutants':>8} {heads} {'share':>8}"]
    folders = list(dict.fromkeys(verdict.mutant.folder for verdict in verdicts))
    for folder in folders:
        lines.append(_row(folder, [each for each in verdicts if each.mutant.folder == folder]))
    return [*lines, _row("all", verdicts)]


def _listed(verdicts: list[Verdict], result: str, title: str) -> list[str]:
    chosen = [verdict.mutant for verdict in verdicts if verdict.result == result]
    if not chosen:
        return []
    lines = ["", f"{title}:"]
    for each in sorted(chosen, key=lambda mutant: (mutant.file, mutant.line, mutant.number)):
        lines += [f"{each.file}:{each.line}", f"  - {each.original}", f"  + {each.changed}"]
    return lines


def write(verdicts: list[Verdict], folder: Path, name: str) -> str:
    """Returns the report, and writes it to the results folder with the verdict on each mutant."""
    lines = _table(verdicts)
    judged = sum(verdict.result in ("caught", "survived") for verdict in verdicts)
    unjudged = sum(verdict.result == "not judged" for verdict in verdicts)
    if unjudged:
        reached = judged + unjudged
        lines += ["", f"The time was over: {judged} of {reached} mutants reached were judged."]
        lines += ["They are a random sample of all files, and the shares are reckoned from it."]
    lines += _listed(verdicts, "survived", "Survived the tests that reach them")
    lines += _listed(verdicts, "not reached", "Would change nothing in any test")
    text = "\n".join(lines) + "\n"
    (folder / f"{name}.txt").write_text(text, encoding="latin-1")
    known = [asdict(verdict) for verdict in verdicts]
    (folder / f"{name}.json").write_text(json.dumps(known, indent=1))
    return text


def survivors(folder: Path, name: str) -> set[Change]:
    """Returns the changes that no test of the last run caught or reached."""
    verdicts = json.loads((folder / f"{name}.json").read_text())
    missed = ("survived", "not reached")
    changes = [each["mutant"] for each in verdicts if each["result"] in missed]
    return {(each["file"], each["original"], each["changed"]) for each in changes}
