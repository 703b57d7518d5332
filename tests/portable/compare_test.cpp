#include "schemefile/compare.h"

#include <gtest/gtest.h>

#include "support/sample_schemes.h"

namespace {

std::string Differences(const SchemeProperties& here, const SchemeProperties& inFile) {
  std::string lines;
  for (const Difference& difference : CompareScheme(here, inFile))
    lines += difference.Setting + ": " + difference.Here + " -> " + difference.InFile + "\n";
  return lines;
}

// Every value of the sample is another one, so a setting that is left out or shown for another is seen.
TEST(CompareTest, DescribesEveryValueInTheWordsOfTheEditor) {
  std::string description;
  SchemeProperties scheme = Scheme("Infants");
  scheme.Description = "Years 1 and 2";
  for (const Setting& setting : DescribeScheme(scheme))
    description += setting.Label() + "=" + setting.Value + "\n";
  EXPECT_EQ(description.substr(0, description.find("Toolbar page 1: Forward")),
            R"(Description=Years 1 and 2
Tab Selection: Programs=On
Tab Selection: My Files=Off
Tab Selection: Links=On
Default Settings: Tab=52
Default Settings: View for 'My Files'=Two Pane Tree
Default Settings: Right Click Menus=Off (55)
Default Settings: Options menu=Off (56)
Default Settings: OnScreen Helper=Talking (54)
Default Settings: Icon Size=51
Default Settings: Short ToolTips=On (53)
Folders=1
Folder 1: Display Name=Work
Folder 1: Path=H:\
Folder 1: Folder levels=4294967295
Folder 1: Users may not change the contents=Yes (7)
Folder 1: Closed folder=shut.ico
Folder 1: Open folder=open.ico
Folder 1: Long ToolTip=Long
Folder 1: Short ToolTip=Short
Folder 1: Sound=a.wav
Links=2
Link 1: Display Name=Maps
Link 1: URL=http://m?a="b"
Link 1: Long ToolTip=Far
Link 1: Short ToolTip=Near
Link 1: Picture=m.ico
Link 1: Sound=m.wav
Link 2: Display Name=
Link 2: URL=
Link 2: Long ToolTip=
Link 2: Short ToolTip=
Link 2: Picture=
Link 2: Sound=
Toolbar page 1: Cut=On (5)
Toolbar page 1: Copy=On (6)
Toolbar page 1: Paste=On (7)
Toolbar page 1: Delete=On (8)
Toolbar page 1: New=On (3)
Toolbar page 1: Rename=On (4)
Toolbar page 1: Undo=On (9)
Toolbar page 1: Print=On (10)
Toolbar page 1: Icon Size=On (12)
Toolbar page 1: Back=On
)");
  for (int number = 17; number <= 48; ++number)
    EXPECT_NE(description.find("=On (" + std::to_string(number) + ")\n"), std::string::npos) << number;
}

TEST(CompareTest, TellsWhichSettingsDiffer) {
  const SchemeProperties here = Scheme("Infants");
  EXPECT_EQ(Differences(here, here), "");
  SchemeProperties inFile = here;
  inFile.Name = "INFANTS";  // by which the two were found
  inFile.Tabs.Page1 = 5;    // a file holds no more than 1
  EXPECT_EQ(Differences(here, inFile), "");

  inFile.Description = "New";
  inFile.Tabs.Page2 = 1;
  inFile.Defaults = {"icons", 51, 2, 53, 1, 1, 0};
  inFile.FolderRoots.push_back({});
  inFile.WebLinks.pop_back();
  inFile.WebLinks[0].URL = "http://n";
  inFile.ToolBars[2].Side = 0;
  EXPECT_EQ(Differences(here, inFile), R"(Description:  -> New
Tab Selection: My Files: Off -> On
Default Settings: Tab: 52 -> My Files
Default Settings: View for 'My Files': Two Pane Tree -> Icon View
Default Settings: Right Click Menus: Off (55) -> On
Default Settings: Options menu: Off (56) -> Off
Default Settings: OnScreen Helper: Talking (54) -> Silent
Folders: 1 -> 2
Folder 2: Folder levels:  -> 0
Folder 2: Users may not change the contents:  -> No
Links: 2 -> 1
Link 1: URL: http://m?a="b" -> http://n
Toolbar page 3: Side: On (48) -> Off
)");
}

}  // namespace
