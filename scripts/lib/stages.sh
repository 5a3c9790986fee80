# shellcheck shell=bash
# Sourced after build.sh by the commands that run soaks: runs stages, and prints their tables of
# figures and the last line.
: "${results:?}"

tables=()
broken=0

# stage NAME COMMAND...: runs a soak, whose figures go to a table. The stage is broken when there are no
# figures, or when the command fails although no figure failed.
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

# count RESULT: prints the number of figures with this result.
count() { cat "${tables[@]}" | tr -d '\r' | grep -c "| $1\$" || true; }

# print_figures: prints the tables and the last line. Returns false when a figure failed or a stage was
# broken.
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
