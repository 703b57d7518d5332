// Two schemes in which every value is another, their keys in the registry, and their file.
#pragma once

#include <regex>
#include <string>

#include "model/scheme_properties.h"
#include "support/scheme_file_bytes.h"

inline const std::string kLeo = "L\xE9o - Tabs";

inline SchemeProperties Scheme(const std::string& name) {
  SchemeProperties scheme;
  scheme.Name = name;
  scheme.FolderRoots = {{"Work", "H:\\", 0xFFFFFFFF, "shut.ico", "open.ico", "Long", "Short", "a.wav", 7}};
  scheme.WebLinks = {{"Maps", "http://m?a=\"b\"", "m.ico", "Far", "Near", "m.wav"}, WebLink()};
  scheme.Tabs = {1, 0, 1};
  scheme.ToolBars[0] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};
  scheme.ToolBars[1] = {17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32};
  scheme.ToolBars[2] = {33, 34, 35, 36, 37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48};
  scheme.Defaults = {"tree2", 51, 52, 53, 54, 55, 56};
  return scheme;
}

// The key of such a scheme, for WriteTree.
inline std::string SchemeTree(const std::string& name) {
  return R"([FolderDisplay] "RootFolderCount"=dword:1
[FolderDisplay\Root 1] "RootDisplayName"="Work" "RootPath"="H:\\" "FolderLevels"=dword:ffffffff
  "CollapsedIconFile"="shut.ico" "ExpandedIconFile"="open.ico" "LongToolTip"="Long"
  "ShortToolTip"="Short" "Wav File"="a.wav" "DenyModify"=dword:7
[WebLinks] "WebLinksCount"=dword:2
[WebLinks\WebLink 1] "DisplayName"="Maps" "URL"="http://m?a=\"b\"" "IconFile"="m.ico"
  "LongToolTip"="Far" "ShortToolTip"="Near" "Wav File"="m.wav"
[WebLinks\WebLink 2] "DisplayName"="" "URL"="" "IconFile"="" "LongToolTip"="" "ShortToolTip"="" "Wav File"=""
[TabSelection] "Page1"=dword:1 "Page2"=dword:0 "Page3"=dword:1
[ToolBars\Page 1] "Back"=dword:1 "Forward"=dword:2 "New"=dword:3 "Rename"=dword:4 "Cut"=dword:5
  "Copy"=dword:6 "Paste"=dword:7 "Delete"=dword:8 "Undo"=dword:9 "Print"=dword:a "Refresh"=dword:b
  "Icon"=dword:c "View"=dword:d "Help"=dword:e "Up"=dword:f "Side"=dword:10
[ToolBars\Page 2] "Back"=dword:11 "Forward"=dword:12 "New"=dword:13 "Rename"=dword:14 "Cut"=dword:15
  "Copy"=dword:16 "Paste"=dword:17 "Delete"=dword:18 "Undo"=dword:19 "Print"=dword:1a "Refresh"=dword:1b
  "Icon"=dword:1c "View"=dword:1d "Help"=dword:1e "Up"=dword:1f "Side"=dword:20
[ToolBars\Page 3] "Back"=dword:21 "Forward"=dword:22 "New"=dword:23 "Rename"=dword:24 "Cut"=dword:25
  "Copy"=dword:26 "Paste"=dword:27 "Delete"=dword:28 "Undo"=dword:29 "Print"=dword:2a "Refresh"=dword:2b
  "Icon"=dword:2c "View"=dword:2d "Help"=dword:2e "Up"=dword:2f "Side"=dword:30
[Defaults] "DefaultView"="tree2" "DefaultIconSize"=dword:33 "DefaultFirstTab"=dword:34
  "ShortToolTips"=dword:35 "Silent"=dword:36 "Context Menu"=dword:37 "Options Menu"=dword:38
[] "Scheme Name"=")" +
         name + "\"";
}

// The records of such a scheme.
inline std::string SchemeText(const std::string& name) {
  return std::regex_replace(R"(: Name of scheme=$
$ - FolderDisplay: RootFoldersCount=1
$ - FolderDisplay - Root 1: CollapsedIconFile=shut.ico; ExpandedIconFile=open.ico; RootDisplayName=Work
 RootPath=H:\; DenyModify=7; FolderLevels=-1; LongToolTip=Long; ShortToolTip=Short; Wav File=a.wav
$ - Folder Display: WeblinksCount=2
$ - Weblinks - WebLink 1: DisplayName=Maps; URL=http://m?a="b"; IconFile=m.ico; LongToolTip=Far
 ShortToolTip=Near; Wav File=m.wav
$ - Weblinks - WebLink 2: DisplayName=; URL=; IconFile=; LongToolTip=; ShortToolTip=; Wav File=
$ - Tabs: Page1=1; Page2=0; Page3=1
$ - ToolBars - Page 1: Back=1; Copy=6; Cut=5; Delete=8; Forward=2; Help=14; Icon=12; New=3; Paste=7
 Print=10; Refresh=11; Rename=4; Side=16; Undo=9; Up=15; View=13
$ - ToolBars - Page 2: Back=17; Copy=22; Cut=21; Delete=24; Forward=18; Help=30; Icon=28; New=19
 Paste=23; Print=26; Refresh=27; Rename=20; Side=32; Undo=25; Up=31; View=29
$ - ToolBars - Page 3: Back=33; Copy=38; Cut=37; Delete=40; Forward=34; Help=46; Icon=44; New=35
 Paste=39; Print=42; Refresh=43; Rename=36; Side=48; Undo=41; Up=47; View=45
$ - Defaults: DefaultView=tree2; DefaultIconSize=51; DefaultFirstTab=52; ShortToolTips=53; Silent=54
 Context Menu=55; Options Menu=56
)",
                            std::regex("\\$"), name);
}

// The export of Infants and Leo.
inline std::string ExpectedFile() {
  return FileBytes("Config Hive: Config1=Infants; Infants=For Infants; Config2=" + kLeo + "; " + kLeo +
                   "=For " + kLeo + "\nScheme Count: The number of schemes=2\nScheme0" +
                   SchemeText("Infants") + "Scheme1" + SchemeText(kLeo));
}
