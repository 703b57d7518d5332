Every setting under its own label. In this file each has a number of its own:

  $ ksm export one.ksf Infants --quiet
  $ records one.ksf | awk -F'|' -v OFS='|' '
  > /^Infants - / && !/Count\||Tabs/ { $3 = $3 ~ /^[0-9]+$/ ? NR : "text " NR } 1' | as_file >numbered.ksf
  $ ksm show Infants --file numbered.ksf | sed 's/   */=/' |
  > awk -F: '{ printf "%s", $1 == section ? ";" $2 : "\n" $0; section = $1 }
  > END { print "" }' | fold -s -w 110 | sed 's/ *$//'
  
  Name=Infants
  Description=Years 1 and 2
  Tab Selection: Programs=On; My Files=On; Links=On
  Default Settings: Tab=96; View for 'My Files'=text 94; Right Click Menus=Off (99); Options menu=Off (100);
  OnScreen Helper=Talking (98); Icon Size=95; Short ToolTips=On (97)
  Folders=2
  Folder 1: Display Name=text 8; Path=text 9; Folder levels=11; Users may not change the contents=Yes (10);
  Closed folder=text 6; Open folder=text 7; Long ToolTip=text 12; Short ToolTip=text 13; Sound=text 14
  Folder 2: Display Name=text 17; Path=text 18; Folder levels=20; Users may not change the contents=Yes (19);
  Closed folder=text 15; Open folder=text 16; Long ToolTip=text 21; Short ToolTip=text 22; Sound=text 23
  Links=3
  Link 1: Display Name=text 25; URL=text 26; Long ToolTip=text 28; Short ToolTip=text 29; Picture=text 27;
  Sound=text 30
  Link 2: Display Name=text 31; URL=text 32; Long ToolTip=text 34; Short ToolTip=text 35; Picture=text 33;
  Sound=text 36
  Link 3: Display Name=text 37; URL=text 38; Long ToolTip=text 40; Short ToolTip=text 41; Picture=text 39;
  Sound=text 42
  Toolbar page 1: Cut=On (48); Copy=On (47); Paste=On (54); Delete=On (49); New=On (53); Rename=On (57);
  Undo=On (59); Print=On (55); Icon Size=On (52); Back=On (46); Forward=On (50); Up=On (60); Refresh=On (56);
  View=On (61); Side=On (58); Help=On (51)
  Toolbar page 2: Cut=On (64); Copy=On (63); Paste=On (70); Delete=On (65); New=On (69); Rename=On (73);
  Undo=On (75); Print=On (71); Icon Size=On (68); Back=On (62); Forward=On (66); Up=On (76); Refresh=On (72);
  View=On (77); Side=On (74); Help=On (67)
  Toolbar page 3: Cut=On (80); Copy=On (79); Paste=On (86); Delete=On (81); New=On (85); Rename=On (89);
  Undo=On (91); Print=On (87); Icon Size=On (84); Back=On (78); Forward=On (82); Up=On (92); Refresh=On (88);
  View=On (93); Side=On (90); Help=On (83)

What differs, in words:

  $ of_file '
  > s/Infants|Years 1 and 2/Infants|New/; s/Tabs|Page2|1/Tabs|Page2|0/; s/Page 3|Side|0/Page 3|Side|9/
  > s/DefaultView|icons/DefaultView|tree2/; s/DefaultFirstTab|1/DefaultFirstTab|2/; s/DefaultIconSize|2/&1/
  > s/Silent|0/Silent|1/; s/Context Menu|0/Context Menu|55/; s/Options Menu|0/Options Menu|1/
  > s/WeblinksCount|3/WeblinksCount|2/; s/Infants - Weblinks - WebLink 3.*\(Infants - Tabs|Page1\)/\1/
  > s/Story Starters/Stories/; s/DenyModify|1/DenyModify|0/; s/FolderLevels|1/FolderLevels|-1/' one.ksf >odd.ksf
  $ ksm diff odd.ksf Infants
  changed    Infants
    Description: "Years 1 and 2" -> "New"
    Tab Selection: My Files: "On" -> "Off"
    Default Settings: Tab: "Programs" -> "My Files"
    Default Settings: View for 'My Files': "Icon View" -> "Two Pane Tree"
    Default Settings: Right Click Menus: "Off" -> "Off (55)"
    Default Settings: Options menu: "Off" -> "On"
    Default Settings: OnScreen Helper: "Talking" -> "Silent"
    Default Settings: Icon Size: "2" -> "21"
    Folder 2: Display Name: "Story Starters" -> "Stories"
    Folder 2: Folder levels: "1" -> "4294967295"
    Folder 2: Users may not change the contents: "Yes" -> "No"
    Links: "3" -> "2"
    Link 3: Display Name: "Number Games" -> ""
    Link 3: URL: "http://www.greenfield.example/maths/numbers" -> ""
    Link 3: Long ToolTip: "Counting and adding games" -> ""
    Link 3: Short ToolTip: "Numbers" -> ""
    Link 3: Picture: "Maths.bmp" -> ""
    Toolbar page 3: Side: "Off" -> "On (9)"
  [1]
  $ ksm import odd.ksf
  Imported 1 scheme
  $ ksm diff one.ksf Infants | grep Link
    Links: "2" -> "3"
    Link 3: Display Name: "" -> "Number Games"
    Link 3: URL: "" -> "http://www.greenfield.example/maths/numbers"
    Link 3: Long ToolTip: "" -> "Counting and adding games"
    Link 3: Short ToolTip: "" -> "Numbers"
    Link 3: Picture: "" -> "Maths.bmp"
  [1]

A tab flag is on or off in a file, whatever its number in the registry:

  $ ksm import one.ksf --quiet
  $ reg add "$schemes\Infants\TabSelection" /v Page1 /t REG_DWORD /d 5 /f
  $ ksm diff one.ksf Infants
  same       Infants
