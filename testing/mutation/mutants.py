"""Mutants: what each one changes, and the edits that put it into the source text."""

from dataclasses import dataclass, field


Change = tuple[str, str, str]  # the file, the code before, the code after


@dataclass
class Mutant:
    number: int
    file: str
    line: int
    original: str
    changed: str
    function: str = ""  # its name without the class; empty for an initialiser
    is_lock: bool = False  # leaves a lock out

    @property
    def folder(self) -> str:
        return self.file.split("/")[0]

    @property
    def change(self) -> Change:
        return self.file, self.original, self.changed

    def __str__(self) -> str:
        return f"{self.file}:{self.line}: {self.original}  ->  {self.changed}"


@dataclass
class Edit:
    """Text put into a source; each '#' is replaced by the number of the edit's next mutant."""

    position: int
    closes: bool  # stands behind what it changes, not before
    depth: int  # the larger, the further inside
    numbers: list[int]
    text: str
    replaces: int = 0  # characters

    def key(self) -> tuple[int, int, int]:
        return self.position, not self.closes, -self.depth if self.closes else self.depth


@dataclass
class Source:
    """A file of the library with its mutants."""

    file: str
    text: str
    first_number: int
    mutants: list[Mutant] = field(default_factory=list)
    edits: list[Edit] = field(default_factory=list)

    def line(self, position: int) -> int:
        return self.text.count("\n", 0, position) + 1

    def snippet(self, begin: int, end: int) -> str:
        return " ".join(self.text[begin:end].split())

    def change(self, begin: int, end: int, changed: str) -> tuple[str, str]:
        """Returns the code before and after, with the rest of its lines if some of it stays."""
        if changed.startswith("("):
            return self.snippet(begin, end), changed
        first = self.text.rfind("\n", 0, begin) + 1
        last = self.text.find("\n", end)
        before, after = self.text[first:begin], self.text[end:last]
        return self.snippet(first, last), " ".join(f"{before}{changed}{after}".split())


@dataclass
class Rewritten:
    text: str
    spans: dict[int, tuple[int, int]]  # by mutant: where its edits begin and end in the text

    def mutants_at(self, line: int, column: int) -> list[int]:
        """Returns the innermost mutant at a place of the text, or else all mutants of the line."""
        lines = self.text.split("\n")
        start = sum(len(text) + 1 for text in lines[: line - 1])
        place = start + column - 1
        around = self._between(place, place)
        if around:
            return [min(around, key=lambda number: self.spans[number][1] - self.spans[number][0])]
        return self._between(start, start + len(lines[line - 1]))

    def _between(self, first: int, last: int) -> list[int]:
        return [n for n, (begin, end) in self.spans.items() if begin <= last and end >= first]


def rewrite(source: Source, dropped: set[int]) -> Rewritten:
    """Returns the text with all mutants that were not dropped."""
    pieces: list[str] = []
    length = done = 0
    spans: dict[int, tuple[int, int]] = {}
    for edit in sorted(source.edits, key=Edit.key):
        live = [number for number in edit.numbers if number not in dropped]
        if not live:
            continue
        text = edit.text
        for number in edit.numbers:
            text = text.replace("#", str(number if number in live else 0), 1)
        kept = source.text[done : edit.position]
        pieces += [kept, text]
        begin, length = length + len(kept), length + len(kept) + len(text)
        done = edit.position + edit.replaces
        for number in live:
            spans[number] = (spans.get(number, (begin, 0))[0], length)
    pieces.append(source.text[done:])
    return Rewritten("".join(pieces), spans)
