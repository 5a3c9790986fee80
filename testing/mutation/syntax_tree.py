"""The syntax trees of the library's sources, as clang sees them, with places in the source text."""

import json
import os
import re
import subprocess
from dataclasses import dataclass, field
from typing import Any, Iterator


@dataclass
class Node:
    kind: str
    file: str
    begin: int
    end: int  # behind the last token
    in_macro: bool  # begins or ends in a macro, whose use is then what `begin` and `end` tell
    data: dict[str, Any]
    children: list["Node"] = field(default_factory=list)

    @property
    def type(self) -> str:
        types = self.data.get("type", {})
        return types.get("desugaredQualType", types.get("qualType", ""))


class _Places:
    """Remembers the last file, as clang names a file only where it changes."""

    def __init__(self) -> None:
        self.file = ""

    def bare(self, place: dict[str, Any]) -> tuple[int, int]:
        if "file" in place:
            self.file = os.path.normpath(place["file"])
        offset = place.get("offset", -1)
        return offset, offset + place.get("tokLen", 0)

    def read(self, place: dict[str, Any]) -> tuple[int, int, bool]:
        if "expansionLoc" in place:
            self.bare(place["spellingLoc"])
            return *self.bare(place["expansionLoc"]), True
        return *self.bare(place), False

    def node(self, data: dict[str, Any]) -> Node:
        self.read(data.get("loc", {}))
        extent = data.get("range", {})
        begin, _, begin_in_macro = self.read(extent.get("begin", {}))
        file = self.file
        _, end, end_in_macro = self.read(extent.get("end", {}))
        node = Node(data.get("kind", ""), file, begin, end, begin_in_macro or end_in_macro, data)
        node.children = [self.node(child) for child in data.get("inner", [])]
        return node


def _documents(text: str) -> Iterator[dict[str, Any]]:
    decoder = json.JSONDecoder()
    position = 0
    while position < len(text):
        document, position = decoder.raw_decode(text, position)
        yield document
        while position < len(text) and text[position].isspace():
            position += 1


def _dump(source: str, name: str) -> list[Node]:
    headers = ["-I.", "-isystemtesting/simulator/include"]
    command = ["clang++", "-std=c++17", "-fsyntax-only", "-w", *headers]
    dump = ["-Xclang", "-ast-dump=json", "-Xclang", f"-ast-dump-filter={name}"]
    run = subprocess.run([*command, *dump, source], check=True, stdout=subprocess.PIPE)
    return [_Places().node(document) for document in _documents(run.stdout.decode("latin-1"))]


def read(source: str) -> list[Node]:
    """Everything of the namespace vela that the source sees, or, where it has nothing in there, the
    functions whose definitions begin a line. All of it would be a hundred times as much."""
    with open(source, encoding="latin-1") as file:
        text = file.read()
    if re.search(r"^namespace vela\b", text, re.MULTILINE):
        return _dump(source, "vela")
    names = re.findall(r"^\w[\w\s:*&\"]*\b(\w+)\([^;{]*\) \{", text, re.MULTILINE)
    return [node for name in names for node in _dump(source, name)]
