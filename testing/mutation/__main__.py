"""Mutates the library and judges its native tests: what scripts/mutation runs."""

import argparse
import json
import os
import resource
import sys
from pathlib import Path

import mirror
import report
import without_effect
from finder import Finder
from judge import Judge
from mutants import Mutant, Source
from reach import UnmutatedTestFailed, measure

_RESULTS = Path("build/mutation")


def _arguments() -> argparse.Namespace:
    parser = argparse.ArgumentParser(prog="scripts/mutation")
    parser.add_argument("seconds", metavar="SECONDS", type=int, nargs="?", default=600)
    parser.add_argument("--only", metavar="PATH[:LINE]", default="")
    parser.add_argument("--faults", action="store_true")
    parser.add_argument("--locks", action="store_true")
    parser.add_argument("--survivors", action="store_true")
    parser.add_argument("--tests", metavar="N", type=int, default=0)
    return parser.parse_args()


def _is_wanted(mutant: Mutant, arguments: argparse.Namespace) -> bool:
    path, _, line = arguments.only.partition(":")
    in_path = not path or f"{mutant.file}/".startswith(f"{path.rstrip('/')}/")
    return mutant.is_lock == arguments.locks and in_path and (not line or mutant.line == int(line))


def _find(folders: list[str]) -> dict[str, Source]:
    paths = [path for folder in folders for path in sorted(Path(folder).iterdir())]
    files = [str(path) for path in paths if path.suffix in (".cpp", ".h")]
    finder = Finder(files)
    for file in files:
        if file.endswith(".cpp"):
            finder.read(file)
    return finder.sources


def _build(
    sources: dict[str, Source], folders: list[str], programs: list[str], sanitizers: str
) -> set[int]:
    """Returns the mutants that do not compile; the next run leaves them out."""
    kept = _RESULTS / "dropped.json"
    names = {mutant.number: str(mutant) for source in sources.values() for mutant in source.mutants}
    known = json.loads(kept.read_text()) if kept.exists() else []
    dropped = {number for number, name in names.items() if name in known}
    mirror.copy_repository(folders[0], set(sources))
    mirror.configure(sanitizers)
    mirror.build(sources, dropped, programs)
    kept.write_text(json.dumps([names[number] for number in dropped]))
    return dropped


def _programs(folders: list[str], sanitizers: str) -> list[str]:
    """Returns the folders' tests. Code of one thread has none with ThreadSanitizer."""
    return [f"{folder}_tests" for folder in folders if not (sanitizers and folder == "hid")]


def _limit_processes(sanitizers: str) -> None:
    """Limits what a mutant may take of memory and disk, and switches core dumps off. A sanitizer
    reserves more address space than any limit would leave."""
    if not sanitizers:
        resource.setrlimit(resource.RLIMIT_AS, (8 << 30, 8 << 30))
    suppressions = Path("cmake/thread-sanitizer.supp").resolve()
    os.environ["TSAN_OPTIONS"] = f"suppressions={suppressions}"
    resource.setrlimit(resource.RLIMIT_FSIZE, (256 << 20, 256 << 20))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def main() -> None:
    arguments = _arguments()
    jobs = os.cpu_count() or 1
    sanitizers = "thread" if arguments.locks else ""
    folders = Path("cmake/library-folders.txt").read_text().split()
    programs = _programs(folders, sanitizers)
    if arguments.faults:
        programs.append("faults_tests")
    _RESULTS.mkdir(parents=True, exist_ok=True)
    print("== finding mutants, and building them all at once", flush=True)
    sources = _find(folders)
    dropped = _build(sources, folders, programs, sanitizers)
    mutants = [mutant for source in sources.values() for mutant in source.mutants]
    mutants = [mutant for mutant in mutants if mutant.number not in dropped]
    name = "locks" if arguments.locks else "report"
    wanted = [mutant for mutant in mutants if _is_wanted(mutant, arguments)]
    if arguments.survivors:
        survivors = report.survivors(_RESULTS, name)
        wanted = [each for each in wanted if each.change in survivors]
    _limit_processes(sanitizers)
    print("== running the tests without a mutant", flush=True)
    reaches = measure(programs, jobs)
    print(f"== judging {len(wanted)} mutants by {len(reaches)} tests\n", flush=True)
    judge = Judge(reaches, arguments.seconds, jobs, arguments.tests)
    verdicts = judge.judge(wanted, without_effect.find(mutants))
    print(report.write(verdicts, _RESULTS, name), end="")


if __name__ == "__main__":
    try:
        main()
    except (mirror.BuildFailed, UnmutatedTestFailed) as failure:
        sys.exit(f"{failure}\nfailed: see build/mutation")
