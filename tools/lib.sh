# Shared by the scripts: Wine prefixes, virtual displays, screenshots. Sourced, not run.

root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

die() { printf '%s\n' "$*" >&2; exit 1; }

# wine PROGRAM [ARGUMENT ...]: as the command does, until the limit of timeout(1) in wine_limit: what a script asks of Wine
# takes seconds, and what hangs is to fail. One start in some thousand loses its connection before the program has begun,
# and is repeated. Standard error comes at the end, or into the file wine_errors.
wine() {
  local errors tries status
  errors=${wine_errors-$(mktemp)}
  for tries in 1 2 3; do
    status=0
    : >"$errors"
    timeout --foreground "${wine_limit-5m}" wine "$@" 2>>"$errors" || status=$?
    grep -q '^wine client error' "$errors" || break
  done
  [[ -n ${wine_errors-} ]] || { cat "$errors" >&2; rm -f "$errors"; }
  return $status
}

# settle: until every program has ended and the registry is on the disk. Wine's own services end with the last program;
# one that does not is ended.
settle() { timeout 30s wineserver -w || wineserver -k || true; }

# use_prefix NAME: lets Wine work in a prefix of the project's own.
use_prefix() {
  export WINEPREFIX=$root/build/wine/$1 WINEARCH=${WINEARCH-win64} WINEDEBUG=${WINEDEBUG--all} WINEDLLOVERRIDES='mscoree,mshtml='
  mkdir -p "$WINEPREFIX"
}

# start_virtual_display: an X server of this script's own on a free number, ended with the script.
start_virtual_display() {
  local pipe display
  pipe=$(mktemp -u)
  mkfifo "$pipe"
  Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$pipe" 2>/dev/null &
  virtual_display=$!
  trap 'kill $virtual_display 2>/dev/null || true' EXIT
  read -r display <"$pipe"
  rm -f "$pipe"
  export DISPLAY=:$display
}

# prepare_prefix: makes the prefix on first use.
prepare_prefix() {
  [[ -e $WINEPREFIX/.prepared ]] && return
  wine wineboot --init >/dev/null 2>&1
  # A crash ends the program instead of waiting in a window for somebody.
  wine reg add 'HKCU\Software\Wine\WineDbg' /v ShowCrashDialog /t REG_DWORD /d 0 /f >/dev/null
  settle
  # The fonts of the windows, at the sizes that they are laid out for.
  dpkg -L fonts-wine | grep -E '\.(ttf|fon)$' | xargs cp -t "$WINEPREFIX/drive_c/windows/Fonts"
  touch "$WINEPREFIX/.prepared"
}

desktop=kelvanstead,1024x768

# open_desktop: lets every program of the prefix run inside one Wine desktop. Without a window manager each window would
# otherwise wait two seconds for one, and with a desktop of its own each program one second for that.
open_desktop() {
  if [[ ! -e $WINEPREFIX/.desktop ]]; then
    wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d "${desktop%,*}" /f >/dev/null
    wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v "${desktop%,*}" /d "${desktop#*,}" /f >/dev/null
    touch "$WINEPREFIX/.desktop"
  fi
  command wine explorer "/desktop=$desktop" >/dev/null 2>&1 &
}

# desktop_run LIMIT PROGRAM [ARGUMENT ...]: one program, in a desktop of its own, until the limit of timeout(1) at most.
desktop_run() { wine_limit=$1 wine explorer "/desktop=$desktop" "${@:2}"; }

# wait_for_window TITLE: until it stands and has had time to paint itself, or a minute is over.
wait_for_window() {
  local seconds
  for ((seconds = 0; seconds < 60; ++seconds)); do
    sleep 1
    if xwininfo -root -tree | grep -qF "\"$1\""; then
      sleep 1
      return
    fi
  done
  printf 'No window "%s" has come\n' "$1" >&2
  return 1
}

take_screenshot() { import -window root "$1"; }
