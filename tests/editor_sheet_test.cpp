#include <windows.h>

#include "editor/my_property_sheet.h"
#include "editor/root_properties_dialog_ids.h"
#include "editor/web_link_dialog_ids.h"
#include "editor_driver.h"
#include "model/scheme_storage.h"
#include "registry/registry_paths.h"
#include "support/list_driver.h"
#include "support/registry_test.h"

namespace {

constexpr char kTitle[] = "Existing Scheme Properties";

// On the page in front: adds an item in its dialog, edits the first row, which it was, and moves that down.
void AddEditAndMove(HWND page) {
  Click(page, IDC_ADD_ITEM);
  SelectRow(GetDlgItem(page, IDC_ITEM_LIST), 0);
  Click(page, IDC_EDIT_ITEM);
  Click(page, IDC_MOVE_DOWN);
}

DialogScript::Action Enter(std::vector<std::pair<int, const char*>> texts) {
  return [texts = std::move(texts)](HWND dialog) {
    for (const auto& [id, text] : texts)
      Type(dialog, id, text);
    PressOK(dialog);
  };
}

using Sheet = RegistryTest;

TEST_F(Sheet, TakesLinksAndRootsOverAsTheyWereAddedEditedAndMoved) {
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "[]");
  SchemeProperties scheme;
  scheme.Name = "Staff";
  scheme.Tabs = {1, 1, 1};
  scheme.WebLinks = {{"a", "a.example", "A.bmp", "", "", "a.wav"}};
  scheme.FolderRoots = {{"H", "H:\\", 1, "A.bmp", "", "", "", "a.wav", 7}};
  DialogScript script;
  script.Expect(kTitle, [](HWND sheet) {
    for (const int page : {1, 2}) {
      PropSheet_SetCurSel(sheet, nullptr, page);
      AddEditAndMove(PropSheet_GetCurrentPageHwnd(sheet));
    }
    PressOK(sheet);
  });
  script.Expect("Web Links", Enter({{IDC_LINK_NAME, "b"}, {IDC_LINK_URL, "b.example"}}));
  script.Expect("Web Links", Enter({{IDC_LINK_NAME, "c"}, {IDC_LINK_SHORT_TOOLTIP, "short"}}));
  script.Expect("Root Properties", Enter({{IDC_ROOT_NAME, "I"}, {IDC_ROOT_PATH, "I:\\"}}));
  script.Expect("Root Properties", Enter({{IDC_ROOT_LONG_TOOLTIP, "long"}, {IDC_FOLDER_LEVELS, "12"}}));
  CMyPropertySheet sheet(kTitle, scheme, kNoPictures);
  ASSERT_TRUE(sheet.Run(nullptr));
  sheet.CopyTo(scheme);
  ASSERT_TRUE(SaveSchemeProperties("Staff", scheme));
  const std::string key = std::string(kSchemesKey) + "\\Staff\\";
  ExpectTree(HKEY_LOCAL_MACHINE, key + "WebLinks", R"(
      [] "WebLinksCount"=dword:2
      [WebLink 1] "DisplayName"="b" "URL"="b.example" "IconFile"="" "Wav File"=""
                  "LongToolTip"="" "ShortToolTip"=""
      [WebLink 2] "DisplayName"="c" "URL"="a.example" "IconFile"="A.bmp" "Wav File"="a.wav"
                  "LongToolTip"="" "ShortToolTip"="short")");
  ExpectTree(HKEY_LOCAL_MACHINE, key + "FolderDisplay", R"(
      [] "RootFolderCount"=dword:2
      [Root 1] "RootDisplayName"="I" "RootPath"="I:\\" "FolderLevels"=dword:0 "DenyModify"=dword:0
               "CollapsedIconFile"="" "ExpandedIconFile"="" "Wav File"="" "LongToolTip"="" "ShortToolTip"=""
      [Root 2] "RootDisplayName"="H" "RootPath"="H:\\" "FolderLevels"=dword:c "DenyModify"=dword:7
               "CollapsedIconFile"="A.bmp" "ExpandedIconFile"="" "Wav File"="a.wav" "LongToolTip"="long"
               "ShortToolTip"="")");
}

}  // namespace
