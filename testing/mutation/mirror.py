"""A copy of the repository whose library is the mutated one, and its build."""

import os
import re
import shutil
import subprocess
from pathlib import Path

from mutants import Rewritten, Source, rewrite

MIRROR = Path("build/mutation/source")
BUILD = MIRROR / "build/native"
_RUNTIME = Path("testing/mutation")
# A place that a compiler's error names, or one of the places that led to it.
_ERROR = re.compile(r"^([^\s:]+):(\d+):(\d+):\s+(?:fatal error|error|required from)", re.MULTILINE)


class BuildFailed(Exception):
    pass


def _write(path: Path, content: bytes) -> None:
    """Writes the file unless it has this content already, so that it is not compiled again."""
    if path.is_file() and path.read_bytes() == content:
        return
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(content)


def copy_repository(folder_of_runtime: str, mutated: set[str]) -> None:
    """Copies the repository without the mutated files, and adds the sources that these call."""
    command = ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"]
    listed = subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout
    files = {file for file in listed.split("\0") if os.path.isfile(file)}
    runtime = f"{folder_of_runtime}/VelaMutants.cpp"
    for old in MIRROR.rglob("*"):
        name = str(old.relative_to(MIRROR))
        if old.is_file() and not name.startswith("build/") and name not in files | {runtime}:
            old.unlink()
    for file in files - mutated:
        _write(MIRROR / file, Path(file).read_bytes())
        shutil.copymode(file, MIRROR / file)
    _write(MIRROR / runtime, (_RUNTIME / "VelaMutants.cpp").read_bytes())


def _run(log: str, command: list[str]) -> tuple[bool, str]:
    path = Path("build/mutation", log)
    with path.open("w") as output:
        run = subprocess.run(command, cwd=MIRROR, stdout=output, stderr=subprocess.STDOUT)
    return run.returncode == 0, path.read_text()


def _build(targets: list[str]) -> tuple[bool, str]:
    command = ["cmake", "--build", "--preset", "native", "--target", *targets, "--", "-k", "0"]
    return _run("build.log", command)


def configure(sanitizers: str) -> None:
    header = (MIRROR / _RUNTIME / "VelaMutants.h").resolve()
    flags = f"-DCMAKE_CXX_FLAGS=-w -include {header}"
    lane = f"-DVELA_SANITIZERS={sanitizers}"
    done, output = _run("configure.log", ["cmake", "--preset", "native", flags, lane])
    if not done:
        raise BuildFailed(output[-3000:])


def _culprits(output: str, rewritten: dict[str, Rewritten]) -> set[int]:
    found: set[int] = set()
    for path, line, column in _ERROR.findall(output):
        file = os.path.relpath((BUILD / path).resolve(), MIRROR.resolve())
        if file in rewritten:
            found.update(rewritten[file].mutants_at(int(line), int(column)))
    return found


def build(sources: dict[str, Source], dropped: set[int], programs: list[str]) -> None:
    """Builds the library without the mutants that do not compile, which it adds to those dropped,
    and then the tests."""
    while True:
        rewritten = {file: rewrite(source, dropped) for file, source in sources.items()}
        for file, result in rewritten.items():
            _write(MIRROR / file, result.text.encode("latin-1"))
        done, output = _build(["VelaAgent"])
        if done:
            break
        culprits = _culprits(output, rewritten) - dropped
        if not culprits:
            raise BuildFailed(output[-3000:])
        dropped |= culprits
    done, output = _build(programs)
    if not done:
        raise BuildFailed(output[-3000:])
