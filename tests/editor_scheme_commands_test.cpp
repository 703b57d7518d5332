#include "editor/scheme_commands.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <prsht.h>

#include <set>

#include "editor/general_page_ids.h"
#include "editor/record_list_page_ids.h"
#include "editor/root_properties_dialog_ids.h"
#include "editor/scheme_creation_dialog_ids.h"
#include "editor/scheme_name_dialog_ids.h"
#include "editor/web_link_dialog_ids.h"
#include "model/scheme_storage.h"
#include "registry/registry_paths.h"
#include "support/dialog_script.h"
#include "support/registry_test.h"

namespace {

constexpr char kExisting[] = "Existing Scheme Properties";
constexpr char kNew[] = "New Scheme Properties";
constexpr char kNameProblem[] = "Scheme Name Problem";
constexpr char kCreation[] = "Scheme Creation";

HWND Page(HWND sheet, int index) {
  PropSheet_SetCurSel(sheet, nullptr, index);
  return PropSheet_GetCurrentPageHwnd(sheet);
}

DialogScript::Action Press(int button) {
  return [=](HWND dialog) { Click(dialog, button); };
}

// Confirms a sheet after typing a name and a description.
DialogScript::Action Name(const std::string& name, const std::string& description) {
  return [=](HWND sheet) {
    Type(Page(sheet, 0), IDC_GENERAL_NAME, name);
    Type(Page(sheet, 0), IDC_GENERAL_DESCRIPTION, description);
    Click(sheet, IDOK);
  };
}

// Answers the dialog about a refused name with another one; Esc first, which is no way out.
DialogScript::Action Rename(const std::string& refused, const std::string& name) {
  return [=](HWND dialog) {
    EXPECT_EQ(ControlText(dialog, IDC_NEW_SCHEME_NAME), refused);
    SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    Type(dialog, IDC_NEW_SCHEME_NAME, name);
    Click(dialog, IDOK);
  };
}

void EnterLink(HWND dialog) {
  Type(dialog, IDC_LINK_NAME, "News");
  Type(dialog, IDC_LINK_URL, "news.example");
  Click(dialog, IDOK);
}

using Names = std::set<std::string>;

Names NamesOf(const SchemeCatalogue& catalogue) {
  Names names;
  for (const SchemeProperties& scheme : catalogue.Schemes)
    names.insert(scheme.Name + ": " + scheme.Description);
  return names;
}

class SchemeCommandsTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"(
        [] "Default User"="All" "Staff"="Teachers" "Standard"="Built in"
        [Default User\TabSelection] "Page1"=dword:1 "Page2"=dword:0 "Page3"=dword:1
        [Staff\TabSelection] "Page1"=dword:1 "Page2"=dword:1 "Page3"=dword:1
        [Standard\TabSelection] "Page1"=dword:0 "Page2"=dword:1 "Page3"=dword:0)");
    WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, R"([] "Standard"="")");
    catalogue_.LoadCatalogue(false);
    catalogue_.LoadProtectedSchemes();
  }

  bool EditStaff() { return EditScheme(nullptr, catalogue_, 1); }
  std::optional<std::string> Create() { return CreateScheme(nullptr, catalogue_, "Staff"); }

  // The schemes with their descriptions: the same in the registry, in the catalogue and, should it be saved,
  // in the config hive.
  Names Schemes() {
    EXPECT_TRUE(catalogue_.Config.SaveToRegistry());
    SchemeCatalogue registry;
    registry.LoadCatalogue(false);
    EXPECT_EQ(NamesOf(registry), NamesOf(catalogue_));
    return NamesOf(registry);
  }

  SchemeCatalogue catalogue_;
  DialogScript script_;
};

TEST_F(SchemeCommandsTest, RefusedOrCancelledCommandsWriteNothing) {
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kProductKey);
  script_.ExpectMessage("Error", "Standard is a built in scheme and cannot be edited");
  EXPECT_FALSE(EditScheme(nullptr, catalogue_, 2));
  script_.Expect(kExisting, [](HWND sheet) {
    Type(Page(sheet, 0), IDC_GENERAL_NAME, "Others");
    Click(sheet, IDCANCEL);
  });
  EXPECT_FALSE(EditStaff());
  script_.Expect(kCreation, Press(IDOK)).Expect(kNew, Press(IDCANCEL));
  EXPECT_FALSE(Create());
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kProductKey), before);
  EXPECT_EQ(catalogue_.Schemes.size(), 3U);
}

TEST_F(SchemeCommandsTest, RenamesOnceTheNameIsNeitherBlankNorTaken) {
  script_.Expect(kExisting, Name("STAFF", "x"));  // not a duplicate of itself
  EXPECT_TRUE(EditStaff());
  EXPECT_EQ(Schemes(), (Names{"Default User: All", "STAFF: x", "Standard: Built in"}));

  script_.Expect(kExisting, Name("standard", "y:"))
      .ExpectMessage("Error: Illegal Character",
                     "The following characters are not allowed:\n\n< > ? / \\ : * \" |")
      .Expect(kNameProblem, Rename("standard", "  "))
      .Expect(kNameProblem, Rename("  ", "DEFAULT USER"))
      .Expect(kNameProblem, Rename("DEFAULT USER", "Others"));
  const std::string oldKey = DumpTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff"));
  EXPECT_TRUE(EditStaff());
  EXPECT_EQ(Schemes(), (Names{"Default User: All", "Others: y", "Standard: Built in"}));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff"), oldKey);

  // "Default User" has to be named again, and may keep its name.
  script_.Expect(kExisting, Press(IDOK)).Expect(kNameProblem, Rename("", "Default User"));
  EXPECT_TRUE(EditScheme(nullptr, catalogue_, 0));
  EXPECT_EQ(Schemes(), (Names{"Default User: ", "Others: y", "Standard: Built in"}));
}

TEST_F(SchemeCommandsTest, AValueThatCannotBeDeletedIsNotReplaced) {
  RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, kSchemesKey, "Staff");
  script_.Expect(kExisting, Name("Others", "x"));
  EXPECT_TRUE(EditStaff());
  EXPECT_EQ(Schemes(), (Names{"Default User: All", "Standard: Built in"}));
  EXPECT_TRUE(HasSchemeKey("Others")) << "the sections are saved all the same";
}

TEST_F(SchemeCommandsTest, InsistsOnATabAndKeepsWhatWasEntered) {
  const HWND mainWindow =
      CreateWindowA("STATIC", "", WS_VISIBLE, 0, 0, 9, 9, nullptr, nullptr, nullptr, nullptr);
  script_
      .Expect(kExisting,
              [](HWND sheet) {
                const HWND page = Page(sheet, 0);
                Choose(page, IDC_GENERAL_TAB, "My Files");
                for (int tab = IDC_GENERAL_PROGRAMS; tab <= IDC_GENERAL_LINKS; ++tab)
                  Click(page, tab);
                Click(Page(sheet, 1), IDC_ADD_RECORD);
                Name("Others", "x")(sheet);
              })
      .Expect("Web Links", EnterLink)
      .Expect("Tab Selection Error",
              [&](HWND box) {
                EXPECT_EQ(
                    MessageText(box),
                    "You need to select at least one\n\rof the tabs for Programs, Files, or\n\rWeb Links.");
                EXPECT_EQ(GetWindow(box, GW_OWNER), nullptr);
                EXPECT_FALSE(IsWindowEnabled(mainWindow)) << "another command could start meanwhile";
                Click(box, IDOK);
              })
      .Expect(kExisting, [](HWND sheet) {
        Click(Page(sheet, 0), IDC_GENERAL_FILES);
        Click(sheet, IDOK);
      });
  EXPECT_TRUE(EditScheme(mainWindow, catalogue_, 1));
  DestroyWindow(mainWindow);
  EXPECT_EQ(Schemes(), (Names{"Default User: All", "Others: x", "Standard: Built in"}));
  const SchemeProperties& scheme = catalogue_.Schemes[1];
  EXPECT_EQ(scheme.Tabs, (TabSelection{0, 1, 0}));
  EXPECT_EQ(scheme.Defaults.DefaultFirstTab, 2U);
  EXPECT_EQ(scheme.WebLinks.Count, 1);
}

TEST_F(SchemeCommandsTest, CreatesFromDefaultUser) {
  script_.Expect(kCreation, Press(IDOK))
      .Expect(kNew,
              [](HWND sheet) {
                Click(Page(sheet, 1), IDC_ADD_RECORD);
                Click(Page(sheet, 2), IDC_ADD_RECORD);
                Name("Year 1", "Ours")(sheet);
              })
      .Expect("Web Links", EnterLink)
      .Expect("Root Properties", [](HWND dialog) {
        Type(dialog, IDC_ROOT_NAME, "Work");
        Type(dialog, IDC_ROOT_PATH, "C:\\Work");
        Type(dialog, IDC_FOLDER_LEVELS, "3");
        Click(dialog, IDOK);
      });
  EXPECT_EQ(Create(), "Year 1");
  EXPECT_EQ(Schemes(), (Names{"Default User: All", "Staff: Teachers", "Standard: Built in", "Year 1: Ours"}));
  const std::string path = SchemeKeyPath("Year 1");
  ExpectTree(HKEY_LOCAL_MACHINE, path + "\\TabSelection",
             R"([] "Page1"=dword:1 "Page2"=dword:0 "Page3"=dword:1)");
  ExpectTree(HKEY_LOCAL_MACHINE, path + "\\WebLinks", R"(
      [] "WebLinksCount"=dword:1
      [WebLink 1] "DisplayName"="News" "URL"="news.example" "IconFile"="" "LongToolTip"=""
      "ShortToolTip"="" "Wav File"="")");
  ExpectTree(HKEY_LOCAL_MACHINE, path + "\\FolderDisplay", R"(
      [] "RootFolderCount"=dword:1
      [Root 1] "RootDisplayName"="Work" "RootPath"="C:\\Work" "FolderLevels"=dword:3 "DenyModify"=dword:0
      "CollapsedIconFile"="" "ExpandedIconFile"="" "LongToolTip"="" "ShortToolTip"="" "Wav File"="")");
}

TEST_F(SchemeCommandsTest, CopiesAnySchemeUnderANewName) {
  script_
      .Expect(kCreation,
              [](HWND dialog) {
                EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_CREATION_SOURCE)));
                Click(dialog, IDC_CREATION_COPY);
                EXPECT_EQ(ControlText(dialog, IDC_CREATION_SOURCE), "Staff");
                Choose(dialog, IDC_CREATION_SOURCE, "Standard");
                Click(dialog, IDOK);
              })
      .Expect(kNew, Press(IDOK))
      .Expect(kNameProblem, Rename("Standard", "Ours"));
  EXPECT_EQ(Create(), "Ours");
  EXPECT_TRUE(Schemes().contains("Ours: Built in"));
  EXPECT_EQ(catalogue_.Schemes.back().Tabs, (TabSelection{0, 1, 0}));

  catalogue_.DeleteScheme("Default User");
  script_.Expect(kCreation, Press(IDOK)).Expect(kNew, Name("Year 1", ""));
  EXPECT_EQ(Create(), "Year 1");
  EXPECT_EQ(catalogue_.Schemes.back().Tabs, (TabSelection{1, 1, 1}));
}

}  // namespace
