# shellcheck shell=bash
# Sourced: Windows machines (Wine) for one command.

# fresh_machine NAME: makes a new machine, without anything of an earlier run that was interrupted.
fresh_machine() {
  VELA_WINE_MACHINE=$1 scripts/wine-machine stop >/dev/null 2>&1 || true
  VELA_WINE_MACHINE=$1 scripts/wine-machine start
}

# throwaway_machine NAME: makes a fresh machine for all of this command's Windows programs, and removes
# it when the command ends.
throwaway_machine() {
  export VELA_WINE_MACHINE=$1
  trap 'scripts/wine-machine stop >/dev/null 2>&1 || true' EXIT
  fresh_machine "$1"
}
