#!/usr/bin/env bash
# Builds everything and runs every test: the portable code natively (with ASan/UBSan), a bounded
# fuzzing run of every parser of outside input, then the Windows module and its pages under Wine
# inside one Xvfb.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
jobs=$(nproc)

cmake --preset native >/dev/null
cmake --build --preset native -j "$jobs"
cmake --preset windows >/dev/null
cmake --build --preset windows -j "$jobs"

status=0
ctest --preset native -j "$jobs" || status=1

# A fixed number of inputs from a fixed seed per parser; a crash leaves its input in build/fuzz/artifacts.
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j "$jobs"
scripts/fuzz.sh || status=1

# One Wine session for the whole run, stopped at the end so nothing outlives the tests.
export WINEPREFIX=$PWD/build/windows/wineprefix
# Pages take and lose the keyboard focus as an operator's would: one test program at a time.
run_windows_tests() {
  if [[ -n "${DISPLAY:-}" && -z "${REGVANE_FORCE_XVFB:-}" ]]; then
    ctest --preset windows
  else
    xvfb-run -a -s "-screen 0 1280x1024x24" ctest --preset windows
  fi
}
run_windows_tests || status=1
/usr/lib/wine/wineserver -k 2>/dev/null || true
# The soak's figures (pages opened, heap bytes and windows before and after), for every run's log.
grep -hE '^(soak|designer)' build/windows/Testing/Temporary/LastTest.log 2>/dev/null || true

if [[ $status -eq 0 ]]; then echo "regvane: all tests passed"; else echo "regvane: some tests FAILED"; fi
exit $status
