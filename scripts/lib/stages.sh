# shellcheck shell=bash
# Sourced after build.sh by the commands that run soaks: stages with their tables of figures, and the
# last line.
: "${results:?}"

tables=()
broken=0

# stage NAME COMMAND...: runs a soak, whose figures go to a table. It is broken when it leaves none, or
# when it fails although all of its figures are well.
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

# count RESULT: the figures with this result.
count() { cat "${tables[@]}" | tr -d '\r' | grep -c "| $1\$" || true; }

# print_figures: the tables and the last line; false when a figure failed or a stage was broken.
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
