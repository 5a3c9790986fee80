# shellcheck shell=bash
# Sourced: prints headings, and runs commands whose output is shown only when they fail. The caller
# first sets `results` to the folder for its logs.
: "${results:?}"

heading() { printf '\n== %s\n' "$*"; }

# fresh_results: empties the folder for the results of this run.
fresh_results() {
  rm -rf "$results"
  mkdir -p "$results"
}

# run_logged LOG COMMAND...: shows the end of the output and returns false when the command fails.
run_logged() {
  local log=$results/$1
  shift
  if ! "$@" >"$log" 2>&1; then
    tail -n 60 "$log" >&2
    printf 'failed: %s; all of its output is in %s\n' "$*" "$log" >&2
    return 1
  fi
}

# build PRESET [TARGET...]: configures and builds everything, or these targets.
build() {
  local preset=$1
  shift
  heading "building $preset"
  run_logged "configure-$preset.log" cmake --preset "$preset" &&
    run_logged "build-$preset.log" cmake --build --preset "$preset" ${1:+--target "$@"}
}
