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
  SchemeProperties scheme = Scheme("Infants");
  scheme.Description = "Years 1 and 2";
  std::string description, section;
  for (const Setting& setting : DescribeScheme(scheme)) {
    const std::string label = setting.Label(), itsSection = label.substr(0, label.find(':') + 1);
    description +=
        itsSection.empty() || itsSection != section ? "\n" + label : ";" + label.substr(itsSection.size());
    description += "=" + setting.Value;
    section = itsSection;
  }
  EXPECT_EQ(
      description.substr(0, description.find("; Forward")),
      "\nDescription=Years 1 and 2"
      "\nTab Selection: Programs=On; My Files=Off; Links=On"
      "\nDefault Settings: Tab=52; View for 'My Files'=Two Pane Tree; Right Click Menus=Off (55); "
      "Options menu=Off (56); OnScreen Helper=Talking (54); Icon Size=51; Short ToolTips=On (53)"
      "\nFolders=1"
      "\nFolder 1: Display Name=Work; Path=H:\\; Folder levels=4294967295; "
      "Users may not change the contents=Yes (7); Closed folder=shut.ico; Open folder=open.ico; "
      "Long ToolTip=Long; Short ToolTip=Short; Sound=a.wav"
      "\nLinks=2"
      "\nLink 1: Display Name=Maps; URL=http://m?a=\"b\"; Long ToolTip=Far; Short ToolTip=Near; "
      "Picture=m.ico; Sound=m.wav"
      "\nLink 2: Display Name=; URL=; Long ToolTip=; Short ToolTip=; Picture=; Sound="
      "\nToolbar page 1: Cut=On (5); Copy=On (6); Paste=On (7); Delete=On (8); New=On (3); Rename=On (4); "
      "Undo=On (9); Print=On (10); Icon Size=On (12); Back=On");
  for (int number = 17; number <= 48; ++number)
    EXPECT_NE(description.find("=On (" + std::to_string(number) + ")"), std::string::npos) << number;
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
