"""Walks the syntax trees and finds what can be mutated in the bodies of functions."""

import itertools
from typing import Callable

import decisions
import statements
import syntax_tree
import values
from mutants import Edit, Mutant, Source
from syntax_tree import Node

# Nodes that are constant expressions, or have no text of their own.
_NOT_VISITED = {
    "CXXDefaultArgExpr",
    "CXXDefaultInitExpr",
    "ClassTemplateDecl",
    "ClassTemplateSpecializationDecl",
    "ConstantExpr",
    "EnumDecl",
    "StaticAssertDecl",
    "UnaryExprOrTypeTraitExpr",
}
_FUNCTIONS = {
    "CXXConstructorDecl",
    "CXXConversionDecl",
    "CXXDestructorDecl",
    "CXXMethodDecl",
    "FunctionDecl",
}

# Each file has its own range of numbers: a change of one file renumbers no other, which would
# have to be compiled again.
_NUMBERS_OF_A_FILE = 1000


class Finder:
    def __init__(self, files: list[str]) -> None:
        self.sources: dict[str, Source] = {}
        for index, file in enumerate(files):
            with open(file, encoding="latin-1") as text:
                self.sources[file] = Source(file, text.read(), 1 + index * _NUMBERS_OF_A_FILE)
        self.source = Source("", "", 0)  # of the function that is visited
        self.in_function = False
        self._function = ""  # that is visited
        self._seen: set[tuple[str, int]] = set()
        self._depths = itertools.count()
        self._rules: list[Callable[["Finder", Node], None]] = [
            statements.mutate,
            decisions.mutate,
            values.mutate,
        ]

    def read(self, file: str) -> None:
        for node in syntax_tree.read(file):
            self.visit(node)

    # --- for the rules ---

    def mutant(self, begin: int, end: int, changed: str) -> Mutant:
        """Adds a mutant in which `changed` replaces the text from `begin` to `end`."""
        source = self.source
        number = source.first_number + len(source.mutants)
        change = source.change(begin, end, changed)
        mutant = Mutant(number, source.file, source.line(begin), *change, self._function)
        source.mutants.append(mutant)
        return mutant

    def insert(self, edit: Edit) -> None:
        self.source.edits.append(edit)

    def depth(self) -> int:
        return next(self._depths)

    def wrap(self, begin: int, end: int, before: str, after: str, changed: str) -> None:
        """Adds a mutant around this text; `before` or `after` contains its number."""
        number = self.mutant(begin, end, changed).number
        depth = self.depth()
        self.insert(Edit(begin, False, depth, [number], before))
        self.insert(Edit(end, True, depth, [number], after))

    def decided(self, node: Node) -> bool:
        """Returns whether the node was already seen."""
        before = bool(node.data.get("decided"))
        node.data["decided"] = True
        return before

    # --- the walk ---

    def visit(self, node: Node) -> None:
        if node.kind in _NOT_VISITED or node.kind.endswith("Attr") or node.data.get("isImplicit"):
            return
        if node.kind in _FUNCTIONS:
            self._visit_function(node)
        elif node.kind == "FunctionTemplateDecl":
            self._visit_template(node)
        elif node.kind == "FieldDecl":
            self._visit_body(node, node.children)
        elif node.kind == "VarDecl" and (node.data.get("constexpr") or not self.in_function):
            return
        else:
            self._visit_other(node)

    def _visit_function(self, node: Node) -> None:
        if not node.data.get("constexpr"):
            parts = ("CompoundStmt", "CXXCtorInitializer", "CXXTryStmt")
            self._visit_body(node, [child for child in node.children if child.kind in parts])

    def _visit_template(self, node: Node) -> None:
        """Returns the template itself, which comes before its instances."""
        functions = [child for child in node.children if child.kind in _FUNCTIONS]
        if functions and node.file.endswith(".cpp"):
            self.visit(functions[0])

    def _visit_body(self, node: Node, parts: list[Node]) -> None:
        if node.file not in self.sources or (node.file, node.begin) in self._seen:
            return
        self._seen.add((node.file, node.begin))
        self.source = self.sources[node.file]
        self.in_function = True
        self._function = node.data.get("name", "") if node.kind in _FUNCTIONS else ""
        for part in parts:
            statements.mark_returns(self, part)
            self.visit(part)
        self.in_function = False

    def _visit_other(self, node: Node) -> None:
        if self.in_function and node.begin >= 0:
            for rule in self._rules:
                rule(self, node)
        for child in self._parts(node):
            self.visit(child)

    def _parts(self, node: Node) -> list[Node]:
        if node.kind == "LambdaExpr":  # its class comes first, and has the body too
            body = [child for child in node.children if child.kind == "CompoundStmt"]
            for part in body:
                statements.mark_returns(self, part)
            return body
        if node.kind == "CXXForRangeStmt":
            return node.children[-1:]
        if node.data.get("castKind") == "NullToPointer":
            return []
        return node.children
