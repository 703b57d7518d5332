A sound file is whole, in whatever order its records stand:

  $ ksm export two.ksf Infants Juniors --quiet
  $ records two.ksf | shuf --random-source=two.ksf | as_file >shuffled.ksf
  $ ksm check shuffled.ksf
  Whole, with 2 schemes
  $ remember
  $ ksm import shuffled.ksf
  Imported 2 schemes
  $ changes
  $ echo 'Scheme Count|The number of schemes|0|' | as_file >none.ksf
  $ ksm check none.ksf
  Whole, with 0 schemes
  $ wipe
  $ ksm export empty.ksf --quiet
  $ cmp empty.ksf none.ksf

A name like a label of the list of descriptions hides the name that stands there:

  $ of_file 's/Infants/Config2/g; s/Juniors/Config1/g' two.ksf >labels.ksf
  $ ksm check labels.ksf
  Byte  Scheme        Record                     Problem
  28                  Config Hive, Config1       stands twice, like the next 1
  118   Years 3 to 5  Config Hive, Config1       describes a scheme that the file does not have
  151   Years 3 to 5  Config Hive, Years 3 to 5  is missing
  4442  Config2       Config Hive, Config2       is missing
  [1]

Of each damage, the scheme, the record and what stands in the file at its byte:

  $ findings() {
  >   ksm check odd.ksf | sed 1d | while read -r byte text; do
  >     printf '%s: %s\n' "$(fields odd.ksf | tail -c +$((byte + 1)) | head -c 16)" "$text" | tr -s ' '
  >   done
  >   true
  > }
  $ damaged() { of_file "$1" two.ksf >odd.ksf; findings; }

  $ damaged 's/Infants - Tabs|Page2|1|//'
  Infants - Tabs|P: Infants Infants - Tabs, Page2 is missing
  $ damaged 's/Infants - Tabs|.*|Infants - ToolBars - Page 1|Back/Infants - ToolBars - Page 1|Back/'
  Infants - ToolBa: Infants Infants - Tabs is missing
  $ damaged 's/Infants - Tabs|Page2|1|/&&/'
  Infants - Tabs|P: Infants Infants - Tabs, Page2 stands twice
  $ damaged 's/Infants - Tabs|Page2|1/Infants - Tabs|Page2|2147483648/'
  Infants - Tabs|P: Infants Infants - Tabs, Page2 is no number, or one of more than 32 bits
  $ damaged 's/Infants - Tabs|Page2|1/Infants - Tabs|Page2| +7/'
  $ damaged 's/RootPath|H:/&\x00/'
  Infants - Folder: Infants Infants - FolderDisplay - Root 1, RootPath would end at the NUL in it
  $ damaged 's/Infants - FolderDisplay|RootFoldersCount|2/&nd/'
  Infants - Folder: Infants Infants - FolderDisplay, RootFoldersCount is no number, or one of more than 32 bits
  Infants - Folder: Infants Infants - FolderDisplay - Root 1, CollapsedIconFile is read by no import, like the next 17
  $ damaged 's/Infants - FolderDisplay|RootFoldersCount|2/Infants - FolderDisplay|RootFoldersCount|4/'
  Infants - Folder: Infants Infants - FolderDisplay, RootFoldersCount states 4, of which 2 are missing
  $ damaged 's/WeblinksCount|3/WeblinksCount|1001/'
  Infants - Folder: Infants Infants - Folder Display, WeblinksCount is more than the 1000 that can be
  Infants - Weblin: Infants Infants - Weblinks - WebLink 1, DisplayName is read by no import, like the next 17
  $ damaged 's/Scheme Count|The number of schemes|2|//'
  Config Hive|Conf: Scheme Count, The number of schemes is missing
  Config Hive|Conf: Config Hive, Config1 is read by no import, like the next 218
  $ damaged 's/number of schemes|2/number of schemes|3/'
  Scheme Count|The: Config Hive, Config3 is missing
  : Scheme2, Name of scheme is missing
  $ damaged 's/number of schemes|2/number of schemes|-2/'
  Config Hive|Conf: Config Hive, Config1 is read by no import, like the next 3
  Scheme Count|The: Scheme Count, The number of schemes is less than 0
  Scheme0|Name of : Scheme0, Name of scheme is read by no import, like the next 214
  $ damaged 's/Name of scheme|Infants/Name of scheme|In\\fants/'
  Config Hive|Conf: Infants Config Hive, Config1 describes a scheme that the file does not have
  Scheme0|Name of : In\fants Scheme0, Name of scheme is no name that a scheme can have
  Infants - Folder: In\fants Config Hive, In\fants is missing
  Infants - Folder: Infants - FolderDisplay, RootFoldersCount is read by no import, like the next 95
  $ damaged "s/Infants|Years 1 and 2/Infants|$(printf 'x%.0s' {1..260})/"
  Config Hive|Infa: Infants Config Hive, Infants would be cut to 259 characters
  $ damaged 's/|Scheme1|/Scheme1|/' | sed -n 1p
  Config Hive|Conf: Juniors Config Hive, Config2 describes a scheme that the file does not have
  $ damaged 's/!|Config Hive/!||Config Hive/' | sed -n 1p
  |Config Hive|Con: ¬Config Hive, Config1 is read by no import, like the next 1

A file that is torn, one with a byte too many, and two schemes of one name:

  $ head -c -1 two.ksf >odd.ksf; findings
  Juniors - Defaul: Juniors Juniors - Defaults, Options Menu is missing
  Juniors - Defaul: The file ends inside a record
  $ (cat two.ksf; printf x) >odd.ksf; findings
  x: The file ends inside a record
  $ damaged 's/Juniors/INFANTS/g'
  Scheme1|Name of : INFANTS Scheme1, Name of scheme is the name of an earlier scheme
  INFANTS - Folder: INFANTS INFANTS - FolderDisplay, RootFoldersCount is read by no import, like the next 116

Few bytes can state much. What is listed stays short, and so is each line:

  $ (echo 'Scheme Count|The number of schemes|100000|'; printf '%300000s' | tr ' ' '|') | as_file >odd.ksf
  $ ksm check odd.ksf | wc -l
  1002
  [1]
  $ printf '%100000s|key|value|' | tr ' ' x | as_file >odd.ksf
  $ ksm check odd.ksf | awk 'length > 300' | wc -l
  0
  [1]
