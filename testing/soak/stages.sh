# What the commands that run soaks have in common, for them to source: builds, stages with their
# tables of figures, and the last line.
# shellcheck shell=bash

results=build/soak
tables=()
broken=0

heading() { printf '\n== %s\n' "$*"; }

fresh_results() {
  rm -rf "$results"
  mkdir -p "$results"
}

# build PRESET TARGET...: the output is shown only when something fails.
build() {
  local preset=$1 log=$results/build-$1.log
  heading "building $preset"
  if ! { cmake --preset "$preset" && cmake --build --preset "$preset" --target "${@:2}"; } \
    >"$log" 2>&1; then
    tail -n 60 "$log"
    printf 'the %s build failed\n' "$preset"
    exit 1
  fi
}

# start_wine_machine NAME: a fresh Windows machine, which goes with this command.
start_wine_machine() {
  export VELA_WINE_MACHINE=$1
  trap 'scripts/wine-machine stop >/dev/null 2>&1 || true' EXIT
  heading "a Windows machine"
  scripts/wine-machine stop >/dev/null 2>&1 || true
  scripts/wine-machine start
}

# stage NAME COMMAND...: its figures go to a table. One that leaves none, or fails though all of its
# figures are well, is broken.
stage() {
  local table=$results/$1.txt code=0
  heading "$1"
  "${@:2}" >"$table" || code=$?
  tables+=("$table")
  if [ ! -s "$table" ] || { [ $code -ne 0 ] && ! grep -q '| FAILED' "$table"; }; then
    printf 'the stage %s broke off with exit code %d\n' "$1" $code
    broken=$((broken + 1))
  fi
}

count() { cat "${tables[@]}" | tr -d '\r' | grep -c "| $1\$" || true; }

# The tables and the last line; false when a figure failed or a stage was broken.
print_figures() {
  local table failed
  heading "figures"
  for table in "${tables[@]}"; do
    printf '\n%s\n' "$(basename "$table" .txt)"
    tr -d '\r' <"$table"
  done
  failed=$(($(count FAILED) + broken))
  printf '\n%d passed, %d failed\n' "$(count ok)" $failed
  [ $failed -eq 0 ]
}
