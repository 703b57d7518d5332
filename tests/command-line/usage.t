Wrong usage, and names that are not there, change nothing:

  $ ksm export two.ksf Infants Staff
  Saved 2 schemes to two.ksf
  $ remember
  $ ksm frob
  ! frob: There is no such command; "ksm --help" lists them
  [2]
  $ ksm list --wait soon
  ! ksm list: Could not convert: --wait = soon
  [2]
  $ ksm import school.ksf --backup ""
  ! ksm import: --backup: must not be empty
  [2]
  $ ksm import school.ksf --backup SCHOOL.ksf
  ! SCHOOL.ksf: The backup would replace the file that is to be imported
  [2]
  $ ksm allocate Infants
  ! ksm allocate: Just one of --class, --user and --group is required
  [2]
  $ ksm allocate --user cafe Infants --clear
  ! ksm allocate: Just one of SCHEME and --clear is required
  [2]
  $ ksm helper merlin
  ! merlin: There is no such helper; there are Peedy, Merlin, Robby and Genie
  [2]
  $ ksm show "" --file school.ksf
  ! "": There is no such scheme
  [4]
  $ ksm check none.ksf
  ! none.ksf: This file cannot be read
  [3]
  $ ksm diff school.ksf Nobody leavers
  ! Nobody: There is no such scheme
  ! leavers: There is no such scheme
  [4]
  $ ksm export new.ksf Infants Nobody
  ! Nobody: There is no such scheme
  [4]
  $ ksm import two.ksf infants Juniors
  ! infants: There is no such scheme; did you mean "Infants"?
  ! Juniors: There is no such scheme
  [4]
  $ ksm delete Infants juniors
  ! juniors: There is no such scheme; did you mean "Juniors"?
  [4]
  $ changes

Each command has help that ends in the exit codes:

  $ for command in "" list show export check diff import delete allocations allocate explain helper; do
  >   ksm $command --help >help.txt || echo "[$?]"
  >   grep ^Usage help.txt && grep -q "^  6  not all of it could be done" help.txt || echo "No exit codes"
  > done
  Usage: ksm [OPTIONS] COMMAND
  Usage: ksm list [OPTIONS]
  Usage: ksm show [OPTIONS] SCHEME
  Usage: ksm export [OPTIONS] FILE [SCHEME...]
  Usage: ksm check [OPTIONS] FILE
  Usage: ksm diff [OPTIONS] FILE [SCHEME...]
  Usage: ksm import [OPTIONS] FILE [SCHEME...]
  Usage: ksm delete [OPTIONS] SCHEME...
  Usage: ksm allocations [OPTIONS]
  Usage: ksm allocate [OPTIONS] [SCHEME]
  Usage: ksm explain [OPTIONS]
  Usage: ksm helper [OPTIONS] [NAME]

A name may look like an option or a list, and have any character that the code page of the machine has:

  $ names=(list -v café "[a,b]" {} /b "a b")
  $ ksm export one.ksf Infants
  Saved 1 scheme to one.ksf
  $ for name in "${names[@]}"; do
  >   of_file "s!Infants!$(iconv -t CP1252 <<<$name)!g" one.ksf >named.ksf; ksm import named.ksf --quiet
  > done
  $ ksm export all.ksf -- "${names[@]}"
  Saved 7 schemes to all.ksf
  $ ksm diff all.ksf -- "${names[@]}"
  same       -v
  same       /b
  same       [a,b]
  same       a b
  same       café
  same       list
  same       {}
  $ ksm show Жук
  ! ksm: Argument 2 has a character that the code page of this machine does not have
  [2]
