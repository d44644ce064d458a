#!/usr/bin/env bash
# Runs a Windows program of the build under Wine: the emulator of the Windows build's tests.
# The Wine prefix lives under the build folder and is created once, under a lock, with the fonts and
# registry settings our dialogs need. Needs an X display for anything that opens a window.
set -euo pipefail

exe=${1:?usage: wine-run.sh program.exe [args...]}
if [[ -z "${WINEPREFIX:-}" ]]; then
  dir=$(cd "$(dirname "$exe")" && pwd)
  while [[ "$dir" != / && ! -f "$dir/CMakeCache.txt" ]]; do dir=$(dirname "$dir"); done
  [[ -f "$dir/CMakeCache.txt" ]] || dir=${TMPDIR:-/tmp}/regvane
  export WINEPREFIX="$dir/wineprefix"
fi
# Another screen resolution (REGVANE_LOG_PIXELS=144 is 150 %): Wine reads it once per process from the
# prefix, so such runs get a prefix of their own beside the usual one, and never change the usual one's.
dpi=${REGVANE_LOG_PIXELS:-96}
if [[ $dpi != 96 && $WINEPREFIX != *-${dpi}dpi ]]; then
  export WINEPREFIX="${WINEPREFIX%/}-${dpi}dpi"
fi
export WINEDEBUG=${WINEDEBUG:--all}
export WINEDLLOVERRIDES=${WINEDLLOVERRIDES:-"mscoree,mshtml="}
wine=/usr/lib/wine/wine64
wineserver=/usr/lib/wine/wineserver

mkdir -p "$(dirname "$WINEPREFIX")"
(
  flock 9
  if [[ ! -f "$WINEPREFIX/.regvane-ready-3" ]]; then
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX/drive_c/windows/Fonts"
    cp /usr/share/wine/fonts/*.ttf "$WINEPREFIX/drive_c/windows/Fonts/"
    # Thai pages: Windows' Tahoma has Thai letters, Wine's has none. A font linked to Tahoma does
    # not help here (Wine draws Thai as glyph numbers of Tahoma itself), so Tahoma gets the Thai
    # letters of Loma, the TLWG sans made for screens.
    thai=/usr/share/fonts/truetype/tlwg/Loma.ttf
    if [[ -f $thai ]]; then
      /usr/bin/python3 "$(dirname "$0")/tahoma-with-thai.py" /usr/share/wine/fonts/tahoma.ttf "$thai" \
        "$WINEPREFIX/drive_c/windows/Fonts/tahoma.ttf"
    fi
    cjk=/usr/share/fonts/truetype/wqy/wqy-microhei.ttc
    [[ -f $cjk ]] && cp "$cjk" "$WINEPREFIX/drive_c/windows/Fonts/"
    "$wine" wineboot -i >/dev/null 2>&1 || true
    # Chinese, Japanese and Korean pages: the dialog fonts fall back to a CJK font, as on Windows.
    if [[ -f $cjk ]]; then
      for face in Tahoma "MS Shell Dlg" "Microsoft Sans Serif"; do
        "$wine" reg add 'HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink' /v "$face" \
          /t REG_MULTI_SZ /d 'wqy-microhei.ttc,WenQuanYi Micro Hei' /f >/dev/null 2>&1
      done
    fi
    # No window manager under Xvfb: without this, destroying a shown window waits for one.
    "$wine" reg add 'HKCU\Software\Wine\X11 Driver' /v Managed /t REG_SZ /d N /f >/dev/null 2>&1
    if [[ $dpi != 96 ]]; then
      "$wine" reg add 'HKCU\Control Panel\Desktop' /v LogPixels /t REG_DWORD /d "$dpi" /f >/dev/null 2>&1
    fi
    "$wineserver" -w
    touch "$WINEPREFIX/.regvane-ready-3"
  fi
  # Start the session's wineserver with its output detached: it outlives this program, and a
  # wineserver holding the caller's stderr makes ctest wait for it after every test.
) 9>"$WINEPREFIX.lock"
# Start (or touch) the session with its output detached: wineserver and the Wine services outlive
# this program, and anything of theirs holding the caller's stdout or stderr makes the caller (ctest,
# a pipe) wait for them after every run.
"$wineserver" -p300 </dev/null >/dev/null 2>&1 || true
"$wine" cmd.exe /c exit </dev/null >/dev/null 2>&1 || true
exec "$wine" "$@"
