"""Mutants of decisions: a condition, or a part of it, is always true or always false, and a
limit is shifted by one. Operands are still evaluated, so that nothing but the decision changes."""

from __future__ import annotations

from typing import TYPE_CHECKING

from mutants import Edit
from syntax_tree import Node

if TYPE_CHECKING:
    from finder import Finder

_AROUND = {
    "CXXBindTemporaryExpr",
    "ExprWithCleanups",
    "ImplicitCastExpr",
    "MaterializeTemporaryExpr",
    "ParenExpr",
}
_SHIFTS = {
    "<": ("Less", "<="),
    "<=": ("LessOrEqual", "<"),
    ">": ("Greater", ">="),
    ">=": ("GreaterOrEqual", ">"),
}
_COMPARISONS = {*_SHIFTS, "==", "!="}
_LITERALS = {"CXXBoolLiteralExpr", "IntegerLiteral"}


def inner(node: Node) -> Node:
    while node.kind in _AROUND and node.children:
        node = node.children[0]
    return node


def _is_bool(node: Node) -> bool:
    types = {node.type, node.data.get("type", {}).get("qualType"), inner(node).type}
    return "bool" in types or "const bool" in types


def mutate(finder: Finder, node: Node) -> None:
    """Makes the mutants of a statement's condition, and of every other boolean expression."""
    children = node.children
    if node.kind == "IfStmt" and not (node.data.get("hasVar") or node.data.get("isConstexpr")):
        _decide(finder, children[1 if node.data.get("hasInit") else 0], True, True)
    elif node.kind == "WhileStmt" and not node.data.get("hasVar"):
        _decide(finder, children[0], False, True)  # an endless loop shows nothing
    elif node.kind == "ForStmt" and children[2].kind:
        _decide(finder, children[2], False, True)
    elif node.kind == "ConditionalOperator":
        _decide(finder, children[0], True, True)
    elif node.kind in ("ReturnStmt", "VarDecl") and children and _is_bool(children[0]):
        _decide(finder, children[0], True, True)
    elif node.kind == "BinaryOperator" and node.data["opcode"] in ("&&", "||", *_COMPARISONS):
        _decide(finder, node, True, True)


def _decide(finder: Finder, node: Node, to_true: bool, to_false: bool) -> None:
    """Makes a mutant with the value true when `to_true`, and one with false when `to_false`."""
    node = inner(node)
    if node.kind in _LITERALS or finder.decided(node):
        return
    operator = node.data.get("opcode", "")
    if node.kind == "UnaryOperator" and operator == "!":
        _decide(finder, node.children[0], to_false, to_true)
    elif node.kind == "BinaryOperator" and operator in ("&&", "||"):
        # A part without effect says more than the whole condition would.
        conjunction = operator == "&&"
        _force(finder, node, to_true and not conjunction, to_false and conjunction)
        for part in node.children:
            _decide(finder, part, conjunction, not conjunction)
    else:
        _force(finder, node, to_true, to_false)
        if node.kind == "BinaryOperator" and operator in _COMPARISONS:
            for part in node.children:
                inner(part).data["compared"] = True
        if node.kind == "BinaryOperator" and operator in _SHIFTS:
            _shift(finder, node, operator)


def _force(finder: Finder, node: Node, to_true: bool, to_false: bool) -> None:
    if to_true:
        finder.wrap(node.begin, node.end, "((", ") || vela_mutant(#))", "true")
    if to_false:
        finder.wrap(node.begin, node.end, "((", ") && !vela_mutant(#))", "false")


def _is_hid_status(node: Node) -> bool:
    """Tells a status of HID.DLL, of which none is 0: `status <= 0` is `status < 0`."""
    return "NTSTATUS" in inner(node).data.get("type", {}).get("qualType", "")


def _shift(finder: Finder, node: Node, operator: str) -> None:
    left, right = node.children
    if _is_hid_status(left):
        return
    between = finder.source.text.find(operator, left.end, right.begin)
    if between < 0:
        return
    function, shifted = _SHIFTS[operator]
    left_text, right_text = (finder.source.snippet(part.begin, part.end) for part in node.children)
    mutant = finder.mutant(node.begin, node.end, f"{left_text} {shifted} {right_text}")
    depth = finder.depth()
    numbers = [mutant.number]
    finder.insert(Edit(node.begin, False, depth, numbers, f"vela_mutants::{function}(#, "))
    finder.insert(Edit(between, False, depth, numbers, ",", len(operator)))
    finder.insert(Edit(node.end, True, depth, numbers, ")"))
