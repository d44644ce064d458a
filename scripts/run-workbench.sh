#!/usr/bin/env bash
# The main job: builds the module and the workbench, then runs the workbench under Wine.
# With an X display it opens the workbench window. Without one it runs headless in its own Xvfb:
# it opens the page of --type (the MBI5153 page, chip type 47, when none is given; with no arguments
# at all it also moves the red gain and presses Default), prints the calls the page made and the
# register bytes, and writes a picture of the page into build/windows/screenshots/; --describe FILE
# does the same for the page a chip description renders. --list, --help, --all-pages and
# --check-description do the same with or without a display. Arguments go to the workbench
# (RegvaneWorkbench.exe --help lists them).
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
cmake --preset windows >/dev/null
cmake --build --preset windows -j "$(nproc)" --target RegvaneWorkbench regvane regvane_language_files

export WINEPREFIX=$PWD/build/windows/wineprefix
# REGVANE_LOG_PIXELS=144 runs it at 150 %, in a Wine prefix of its own (see cmake/wine-run.sh).
if [[ ${REGVANE_LOG_PIXELS:-96} != 96 ]]; then
  export WINEPREFIX=$WINEPREFIX-${REGVANE_LOG_PIXELS}dpi
fi
workbench=build/windows/App/Bin/RegvaneWorkbench.exe
status=0
if [[ -n "${DISPLAY:-}" ]]; then
  cmake/wine-run.sh "$workbench" "$@" || status=$?
  /usr/lib/wine/wineserver -k 2>/dev/null || true
else
  # A page run needs --headless and a page; listing, help and the pictures of every page do not.
  page_run=1
  has_type=0
  for arg in "$@"; do
    case $arg in
      --list | --help | -h | '/?' | --all-pages | --check-description) page_run=0 ;;
      --type | --describe) has_type=1 ;;
    esac
  done
  if (($# == 0)); then
    set -- --headless --type 47 --do "slider 8123 20; click 8025"
  elif ((page_run && !has_type)); then
    set -- --headless --type 47 "$@"
  elif ((page_run)); then
    set -- --headless "$@"
  fi
  # Wine's session ends inside Xvfb's lifetime, so nothing of it outlives the display it uses.
  xvfb-run -a -s "-screen 0 1280x1024x24" bash -c '
    status=0
    cmake/wine-run.sh "$0" "$@" || status=$?
    /usr/lib/wine/wineserver -k 2>/dev/null || true
    exit $status' "$workbench" "$@" || status=$?
fi
exit $status
