What the registry refuses is named; the rest is done:

  $ rights KR "$schemes\Infants\Defaults"
  $ ksm import changed.ksf --no-verify
  Imported 7 of 8 schemes
  ! Infants: Not all of this scheme could be written
  [6]
  $ rights SD "$schemes\Infants\Defaults"
  $ ksm import school.ksf --backup backup.ksf --quiet
  ! Infants: The registry refused to read all of this scheme
  ! backup.ksf: Nothing was written: not all could be read
  [6]
  $ [[ -e backup.ksf ]]
  [1]
  $ rights KA "$schemes\Infants\Defaults"
  $ rights KR "$product\Class Schemes"
  $ ksm delete "Café Club" Infants
  ! Café Club: The registry refused to delete all of this scheme
  ! Infants: The registry refused to delete all of this scheme
  [6]
  $ ksm diff changed.ksf | grep -v ^same
  new        Café Club
  new        Infants
  only here  Reception
  [1]
  $ rights KA "$product\Class Schemes"
  $ ksm import school.ksf --quiet

Who may read only reads:

  $ keys=("$product" "$product\User Schemes" "$product\Settings" "$schemes")
  $ remember
  $ rights KR "${keys[@]}"
  $ for command in "import school.ksf" "delete Infants" "allocate --user cafe Infants" "helper Genie"; do
  >   ksm $command; echo "[$?]"
  > done
  ! ksm: This user has no right to change the schemes
  [5]
  ! ksm: This user has no right to change the schemes
  [5]
  ! cafe: This user has no right to change allocations
  [5]
  ! Genie: This user has no right to choose the helper
  [5]
  $ ksm diff school.ksf Infants
  same       Infants
  $ ksm export all.ksf
  Saved 9 schemes to all.ksf
  $ rm all.ksf; changes
  $ rights KA "${keys[@]}"

The policy keeps a user out of every command:

  $ every_command() {
  >   for command in list "show Infants" "delete Infants" "export new.ksf" "diff school.ksf" "import changed.ksf" \
  >     allocations explain "allocate --user cafe Infants" helper "helper Genie"; do
  >     ksm $command; echo "[$?]"
  >   done | sort | uniq -c
  > }
  $ policy='HKCU\Software\Policies\Tessaly\Kelvanstead Scheme Manager'
  $ reg add "$policy" /v Lock /t REG_DWORD /d 1
  $ every_command
       11 ! ksm: The policy locks this user out
       11 [5]
  $ ksm check school.ksf
  ! ksm: The policy locks this user out
  [5]
  $ ksm --version
  ksm 2.28.0.0
  $ reg delete "$policy" /f
  $ changes

Without the shell there is nothing to do, and nothing is made:

  $ reg delete "$product" /f
  $ remember
  $ every_command
       11 ! ksm: Kelvanstead is not installed on this machine
       11 [4]
  $ changes
  $ ksm show Infants --file school.ksf | grep Description
  Description                                  Years 1 and 2
  $ ksm check school.ksf
  Whole, with 8 schemes
