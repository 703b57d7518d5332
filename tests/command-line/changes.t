Schemes are deleted with their allocations to classes and users; that the program is open is told:

  $ cp "$programs/guard.exe" "Kelvanstead Scheme Manager.exe"
  $ coproc open { wine "Kelvanstead Scheme Manager.exe" hold "No mutex of ksm"; }
  $ read -r -u ${open[0]}
  $ ksm delete Infants "Café Club" Infants
  Deleted Café Club
  Deleted Infants
  ! Kelvanstead Scheme Manager: The program is open and may not show what ksm changes
  $ exec {open[1]}>&-; wait
  $ ksm list | cut -c 1-20
  Name               D
  After School Club  G
  Default User       F
  Juniors            Y
  Reception          O
  Staff              T
  Year 6 - Leavers   Y
  $ tree "$product\Class Schemes"
  [HKEY_LOCAL_MACHINE\Software\Tessaly\Kelvanstead\Class Schemes]
  "Acorns"="Reception"
  "Beech"="Juniors"
  "Chestnut"="Juniors"
  "Oak"="Year 6 - Leavers"
  $ tree "$product\User Schemes"
  [HKEY_LOCAL_MACHINE\Software\Tessaly\Kelvanstead\User Schemes]
  "s.owen"="After School Club"

Classes, users and groups are allocated schemes, known or not:

  $ reg add "$product\User Schemes" /v daniel /t REG_DWORD /d 1
  $ ksm allocations --json | grep -B 1 -A 2 -E '"(daniel|grace)"|^!'
        "kind": "user",
        "name": "daniel",
        "scheme": null,
        "known": false
  --
        "kind": "user",
        "name": "grace",
        "scheme": null,
        "known": true
  --
  }
  ! daniel: What is allocated to this user cannot be read
  [6]
  $ ksm allocate --user daniel Staff
  Allocated Staff to user daniel
  $ ksm allocate Staff --group Pupils
  Allocated Staff to group Pupils
  $ ksm allocate --user s.owen --clear
  Cleared user s.owen
  $ ksm allocate --class Elm Juniors --quiet
  ! Elm: This machine does not know this class; the allocation is made all the same
  $ for owner in Class User "User Group"; do tree "$product\\$owner Schemes"; done
  [HKEY_LOCAL_MACHINE\Software\Tessaly\Kelvanstead\Class Schemes]
  "Acorns"="Reception"
  "Beech"="Juniors"
  "Chestnut"="Juniors"
  "Elm"="Juniors"
  "Oak"="Year 6 - Leavers"
  [HKEY_LOCAL_MACHINE\Software\Tessaly\Kelvanstead\User Schemes]
  "daniel"="Staff"
  "s.owen"=""
  [HKEY_LOCAL_MACHINE\Software\Tessaly\Kelvanstead\User Group Schemes]
  "Administrators"="Staff"
  "Pupils"="Staff"
  "Teachers"="Staff"

What could not be read again is not allocated:

  $ remember
  $ ksm allocate --group "$(printf 'n%.0s' {1..260})" Staff | cut -c -20
  ! nnnnnnnnnnnnnnnnnn
  [6]
  $ changes

The helper. Its path counts whatever the type of the value is:

  $ ksm helper Peedy --quiet
  $ ksm helper
  Peedy
  $ reg add "$product\Settings" /v "msAgent Path" /d 'C:\Windows\MSAgent\Chars\Rover.acs' /f
  $ ksm helper
  None of the four: C:\Windows\MSAgent\Chars\Rover.acs
  $ reg add "$product\Settings" /v "msAgent Path" /t REG_BINARY /d 5C526F6262792E61637300 /f
  $ ksm helper
  Robby

Two ksm do not change a machine at once:

  $ remember
  $ coproc other { hold "Global\Kelvanstead Scheme Manager, command line"; }
  $ read -r -u ${other[0]}
  $ ksm import school.ksf --wait 0
  ! ksm: Another ksm is changing this machine; nothing was done
  [6]
  $ ksm check school.ksf
  Whole, with 8 schemes
  $ ksm import --wait 30 school.ksf --quiet & waiting=$!
  $ sleep 0.5; changes
  $ exec {other[1]}>&-; wait $waiting
  $ ksm diff school.ksf Infants
  same       Infants
