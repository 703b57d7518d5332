#include "editor/scheme_commands.h"

#include <algorithm>
#include <set>

#include "editor/general_page_ids.h"
#include "editor/root_properties_dialog_ids.h"
#include "editor/scheme_creation_dialog_ids.h"
#include "editor/scheme_name_dialog_ids.h"
#include "editor/web_link_dialog_ids.h"
#include "editor_driver.h"
#include "model/scheme_storage.h"
#include "registry/registry_paths.h"
#include "support/list_driver.h"
#include "support/registry_test.h"
#include "support/sample_schemes.h"

namespace {

constexpr char kExisting[] = "Existing Scheme Properties";

HWND Page(HWND sheet, int index) {
  PropSheet_SetCurSel(sheet, nullptr, index);
  return PropSheet_GetCurrentPageHwnd(sheet);
}

// Ends a sheet after typing a name and a description.
DialogScript::Action Name(const std::string& name, const std::string& description, int button = IDOK) {
  return [=](HWND sheet) {
    Type(Page(sheet, 0), IDC_GENERAL_NAME, name);
    Type(Page(sheet, 0), IDC_GENERAL_DESCRIPTION, description);
    Click(sheet, button);
  };
}

using Names = std::set<std::string>;

class SchemeCommandsTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"(
        [] "Default User"="All" "Staff"="Teachers" "Standard"="Built in"
        [Default User\TabSelection] "Page1"=dword:1 "Page2"=dword:0 "Page3"=dword:1
        [Staff\TabSelection] "Page1"=dword:1 "Page2"=dword:1 "Page3"=dword:1
        [Staff\WebLinks] "WebLinksCount"=dword:1 [Staff\WebLinks\WebLink 1] "DisplayName"="a"
            "URL"="a.example" "IconFile"="A.bmp" "Wav File"="a.wav"
        [Staff\FolderDisplay] "RootFolderCount"=dword:1 [Staff\FolderDisplay\Root 1] "RootDisplayName"="H"
            "RootPath"="H:\\" "CollapsedIconFile"="A.bmp" "Wav File"="a.wav" "DenyModify"=dword:7)");
    WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Standard"), SchemeTree("Standard"));
    WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, R"("Standard"="")");
    (void)catalogue_.LoadCatalogue();
    catalogue_.LoadProtectedSchemes();
  }

  // Names that are given one after the other to the dialog about a refused one; Esc first, which is no way
  // out.
  void ExpectNameProblems(const std::vector<const char*>& names) {
    for (const char* name : names) {
      script_.Expect("Scheme Name Problem", [name](HWND dialog) {
        SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
        EXPECT_TRUE(IsWindowVisible(dialog)) << "there is no way out but OK";
        Type(dialog, IDC_NEW_SCHEME_NAME, name);
        Click(dialog, IDOK);
      });
    }
  }
  std::optional<std::string> Edit(DialogScript::Action act, const std::vector<const char*>& names = {},
                                  const std::string& scheme = "Staff") {
    script_.Expect(kExisting, std::move(act));
    ExpectNameProblems(names);
    return EditScheme(nullptr, catalogue_, *catalogue_.Find(scheme), kNoPictures);
  }
  std::optional<std::string> Create(DialogScript::Action choose, DialogScript::Action act,
                                    const std::vector<const char*>& names = {}) {
    script_.Expect("Scheme Creation", std::move(choose)).Expect("New Scheme Properties", std::move(act));
    ExpectNameProblems(names);
    return CreateScheme(nullptr, catalogue_, "Staff", kNoPictures);
  }

  // The schemes with their descriptions in the registry, which have to be those of the catalogue.
  Names Schemes() {
    SchemeCatalogue stored;
    (void)stored.LoadCatalogue();
    EXPECT_TRUE(std::ranges::is_permutation(stored.Schemes(), catalogue_.Schemes()));
    Names names;
    for (const SchemeEntry& scheme : stored.Schemes())
      names.insert(scheme.Name + ": " + scheme.Description);
    return names;
  }
  SchemeProperties Stored(const std::string& name) {
    SchemeProperties scheme;
    EXPECT_EQ(Outcome::kComplete, LoadSchemeProperties(name, scheme));
    return scheme;
  }

  SchemeCatalogue catalogue_;
  DialogScript script_;
};

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

TEST_F(SchemeCommandsTest, StoresLinksAndRootsAsTheyWereAddedEditedAndMoved) {
  script_.Expect(kExisting, [](HWND sheet) {
    AddEditAndMove(Page(sheet, 1));
    AddEditAndMove(Page(sheet, 2));
    PressOK(sheet);
  });
  script_.Expect("Web Links", Enter({{IDC_LINK_NAME, "b"}, {IDC_LINK_URL, "b.example"}}));
  script_.Expect("Web Links", Enter({{IDC_LINK_NAME, "c"}, {IDC_LINK_SHORT_TOOLTIP, "short"}}));
  script_.Expect("Root Properties", Enter({{IDC_ROOT_NAME, "I"}, {IDC_ROOT_PATH, "I:\\"}}));
  script_.Expect("Root Properties", Enter({{IDC_ROOT_LONG_TOOLTIP, "long"}, {IDC_FOLDER_LEVELS, "12"}}));
  EXPECT_EQ(EditScheme(nullptr, catalogue_, *catalogue_.Find("Staff"), kNoPictures), "Staff");
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff") + "\\WebLinks", R"(
      [] "WebLinksCount"=dword:2
      [WebLink 1] "DisplayName"="b" "URL"="b.example" "IconFile"="" "Wav File"=""
                  "LongToolTip"="" "ShortToolTip"=""
      [WebLink 2] "DisplayName"="c" "URL"="a.example" "IconFile"="A.bmp" "Wav File"="a.wav"
                  "LongToolTip"="" "ShortToolTip"="short")");
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff") + "\\FolderDisplay", R"(
      [] "RootFolderCount"=dword:2
      [Root 1] "RootDisplayName"="I" "RootPath"="I:\\" "FolderLevels"=dword:0 "DenyModify"=dword:0
               "CollapsedIconFile"="" "ExpandedIconFile"="" "Wav File"="" "LongToolTip"="" "ShortToolTip"=""
      [Root 2] "RootDisplayName"="H" "RootPath"="H:\\" "FolderLevels"=dword:c "DenyModify"=dword:7
               "CollapsedIconFile"="A.bmp" "ExpandedIconFile"="" "Wav File"="a.wav" "LongToolTip"="long"
               "ShortToolTip"="")");
}

TEST_F(SchemeCommandsTest, RenamesOnceTheNameIsNeitherBlankNorTaken) {
  // The list of schemes ends at the first of these, so the second one is not on it.
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"("Zebras"=")" + std::string(300, 'z') + R"(" "Zoo"="" [Zoo])");
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kProductKey);
  EXPECT_EQ(Edit(Name("Others", "x", IDCANCEL)), std::nullopt);
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kProductKey), before);
  EXPECT_EQ(Edit(Name("STAFF", "x")), "STAFF");  // not a duplicate of itself
  EXPECT_EQ(Schemes(), (Names{"Default User: All", "STAFF: x", "Standard: Built in"}));
  EXPECT_EQ(Edit(Name("standard", "y"), {"  ", "DEFAULT USER", "Zoo", "Others"}, "STAFF"), "Others");
  EXPECT_EQ(Edit(PressOK, {"Default User"}, "Default User"),
            "Default User");  // has to be named again, and may keep its name
  EXPECT_EQ(Schemes(), (Names{"Default User: ", "Others: y", "Standard: Built in"}));
}

TEST_F(SchemeCommandsTest, InsistsOnATabAndKeepsWhatWasEntered) {
  const HWND owner = CreateWindowA("STATIC", "", WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
  script_.Expect(kExisting, [](HWND sheet) {
    Choose(Page(sheet, 0), IDC_GENERAL_TAB, "My Files");
    for (const int tab : {IDC_GENERAL_PROGRAMS, IDC_GENERAL_FILES, IDC_GENERAL_LINKS})
      Click(Page(sheet, 0), tab);
    for (const int list : {1, 2})
      Click(Page(sheet, list), IDC_REMOVE_ITEM);
    Name("Others", "x")(sheet);
  });
  script_.ExpectMessage(
      kPlain, "Tab Selection Error",
      "You need to select at least one\n\rof the tabs for Programs, Files, or\n\rWeb Links.");
  script_.Expect(kExisting, [](HWND sheet) {
    Click(Page(sheet, 0), IDC_GENERAL_FILES);
    Click(sheet, IDOK);
  });
  EXPECT_EQ(EditScheme(owner, catalogue_, *catalogue_.Find("Staff"), kNoPictures), "Others");
  DestroyWindow(owner);
  EXPECT_EQ(Schemes(), (Names{"Default User: All", "Others: x", "Standard: Built in"}));
  const SchemeProperties scheme = Stored("Others");
  EXPECT_EQ(scheme.Tabs, (TabSelection{0, 1, 0}));
  EXPECT_EQ(scheme.Defaults.DefaultFirstTab, 2U);
  EXPECT_TRUE(scheme.WebLinks.empty() && scheme.FolderRoots.empty());
}

TEST_F(SchemeCommandsTest, CreatesFromDefaultUserOrAnyOtherScheme) {
  EXPECT_EQ(Create(PressOK, Name("Others", "x", IDCANCEL)), std::nullopt);
  EXPECT_EQ(Create(PressOK, Name("Year 1", "Ours")), "Year 1");
  EXPECT_EQ(Stored("Year 1").Tabs, (TabSelection{1, 0, 1}));
  const auto copyStandard = [](HWND dialog) {
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_CREATION_SOURCE)));
    Click(dialog, IDC_CREATION_COPY);
    EXPECT_EQ(ControlText(dialog, IDC_CREATION_SOURCE), "Staff");
    Choose(dialog, IDC_CREATION_SOURCE, "Standard");
    Click(dialog, IDOK);
  };
  EXPECT_EQ(Create(copyStandard, PressOK, {"Copy"}), "Copy");
  SchemeProperties copy = Scheme("");  // but for what confirming the General page sets
  copy.ToolBars[0] = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 13, 1, 1, 16};
  copy.ToolBars[1].Copy = copy.ToolBars[1].Print = 1;
  copy.Defaults = {"tree2", 51, 1, 53, 0, 0, 0};
  EXPECT_EQ(Stored("Copy"), copy);
  EXPECT_EQ(catalogue_.Remove("Default User"), ChangeResult::kDone);
  EXPECT_EQ(Create(PressOK, Name("Empty", "")), "Empty");
  EXPECT_EQ(Stored("Empty").Tabs, (TabSelection{1, 1, 1}));
  EXPECT_EQ(Schemes(),
            (Names{"Copy: Built in", "Empty: ", "Staff: Teachers", "Standard: Built in", "Year 1: Ours"}));
}

}  // namespace
