"""Mutants of constants: a number, an enumerator or a named constant is one more, and a boolean is
negated. Where one is compared, the comparison has mutants of its own."""

from __future__ import annotations

from typing import TYPE_CHECKING

from syntax_tree import Node

if TYPE_CHECKING:
    from finder import Finder

_INTEGERS = {"bool", "char", "wchar_t", "short", "int", "long", "unsigned", "signed"}
_PLATFORM_BOOLEANS = {"TRUE": "FALSE", "FALSE": "TRUE"}


def _is_integer(type_name: str) -> bool:
    words = set(type_name.split()) - {"const"}
    return bool(words) and words <= _INTEGERS


def mutate(finder: Finder, node: Node) -> None:
    if node.data.get("compared"):
        return
    text = finder.source.text[node.begin : node.end]
    if node.kind == "CXXBoolLiteralExpr" and not node.in_macro:
        changed = "false" if node.data["value"] else "true"
        finder.wrap(node.begin, node.end, "(vela_mutant(#) != ", ")", changed)
    elif node.kind == "IntegerLiteral" and node.in_macro:
        if text in _PLATFORM_BOOLEANS:
            finder.wrap(node.begin, node.end, "(vela_mutant(#) != ", ")", _PLATFORM_BOOLEANS[text])
    elif node.kind == "IntegerLiteral":
        _one_more(finder, node, text)
    elif node.kind == "DeclRefExpr" and not node.in_macro:
        declared = node.data.get("referencedDecl", {})
        kind = declared.get("kind")
        constant = kind == "VarDecl" and declared["name"].startswith(("k", "USAGE_"))
        if kind == "EnumConstantDecl" or constant and _is_integer(node.type):
            _one_more(finder, node, text)


def _one_more(finder: Finder, node: Node, text: str) -> None:
    finder.wrap(node.begin, node.end, "vela_mutants::Next(#, ", ")", f"{text} + 1")
