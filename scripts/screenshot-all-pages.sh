#!/usr/bin/env bash
# A picture of every chip page in one folder, for looking at the pages side by side (open
# index.html there). Usage: scripts/screenshot-all-pages.sh [FOLDER] [--types 47,196,...]
# FOLDER defaults to build/windows/screenshots/all-pages. The pages start from their chips' start
# values and nothing is saved. Runs in its own Xvfb, so pictures are alike from run to run.
set -euo pipefail
cd "$(dirname "$0")/.."

folder=build/windows/screenshots/all-pages
if (($# > 0)) && [[ $1 != --* ]]; then
  folder=$1
  shift
fi

scripts/install-deps.sh
cmake --preset windows >/dev/null
cmake --build --preset windows -j "$(nproc)" --target RegvaneWorkbench regvane regvane_language_files

export WINEPREFIX=$PWD/build/windows/wineprefix
mkdir -p "$folder"
# Old pictures of pages that no longer open would mislead.
rm -f "$folder"/*.png "$folder"/index.html
xvfb-run -a -s "-screen 0 1280x1024x24" bash -c '
  status=0
  cmake/wine-run.sh build/windows/App/Bin/RegvaneWorkbench.exe --all-pages "$0" "$@" || status=$?
  /usr/lib/wine/wineserver -k 2>/dev/null || true
  exit $status' "$folder" "$@" && status=0 || status=$?
echo "pictures: $(cd "$folder" && pwd)/ (index.html shows them side by side)"
exit $status
