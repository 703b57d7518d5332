An export is "Save to disk" byte for byte, whole or in part, and brings everything to a wiped machine:

  $ ksm export all.ksf
  Saved 8 schemes to all.ksf
  $ cmp all.ksf school.ksf
  $ ksm export part.ksf "Café Club" --quiet
  $ fields part.ksf | grep -o "^.*Name of scheme|[^|]*|"
  Kelvanstead Scheme Manager!|Config Hive|Config1|Café Club|Config Hive|Café Club|The parents' drop-in café, Friday mornings|Scheme Count|The number of schemes|1|Scheme0|Name of scheme|Café Club|
  $ ksm diff part.ksf "Café Club"
  same       Café Club
  $ remember
  $ wipe
  $ ksm import all.ksf
  Imported 8 schemes
  $ changes

Where the disk is full, or the program is killed while it writes, the old file stays:

  $ echo old >kept.ksf
  $ (trap "" XFSZ; ulimit -f 8; ksm export kept.ksf)
  ! kept.ksf: This file cannot be written
  [3]
  $ ls | grep tmp
  [1]
  $ (ulimit -f 8; ksm export kept.ksf) >/dev/null 2>&1
  [153]
  $ cat kept.ksf
  old
  $ ksm export kept.ksf
  Saved 8 schemes to kept.ksf
  $ cmp kept.ksf school.ksf

What cannot be read whole is told:

  $ reg add "$schemes" /v Gone /d ""
  $ reg add "$schemes\Infants\Defaults" /v Silent /d "no number" /f
  $ ksm export kept.ksf
  Saved 8 schemes to kept.ksf
  ! Gone: This scheme cannot be read: it has no key of its own
  ! Infants: Some of this scheme's settings are missing or damaged
  [6]
  $ ksm list >/dev/null
  [6]

The list of schemes ends in front of a description that is too long:

  $ reg add "$schemes" /v Juniors /d "$(printf 'x%.0s' {1..260})" /f
  $ ksm list | sed 's/  .*//'
  Name
  After School Club
  Café Club
  Default User
  Infants
  ! ksm: The list of schemes ends at a text that is too long to be read
  ! Gone: This scheme cannot be read: it has no key of its own
  [6]

A character that ends a field makes a file that cannot be read whole, which no backup may be:

  $ "$repository/tools/sample-machine" --fresh "$WINE_SESSION"
  $ reg add "$schemes\Infants\FolderDisplay\Root 1" /v LongToolTip /d "Yours ¬ ours" /f
  $ ksm export torn.ksf Infants
  ! torn.ksf: This file was saved, but cannot be read whole; "ksm check" tells where
  [6]
  $ remember
  $ ksm import school.ksf --backup torn.ksf --quiet
  ! torn.ksf: This file was saved, but cannot be read whole; "ksm check" tells where
  [6]
  $ changes
