// What a scheme holds, in the words of the editor, and how two versions of it differ. Knows nothing of
// Windows.
//
// Every value of the scheme is a setting but for its name, by which the versions were found. An item that
// only one of them has differs in the number of items and in every value that is not empty.
#pragma once

#include <string>
#include <vector>

#include "model/scheme_properties.h"

struct Setting {
  const char* Section;  // "Tab Selection", "Folder", "Link", "Toolbar page"; "" for the scheme itself
  int Number;           // of the folder, the link or the page, counted from 1; 0 where there is only one
  const char* Name;     // as the editor has it, without a colon: "Path"
  std::string Value;    // a switch as "On" or "Off", a view as "Icon View"

  // "Folder 2: Path".
  std::string Label() const;
};

// In the order in which the editor shows them.
[[nodiscard]] std::vector<Setting> DescribeScheme(const SchemeProperties& scheme);

struct Difference {
  std::string Setting;  // its label
  std::string Here;     // the values; "" also where the item is not there
  std::string InFile;
};

// Empty when an import of `inFile` would change nothing that counts: of a tab's number counts only whether
// it is 0, because files hold no more than that.
[[nodiscard]] std::vector<Difference> CompareScheme(const SchemeProperties& here,
                                                    const SchemeProperties& inFile);
