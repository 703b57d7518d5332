A damaged file changes nothing unless that is accepted:

  $ head -c 20000 school.ksf >half.ksf
  $ (cat school.ksf; echo) >torn.ksf
  $ of_file 's/Reception/infants/g' school.ksf >twice.ksf
  $ of_file 's/Reception/Infants/g' school.ksf >same.ksf
  $ remember
  $ ksm import school.ksf --dry-run Infants
  same       Infants
  $ ksm import damaged.ksf Infants --backup backup.ksf
  ! damaged.ksf: byte 21348: "Juniors - Tabs, Page2" is missing
  ! damaged.ksf: byte 26861: "Staff - FolderDisplay, RootFoldersCount" is no number, or one of more than 32 bits
  ! damaged.ksf: byte 26904: "Staff - FolderDisplay - Root 1, CollapsedIconFile" is read by no import, like the next 35
  ! damaged.ksf: Nothing was imported: this file is damaged
  [1]
  $ ksm import half.ksf --backup backup.ksf | tail -n 1
  ! half.ksf: Nothing was imported: this file is damaged
  [1]
  $ ksm import torn.ksf --backup backup.ksf
  ! torn.ksf: byte 37890: The file ends inside a record
  ! torn.ksf: Nothing was imported: this file is damaged
  [1]
  $ ksm import twice.ksf
  ! twice.ksf: byte 23336: "Scheme5, Name of scheme" is the name of an earlier scheme
  ! twice.ksf: byte 23367: "infants - FolderDisplay, RootFoldersCount" is read by no import, like the next 80
  ! twice.ksf: Nothing was imported: this file is damaged
  [1]
  $ ksm import torn.ksf --dry-run --accept-damage Infants
  same       Infants
  ! torn.ksf: byte 37890: The file ends inside a record
  [1]
  $ ksm diff torn.ksf Infants
  same       Infants
  ! torn.ksf: This file is damaged; "ksm check" tells where
  [1]
  $ ksm show Infants --file torn.ksf | tail -n 2
  Toolbar page 3: Help                         On
  ! torn.ksf: This file is damaged; "ksm check" tells where
  [1]
  $ ksm show Infants --file same.ksf | grep ^Folders  # of one name the last
  Folders                                      1
  [1]
  $ changes
  $ reg add "$schemes\Juniors\WebLinks" /v WebLinksCount /t REG_DWORD /d 0 /f
  $ ksm import damaged.ksf Juniors --accept-damage >/dev/null
  [6]
  $ ksm diff school.ksf Juniors
  changed    Juniors
    Tab Selection: My Files: "Off" -> "On"
  [1]

What was written is read back. Of a text with a NUL the registry has the part in front:

  $ of_file 's/Art.bmp/Art\x00bmp/' school.ksf >cut.ksf
  $ ksm import cut.ksf --accept-damage "After School Club"
  Imported 1 scheme
  ! cut.ksf: byte 853: "After School Club - FolderDisplay - Root 1, CollapsedIconFile" would end at the NUL in it
  ! After School Club: Differs after the import: Folder 1: Closed folder: "Art" -> "Art?bmp"
  [6]
  $ ksm import cut.ksf --accept-damage --no-verify "After School Club"
  Imported 1 scheme
  ! cut.ksf: byte 853: "After School Club - FolderDisplay - Root 1, CollapsedIconFile" would end at the NUL in it
  [6]
  $ ksm import school.ksf --quiet

The import does not begin where the backup fails; the backup gives everything back:

  $ remember
  $ ksm import changed.ksf --backup "none\one.ksf"
  ! none\one.ksf: This file cannot be written
  [3]
  $ changes
  $ ksm import changed.ksf Infants Staff --backup backup.ksf
  Saved 8 schemes to backup.ksf
  Imported 2 schemes
  $ cmp backup.ksf school.ksf
  $ changes
  - "Infants"="Years 1 and 2"
  + "Infants"="Years 1, 2 and 3"
  - "Page3"=dword:00000001
  + "Page3"=dword:00000000
  + backup.ksf
  [1]
  $ ksm import backup.ksf
  Imported 8 schemes
  $ changes
  + backup.ksf
  [1]

Only the schemes that are named are written, and their descriptions:

  $ wipe
  $ ksm import school.ksf Infants
  Imported 1 scheme
  $ ksm list
  Name     Description    Built in  Allocated to
  Infants  Years 1 and 2            class Willow, class Rowan

Names that differ in case only are one to the registry, and a built-in scheme stays as it is:

  $ of_file 's/Infants/infants/g; s/Years 1 and 2/For infants/' school.ksf >lower.ksf
  $ wipe
  $ ksm import lower.ksf infants Juniors
  Imported 2 schemes
  $ reg add "$product\Protected Schemes" /v infants
  $ ksm diff school.ksf Infants
  changed    Infants
    Description: "For infants" -> "Years 1 and 2"
    Folder 2: Path: "S:\infants\Stories" -> "S:\Infants\Stories"
  [1]
  $ remember
  $ ksm import school.ksf Infants Juniors --keep-built-in
  Left Infants as it is: it is built in
  Imported 1 scheme
  $ changes
  $ ksm list
  Name     Description   Built in  Allocated to
  infants  For infants   yes       class Willow, class Rowan
  Juniors  Years 3 to 5            class Beech, class Chestnut

An import mends what a killed one has left, and says nothing of it:

  $ wipe
  $ reg add "$schemes" /v Infants /d ""
  $ ksm import school.ksf
  Imported 8 schemes
