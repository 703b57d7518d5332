#include "editor/scheme_commands.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <prsht.h>

#include <set>
#include <string>
#include <vector>

#include "controls/window_text.h"
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

using Names = std::set<std::string>;

Names NamesOf(const SchemeCatalogue& catalogue) {
  Names names;
  for (const SchemeProperties& scheme : catalogue.Schemes)
    names.insert(scheme.Name + ": " + scheme.Description);
  return names;
}

HWND Page(HWND sheet, int index) {
  PropSheet_SetCurSel(sheet, nullptr, index);
  return PropSheet_GetCurrentPageHwnd(sheet);
}

// Confirms a sheet after typing a name and a description.
DialogScript::Action Name(const std::string& name, const std::string& description) {
  return [=](HWND sheet) {
    Type(Page(sheet, 0), IDC_GENERAL_NAME, name);
    Type(Page(sheet, 0), IDC_GENERAL_DESCRIPTION, description);
    Click(sheet, IDOK);
  };
}

// Confirms the dialog about a name with another one.
DialogScript::Action Rename(const std::string& name) {
  return [=](HWND dialog) {
    Type(dialog, IDC_NEW_SCHEME_NAME, name);
    Click(dialog, IDOK);
  };
}

// A machine with the schemes "Default User", "Staff" and, built in, "Standard".
class SchemeCommandsTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, R"(
        [] "Default User"="For everybody" "Staff"="For teachers" "Standard"="As delivered"
        [Default User\TabSelection] "Page1"=dword:1 "Page2"=dword:0 "Page3"=dword:1
        [Staff\TabSelection] "Page1"=dword:1 "Page2"=dword:1 "Page3"=dword:1
        [Standard\TabSelection] "Page1"=dword:0 "Page2"=dword:1 "Page3"=dword:0
        [Standard\WebLinks] "WebLinksCount"=dword:1
        [Standard\WebLinks\WebLink 1] "DisplayName"="News" "URL"="news.example")");
    WriteTree(HKEY_LOCAL_MACHINE, kProtectedSchemesKey, R"([] "Standard"="")");
    catalogue_.LoadCatalogue(false);
    catalogue_.LoadProtectedSchemes();
  }

  std::size_t IndexOf(const std::string& name) const {
    std::size_t index = 0;
    while (index < catalogue_.Schemes.size() && catalogue_.Schemes[index].Name != name)
      ++index;
    return index;
  }
  const SchemeProperties& Scheme(const std::string& name) const {
    return catalogue_.Schemes.at(IndexOf(name));
  }
  bool Edit(const std::string& name) { return EditScheme(nullptr, catalogue_, IndexOf(name)); }

  // The catalogue's schemes with their descriptions, which must be what its hive and the registry hold.
  Names Schemes() const {
    const Names names = NamesOf(catalogue_);
    Names hive;
    for (const ConfigHiveEntry& entry : catalogue_.Config.Entries)
      hive.insert(entry.SchemeName + ": " + entry.ConfigText);
    EXPECT_EQ(hive, names);
    SchemeCatalogue registry;
    registry.LoadCatalogue(false);
    EXPECT_EQ(NamesOf(registry), names);
    return names;
  }

  SchemeCatalogue catalogue_;
};

TEST_F(SchemeCommandsTest, BuiltInSchemesAreNotEdited) {
  DialogScript script;
  script.ExpectMessage("Error", "Standard is a built in scheme and cannot be edited");
  EXPECT_FALSE(Edit("Standard"));
}

TEST_F(SchemeCommandsTest, CancelWritesNothing) {
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kProductKey);
  DialogScript script;
  script.Expect(kExisting, [](HWND sheet) {
    Type(Page(sheet, 0), IDC_GENERAL_NAME, "Teachers");
    Click(sheet, IDCANCEL);
  });
  EXPECT_FALSE(Edit("Staff"));
  script.Expect(kCreation, [](HWND dialog) { Click(dialog, IDCANCEL); });
  EXPECT_EQ(CreateScheme(nullptr, catalogue_, ""), std::nullopt);
  script.Expect(kCreation, [](HWND dialog) { Click(dialog, IDOK); });
  script.Expect(kNew, [](HWND sheet) { Click(sheet, IDCANCEL); });
  EXPECT_EQ(CreateScheme(nullptr, catalogue_, ""), std::nullopt);
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kProductKey), before);
  EXPECT_EQ(catalogue_.Schemes.size(), 3U);
}

TEST_F(SchemeCommandsTest, RenamesWithoutTouchingTheOldKey) {
  DialogScript script;
  script.Expect(kExisting, Name("Teachers", "Them"));
  EXPECT_TRUE(Edit("Staff"));
  EXPECT_TRUE(catalogue_.Config.SaveToRegistry());
  EXPECT_EQ(Schemes(), (Names{"Default User: For everybody", "Standard: As delivered", "Teachers: Them"}));
  ExpectTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Staff"),
             R"([TabSelection] "Page1"=dword:1 "Page2"=dword:1 "Page3"=dword:1)");
  SchemeProperties stored;
  EXPECT_TRUE(LoadSchemeProperties("Teachers", stored));
  EXPECT_EQ(stored.ToolBars, Scheme("Teachers").ToolBars);
}

TEST_F(SchemeCommandsTest, AsksForANameUntilItIsNeitherBlankNorTaken) {
  struct {
    std::vector<std::string> typed;  // the first on the sheet
    std::string left;
  } const rows[] = {
      {{"Staff"}, "Staff"},  // its own name
      {{"STAFF"}, "STAFF"},  // a change of case only
      {{"", "Staff"}, "Staff"},
      {{"standard", "  ", "DEFAULT USER", "Teachers"}, "Teachers"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.typed[0]);
    DialogScript script;
    script.Expect(kExisting, Name(row.typed[0], "x"));
    for (std::size_t i = 1; i < row.typed.size(); ++i) {
      script.Expect(kNameProblem, [&, i](HWND dialog) {
        EXPECT_EQ(ControlText(dialog, IDC_NEW_SCHEME_NAME), row.typed[i - 1]);
        SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0);  // Esc: there is no way out but a name
        Rename(row.typed[i])(dialog);
      });
    }
    const std::size_t index = IndexOf("Staff") < 3 ? IndexOf("Staff") : IndexOf("STAFF");
    EXPECT_TRUE(EditScheme(nullptr, catalogue_, index));
    EXPECT_EQ(catalogue_.Schemes[index].Name, row.left);
    EXPECT_EQ(Schemes(), (Names{"Default User: For everybody", row.left + ": x", "Standard: As delivered"}));
  }
}

TEST_F(SchemeCommandsTest, DefaultUserIsNamedAgain) {
  DialogScript script;
  script.Expect(kExisting, [](HWND sheet) { Click(sheet, IDOK); });
  script.Expect(kNameProblem, Rename("Default User"));
  EXPECT_TRUE(Edit("Default User"));
  EXPECT_TRUE(Schemes().contains("Default User: "));
}

TEST_F(SchemeCommandsTest, AValueThatCannotBeDeletedIsNotReplaced) {
  RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, kSchemesKey, "Staff");
  DialogScript script;
  script.Expect(kExisting, Name("Teachers", "Them"));
  EXPECT_TRUE(Edit("Staff"));
  EXPECT_EQ(Schemes(), (Names{"Default User: For everybody", "Standard: As delivered"}));
  EXPECT_TRUE(HasSchemeKey("Teachers")) << "the sections are saved all the same";
}

TEST_F(SchemeCommandsTest, InsistsOnATabAndKeepsWhatWasEntered) {
  DialogScript script;
  script.Expect(kExisting, [](HWND sheet) {
    const HWND page = Page(sheet, 0);
    Choose(page, IDC_GENERAL_TAB, "My Files");
    for (const int tab : {IDC_GENERAL_PROGRAMS, IDC_GENERAL_FILES, IDC_GENERAL_LINKS})
      Click(page, tab);
    Click(page, IDC_GENERAL_PRINT);
    Click(Page(sheet, 1), IDC_ADD_RECORD);
    Name("Teachers", "Them")(sheet);
  });
  script.Expect("Web Links", [](HWND dialog) {
    Type(dialog, IDC_LINK_NAME, "News");
    Type(dialog, IDC_LINK_URL, "news.example");
    Click(dialog, IDOK);
  });
  script.Expect("Tab Selection Error", [](HWND box) {
    EXPECT_EQ(MessageText(box),
              "You need to select at least one\n\rof the tabs for Programs, Files, or\n\r"
              "Web Links.");
    EXPECT_EQ(GetWindow(box, GW_OWNER), nullptr);
    Click(box, IDOK);
  });
  script.Expect(kExisting, [](HWND sheet) {
    const HWND page = Page(sheet, 0);
    EXPECT_EQ(ControlText(page, IDC_GENERAL_NAME), "Teachers");
    EXPECT_EQ(ControlText(page, IDC_GENERAL_DESCRIPTION), "Them");
    EXPECT_EQ(IsDlgButtonChecked(page, IDC_GENERAL_PRINT), BST_CHECKED);
    Click(page, IDC_GENERAL_FILES);
    Click(sheet, IDOK);
  });
  EXPECT_TRUE(Edit("Staff"));
  const SchemeProperties& scheme = Scheme("Teachers");
  EXPECT_EQ(scheme.Tabs, (TabSelection{0, 1, 0}));
  EXPECT_EQ(scheme.Defaults.DefaultFirstTab, 2U);
  EXPECT_EQ(scheme.ToolBars[0].Print, 1U);
  ASSERT_EQ(scheme.WebLinks.Count, 1);
  EXPECT_EQ(scheme.WebLinks.Records[0].URL, "news.example");
}

TEST_F(SchemeCommandsTest, CreatesFromDefaultUser) {
  DialogScript script;
  script.Expect(kCreation, [](HWND dialog) {
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, IDC_CREATION_SOURCE)));
    Click(dialog, IDOK);
  });
  script.Expect(kNew, [](HWND sheet) {
    EXPECT_EQ(ControlText(Page(sheet, 0), IDC_GENERAL_NAME), "");
    Click(Page(sheet, 1), IDC_ADD_RECORD);
    Click(Page(sheet, 2), IDC_ADD_RECORD);
    Name("Year 1", "Our youngest")(sheet);
  });
  script.Expect("Web Links", [](HWND dialog) {
    Type(dialog, IDC_LINK_NAME, "News");
    Type(dialog, IDC_LINK_URL, "news.example");
    Type(dialog, IDC_LINK_LONG_TOOLTIP, "What is new?");
    Type(dialog, IDC_LINK_SHORT_TOOLTIP, "New");
    Click(dialog, IDOK);
  });
  script.Expect("Root Properties", [](HWND dialog) {
    Type(dialog, IDC_ROOT_NAME, "Work");
    Type(dialog, IDC_ROOT_PATH, "C:\\Work");
    Type(dialog, IDC_FOLDER_LEVELS, "3");
    Click(dialog, IDC_DENY_MODIFY);
    Click(dialog, IDOK);
  });
  EXPECT_EQ(CreateScheme(nullptr, catalogue_, "Staff"), "Year 1");
  EXPECT_EQ(Schemes(), (Names{"Default User: For everybody", "Staff: For teachers", "Standard: As delivered",
                              "Year 1: Our youngest"}));
  const std::string path = SchemeKeyPath("Year 1");
  ExpectTree(HKEY_LOCAL_MACHINE, path + "\\TabSelection",
             R"([] "Page1"=dword:1 "Page2"=dword:0 "Page3"=dword:1)");
  ExpectTree(HKEY_LOCAL_MACHINE, path + "\\WebLinks", R"(
      [] "WebLinksCount"=dword:1
      [WebLink 1] "DisplayName"="News" "URL"="news.example" "IconFile"="" "LongToolTip"="What is new?"
      "ShortToolTip"="New" "Wav File"="")");
  ExpectTree(HKEY_LOCAL_MACHINE, path + "\\FolderDisplay", R"(
      [] "RootFolderCount"=dword:1
      [Root 1] "RootDisplayName"="Work" "RootPath"="C:\\Work" "FolderLevels"=dword:3
      "CollapsedIconFile"="" "ExpandedIconFile"="" "LongToolTip"="" "ShortToolTip"="" "Wav File"=""
      "DenyModify"=dword:1)");
}

TEST_F(SchemeCommandsTest, CopiesAnySchemeUnderANewName) {
  DialogScript script;
  script.Expect(kCreation, [](HWND dialog) {
    Click(dialog, IDC_CREATION_COPY);
    const HWND source = GetDlgItem(dialog, IDC_CREATION_SOURCE);
    EXPECT_TRUE(IsWindowEnabled(source));
    EXPECT_EQ(WindowText(source), "Staff") << "the scheme selected in the main window";
    Choose(dialog, IDC_CREATION_SOURCE, "Standard");
    Click(dialog, IDOK);
  });
  script.Expect(kNew, [](HWND sheet) {
    EXPECT_EQ(ControlText(Page(sheet, 0), IDC_GENERAL_NAME), "Standard");
    Click(sheet, IDOK);
  });
  script.Expect(kNameProblem, Rename("Ours"));
  EXPECT_EQ(CreateScheme(nullptr, catalogue_, "Staff"), "Ours");
  EXPECT_TRUE(Schemes().contains("Ours: As delivered"));
  EXPECT_EQ(Scheme("Ours").Tabs, Scheme("Standard").Tabs);
  EXPECT_EQ(Scheme("Ours").WebLinks, Scheme("Standard").WebLinks);
}

TEST_F(SchemeCommandsTest, WithoutDefaultUserANewSchemeHasAllTabs) {
  catalogue_.DeleteScheme("Default User");
  DialogScript script;
  script.Expect(kCreation, [](HWND dialog) { Click(dialog, IDOK); });
  script.Expect(kNew, Name("Year 1", ""));
  EXPECT_EQ(CreateScheme(nullptr, catalogue_, ""), "Year 1");
  EXPECT_EQ(Scheme("Year 1").Tabs, (TabSelection{1, 1, 1}));
  EXPECT_EQ(Schemes().size(), 3U);
}

}  // namespace
