"""Mutants of statements: one is left out, or swapped with the next one, or a lock is not
taken."""

from __future__ import annotations

import itertools
import re
from typing import TYPE_CHECKING

from decisions import inner
from mutants import Edit
from syntax_tree import Node

if TYPE_CHECKING:
    from finder import Finder

_CALLS = {"CallExpr", "CXXMemberCallExpr"}
_STEPS = {
    "CXXDeleteExpr",
    "CXXOperatorCallExpr",
    "CXXStaticCastExpr",
    "CXXThrowExpr",
    "CompoundAssignOperator",
}
_JUMPS = {"BreakStmt", "ContinueStmt", "ReturnStmt"}
_LEFT_OUT = "(left out)"


def mutate(finder: Finder, node: Node) -> None:
    if node.kind == "CompoundStmt":
        _swap_neighbours(finder, node)
    for child in _statements_of(node):
        if _is_step(child) or child.kind in _JUMPS and not child.data.get("needed"):
            _leave_out(finder, child)
    if node.kind == "VarDecl" and re.search(r"\b(Lock|lock_guard)<", node.type):
        _leave_unlocked(finder, node)


def mark_returns(finder: Finder, body: Node) -> None:
    """Those in a body's last statement are needed, as nothing comes behind them."""
    def mark(node: Node) -> None:
        node.data["needed"] = True
        if node.kind != "LambdaExpr":
            for child in node.children:
                mark(child)

    if body.children:
        mark(body.children[-1])


def _statements_of(node: Node) -> list[Node]:
    """Skips the only statement of an `if` or a loop: another mutant makes its condition false."""
    if node.kind == "CompoundStmt":
        return node.children
    if node.kind == "IfStmt" and node.data.get("hasElse"):
        return node.children[-2:]
    if node.data.get("hasVar") or node.kind in ("CXXForRangeStmt", "CaseStmt", "DefaultStmt"):
        return node.children[-1:]
    return []


def _is_step(node: Node) -> bool:
    node = inner(node)
    operator = node.data.get("opcode")
    assigns = node.kind == "BinaryOperator" and operator == "="
    counts = node.kind == "UnaryOperator" and operator in ("++", "--")
    return assigns or counts or node.kind in _CALLS or node.kind in _STEPS


def _semicolon(finder: Finder, node: Node) -> int:
    """Returns the place behind the statement's semicolon; -1 when it ends without one."""
    end = re.compile(r"\s*;").match(finder.source.text, node.end)
    return -1 if end is None or node.in_macro else end.end()


def _leave_out(finder: Finder, node: Node) -> None:
    end = _semicolon(finder, node)
    if end >= 0:
        finder.wrap(node.begin, end, "{ if (!vela_mutant(#)) ", " }", _LEFT_OUT)


def _swap_neighbours(finder: Finder, node: Node) -> None:
    def can_move(child: Node) -> bool:
        throws = inner(child).kind == "CXXThrowExpr"
        return _is_step(child) and not throws and _semicolon(finder, child) >= 0

    for movable, run in itertools.groupby(node.children, can_move):
        if movable:
            _swap_within(finder, list(run))


def _swap_within(finder: Finder, run: list[Node]) -> None:
    """Returns whether one of the two is a call: the order of two assignments rarely matters."""
    ends = [_semicolon(finder, step) for step in run]
    numbers = []
    for i, (first, second) in enumerate(zip(run, run[1:])):
        if inner(first).kind not in _CALLS and inner(second).kind not in _CALLS:
            numbers.append(0)
            continue
        texts = [finder.source.snippet(run[k].begin, ends[k]) for k in (i + 1, i)]
        numbers.append(finder.mutant(first.begin, ends[i + 1], " ".join(texts)).number)
    if not any(numbers):
        return
    order = ", ".join("#" if number else "0" for number in numbers)
    loop = f"for (const int vela_step : vela_mutants::Order<{order}>())"
    begin = f"{loop} switch (vela_step) {{ case 0: "
    live = [number for number in numbers if number]
    depth = finder.depth()
    finder.insert(Edit(run[0].begin, False, depth, live, begin))
    for step, end in enumerate(ends[:-1], 1):
        finder.insert(Edit(end, True, depth, live, f" break; case {step}: "))
    finder.insert(Edit(ends[-1], True, depth, live, " break; }"))


def _leave_unlocked(finder: Finder, node: Node) -> None:
    declared = finder.source.text[node.begin : node.end]
    mutex = re.search(r"\(([^()]+)\)$", declared)
    if mutex is None:
        return
    begin, end = (node.begin + place for place in mutex.span(1))
    mutant = finder.mutant(node.begin, node.end, _LEFT_OUT)
    mutant.is_lock = True
    depth = finder.depth()
    finder.insert(Edit(begin, False, depth, [mutant.number], "vela_mutants::Unshared(#, "))
    finder.insert(Edit(end, True, depth, [mutant.number], ")"))
