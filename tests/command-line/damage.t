Damage that is accepted costs what it hit. The names and the numbers of folders that an import brings to a wiped machine:

  $ ksm export two.ksf Infants Reception --quiet
  $ brings() {
  >   wipe; ksm import odd.ksf --accept-damage --quiet | grep -v ': byte'
  >   tree "$schemes" | sed -n '/FolderDisplay]/ { N; s/.*Schemes.\(.*\).FolderDisplay].*:0*\(.\)/\1: \2/p }'
  > }
  $ damaged() { of_file "$1" two.ksf >odd.ksf; brings; }

  $ damaged 's/!|/!/'
  ! odd.ksf: This is no scheme file
  $ damaged 's/!|/!||/'
  ! ksm: Not all of the descriptions could be written
  ! Infants: This scheme is not there after the import
  Infants: 2
  Reception: 1
  $ damaged 's/RootPath.*//'
  ! "": Not all of this scheme could be written
  ! "": This scheme is not there after the import
  Infants: 2
  $ damaged 's/number of schemes|2/number of schools|2/'
  $ damaged 's/number of schemes|2/number of schemes|-2/'
  $ damaged 's/number of schemes|2/number of schemes|99999999999/'
  ! ksm: Not all of the descriptions could be written
  ! "": Not all of this scheme could be written
  ! "": This scheme is not there after the import
  Infants: 2
  Reception: 1
  $ damaged 's/FoldersCount|2/FoldersCount|3/'
  Infants: 3
  Reception: 1
  $ damaged 's/FoldersCount|2/FoldersCount|two/'
  Infants: 0
  Reception: 1
  $ damaged 's/FoldersCount|2/FoldersCount|1001/'
  Infants: 2
  Reception: 1
  $ damaged 's/FoldersCount|2/FoldersCount|99999999999/'
  Infants: 2
  Reception: 1
  $ damaged 's/FoldersCount|2/FoldersCount|-1/'
  Infants: 0
  Reception: 1
  $ damaged "s/Years 1 and 2|/$(printf 'x%.0s' {1..300})|/"
  Infants: 2
  Reception: 1
  $ damaged 's/Name of scheme|Reception|/Name of scheme||/'
  ! "": Not all of this scheme could be written
  ! "": This scheme is not there after the import
  Infants: 2
  $ damaged 's/Name of scheme|Reception|/Name of scheme|a\\b|/'
  ! a\b: Not all of this scheme could be written
  ! a\b: This scheme is not there after the import
  Infants: 2
  $ damaged 's/Name of scheme|Reception|/Name of scheme|a\x00b|/'
  ! a?b: Not all of this scheme could be written
  ! a?b: This scheme is not there after the import
  Infants: 2
  $ damaged "s/Name of scheme|Reception|/Name of scheme|$(printf 'n%.0s' {1..256})|/" | cut -c -20
  ! nnnnnnnnnnnnnnnnnn
  ! nnnnnnnnnnnnnnnnnn
  Infants: 2
  $ damaged 's/Name of scheme|Reception|/Name of scheme|Up||/'
  ! Up: This scheme is not there after the import
  Infants: 2
  Up: 0

What no file of schemes can be is not read, and what is protected not replaced:

  $ ksm check .
  ! .: This file cannot be read
  [3]
  $ (cat two.ksf; head -c 12000000 /dev/zero | LC_ALL=C tr '\0' '\254') >large.ksf
  $ ksm check large.ksf
  ! large.ksf: This file cannot be read
  [3]
  $ ksm import two.ksf --quiet
  $ chmod a-w two.ksf
  $ ksm check two.ksf
  Whole, with 2 schemes
  $ ksm export two.ksf Infants
  ! two.ksf: This file cannot be written
  [3]
  $ records two.ksf | grep -c Reception
  84

A scheme of fewer folders leaves the keys of the others behind, and other schemes alone:

  $ chmod a+w two.ksf
  $ of_file 's/FoldersCount|2/FoldersCount|1/' two.ksf >fewer.ksf
  $ ksm import school.ksf --quiet
  $ remember
  $ ksm import fewer.ksf Infants --accept-damage --quiet
  ! fewer.ksf: byte 774: "Infants - FolderDisplay - Root 2, CollapsedIconFile" is read by no import, like the next 8
  [6]
  $ changes
  - "RootFolderCount"=dword:00000002
  + "RootFolderCount"=dword:00000001
  [1]
