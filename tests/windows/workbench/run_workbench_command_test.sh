#!/usr/bin/env bash
# The README's workbench command with the options that stop without a page: --list and --help, on
# a machine without a display and (when the tests have one) with one.
set -uo pipefail
cd "$(dirname "$0")/../../.."
failed=0
# Output goes to a file, not a pipe: Wine's background processes would hold a pipe open.
out=$(mktemp)
trap 'rm -f "$out"' EXIT
check() { # what, expected text, command...
  local what=$1 expected=$2
  shift 2
  local status=0
  "$@" >"$out" 2>&1 </dev/null || status=$?
  if ((status != 0)) || ! grep -qF -- "$expected" "$out"; then
    echo "FAILED: $what (exit status $status)"
    tail -5 "$out"
    failed=1
  fi
}
check "--list without a display" "CRegvaneICN2055EX" env -u DISPLAY scripts/run-workbench.sh --list
check "--help without a display" "--all-pages FOLDER" env -u DISPLAY scripts/run-workbench.sh --help
if [[ -n "${DISPLAY:-}" ]]; then
  check "--list with a display" "CRegvaneICN2055EX" scripts/run-workbench.sh --list
fi
exit $failed
