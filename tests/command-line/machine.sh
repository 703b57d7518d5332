# shellcheck shell=bash disable=SC2034,SC2154
# What each transcript begins with: the machine of the sample school on its first day, files of its schemes in the
# working folder, and commands to look at both. Sourced by the shell of a transcript before its first line. "run" tells
# where the repository and the programs are.

unset BASH_ENV
. "$repository/tools/lib.sh"
set -o pipefail
export LC_ALL=C.UTF-8

product='HKLM\Software\Tessaly\Kelvanstead' schemes='HKLM\Software\Tessaly\Kelvanstead\Schemes'
# Whoever runs this is a pupil of the school: from here Wine has the name of the user.
export USER=amelia

# as_text: a program's output with the line ends of this machine.
as_text() { tr -d '\r'; }

# start PROGRAM [ARGUMENT ...]: by Wine, what comes out into the files $results and $problems. A start that is lost can end
# in 1 without a word, too, which no program here does by itself; it is repeated.
start() {
  local tries status
  for tries in 1 2 3; do
    status=0
    wine_errors=$problems wine "$@" </dev/null >>"$results" || status=$?
    [[ $status -eq 1 && ! -s $results && ! -s $problems ]] || break
  done
  return $status
}

# ksm ARGUMENT ...: its results, then its problems, each line of these behind a "! ".
ksm() {
  local results problems status=0
  results=$(mktemp) problems=$(mktemp)
  start "$programs/ksm.exe" "$@" || status=$?
  as_text <"$results"
  as_text <"$problems" | sed 's/^/! /'
  rm -f "$results" "$problems"
  return $status
}

# The document shows both as they come on a console, of a long output the beginning.
if [[ ${TESTFILE-} == *.md ]]; then
  ksm() {
    local results problems status=0
    results=$(mktemp) problems=$results
    start "$programs/ksm.exe" "$@" || status=$?
    as_text <"$results" | awk 'NR <= 20 { print } NR == 21 { print "..." }'
    rm -f "$results"
    return $status
  }
fi

# silently PROGRAM [ARGUMENT ...]: without what it says.
silently() {
  local results problems status=0
  results=$(mktemp) problems=$(mktemp)
  start "$@" || status=$?
  rm -f "$results" "$problems"
  return $status
}

# reg ARGUMENT ...: the system's command.
reg() { silently reg "$@"; }

# registry: takes in what standard input states as a .reg file does, with HKLM and HKCU.
registry() {
  sed -e '1 i REGEDIT4' -e 's/HKLM/HKEY_LOCAL_MACHINE/; s/HKCU/HKEY_CURRENT_USER/' >changes.reg
  silently regedit /S changes.reg
  rm changes.reg
}

# wipe: takes all schemes away, but not the shell.
wipe() { printf '[-%s]\n[%s]\n' "$schemes" "$schemes" | registry; }

# tree KEY: the key with everything below it.
tree() {
  reg export "$1" tree.reg /y && iconv -f UTF-16 -t UTF-8 tree.reg | as_text | sed -e 1d -e '/^$/d'
  rm -f tree.reg
}

# remember: what the machine has of the shell, and which files are here. changes: the lines that went and came since.
state() { tree 'HKLM\Software\Tessaly'; ls; }
remember() { before=$(state); }
changes() { diff --{old-line-format='- ',new-line-format='+ '}%L --unchanged-line-format= <(cat <<<"$before") <(state); }

# of_file SCRIPT FILE: the file, changed by a script of sed; "|" stands for the byte that ends a field.
of_file() { LC_ALL=C sed "${1//|/$'\xAC'}" "$2"; }

# fields FILE: its fields, with a "|" behind each.
fields() { iconv -f CP1252 -t UTF-8 "$1" | sed 's/¬/|/g'; }

# records FILE: its records, a line each with such fields. as_file: the file of such lines.
records() { fields "$1" | cut -c 29- | sed 's/\(\([^|]*|\)\{3\}\)/\1\n/g'; }
as_file() { (echo -n 'Kelvanstead Scheme Manager!|'; tr -d '\n') | sed 's/|/¬/g' | iconv -f UTF-8 -t CP1252; }

# hold MUTEX: until standard input ends. Prints a line as soon as it does.
hold() { wine "$programs/guard.exe" hold "$1"; }

# rights RIGHTS KEY ...: leaves everybody just these to each of the keys, "KR" to read it, "KA" all.
rights() {
  local key
  for key in "${@:2}"; do silently "$programs/guard.exe" rights "${key#HKLM?}" "$1"; done
}

"$repository/tools/sample-machine" --fresh "$WINE_SESSION"
cp "$repository/samples/Greenfield Primary.ksf" school.ksf
echo 'No scheme file' >readme.txt
# A tab flag is missing, and a count is no number.
of_file 's/Juniors - Tabs|Page2|1|//; s/\(Staff - FolderDisplay|RootFoldersCount|\)[0-9]*/\1two/' school.ksf >damaged.ksf
of_file 's/Infants|Years 1 and 2/Infants|Years 1, 2 and 3/; s/Reception/Nursery/g
  s/\(Staff - Tabs|Page3|\)1/\10/' school.ksf >changed.ksf
