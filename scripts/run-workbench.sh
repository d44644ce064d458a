#!/usr/bin/env bash
# The main job: builds the module and the workbench, then runs the workbench under Wine. With no
# X display it runs headless inside Xvfb. Arguments go to the workbench.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
cmake --preset windows >/dev/null
cmake --build --preset windows -j "$(nproc)" --target RegvaneWorkbench regvane regvane_language_files

export WINEPREFIX=$PWD/build/windows/wineprefix
workbench=build/windows/App/Bin/RegvaneWorkbench.exe
status=0
if [[ -n "${DISPLAY:-}" ]]; then
  cmake/wine-run.sh "$workbench" "$@" || status=$?
else
  xvfb-run -a -s "-screen 0 1280x1024x24" cmake/wine-run.sh "$workbench" --headless "$@" || status=$?
fi
/usr/lib/wine/wineserver -k 2>/dev/null || true
exit $status
