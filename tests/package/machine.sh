# What the tests of the package share. Sourced, not run; after tools/lib.sh.

name='Kelvanstead Scheme Manager'
version=$(sed -n 's/^#define VERSION_TEXT "\(.*\)"/\1/p' src/resources/version.h)

# prepare_machine PREFIX: a copy of the sample school's machine, without the program that it has already.
prepare_machine() {
  tools/sample-machine "$1-base"
  rm -rf "build/wine/$1" && cp -a "build/wine/$1-base" "build/wine/$1"
  use_prefix "$1"
  # Start menu entries stay inside the prefix.
  export WINEDLLOVERRIDES="$WINEDLLOVERRIDES;winemenubuilder.exe=d"
  [[ -n ${DISPLAY-} ]] || start_virtual_display
  rm -rf "$WINEPREFIX/drive_c/Program Files/Tessaly/$name"
  wine reg delete "HKLM\\Software\\Tessaly\\KelvansteadScheme Manager" /v HelpPath /f
  wine reg delete "HKLM\\Software\\Tessaly\\$name" /f
} >/dev/null 2>&1

# msi ARGUMENT ...: Windows Installer, without a window. Takes seconds; where Wine hangs or is lost at its start, once in a
# thousand times, it is started anew.
msi() {
  local status=0
  wine_limit=1m wine msiexec "$@" /qn >/dev/null 2>&1 || status=$?
  [[ $status -eq 124 || $status -eq 1 ]] || return $status
  echo 'Wine has not started: once more'
  wineserver -k || true
  wine msiexec "$@" /qn >/dev/null 2>&1
}

# take_default_pictures: whether the program, started from its folder, copied the pictures that lie there for the shell;
# it does so right before its main window. They are the shell's from then on, and here removed again.
take_default_pictures() {
  local pictures="$WINEPREFIX/drive_c/Program Files/Tessaly/Kelvanstead/Pictures"
  rm "$pictures/Closed Folder.bmp" "$pictures/On-Line Resources.bmp"
}

# tells_version COMMAND ...: whether ksm, started so, is of this version.
tells_version() { [[ $(wine "$@" --version 2>/dev/null) == *"$version"* ]]; }
