#include "editor/scheme_commands.h"

#include <algorithm>
#include <set>

#include "editor/general_page_ids.h"
#include "editor/scheme_creation_dialog_ids.h"
#include "editor/scheme_name_dialog_ids.h"
#include "model/scheme_storage.h"
#include "registry/registry_paths.h"
#include "support/list_driver.h"
#include "support/registry_test.h"

namespace {

constexpr char kExisting[] = "Existing Scheme Properties";

HWND Page(HWND sheet, int index) {
  PropSheet_SetCurSel(sheet, nullptr, index);
  return PropSheet_GetCurrentPageHwnd(sheet);
}

void PressOK(HWND dialog) { Click(dialog, IDOK); }

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
        [Staff\WebLinks] "WebLinksCount"=dword:1 [Staff\WebLinks\WebLink 1] "URL"="x"
        [Staff\FolderDisplay] "RootFolderCount"=dword:1 [Staff\FolderDisplay\Root 1] "RootPath"="x"
        [Standard\TabSelection] "Page1"=dword:0 "Page2"=dword:1 "Page3"=dword:0)");
    (void)catalogue_.LoadCatalogue();
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
    return EditScheme(nullptr, catalogue_, *catalogue_.Find(scheme), folders_);
  }
  std::optional<std::string> Create(DialogScript::Action choose, DialogScript::Action act,
                                    const std::vector<const char*>& names = {}) {
    script_.Expect("Scheme Creation", std::move(choose)).Expect("New Scheme Properties", std::move(act));
    ExpectNameProblems(names);
    return CreateScheme(nullptr, catalogue_, "Staff", folders_);
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
  const PictureFolders folders_{"", "", ""};
  DialogScript script_;
};

TEST_F(SchemeCommandsTest, RenamesOnceTheNameIsNeitherBlankNorTaken) {
  const std::string before = DumpTree(HKEY_LOCAL_MACHINE, kProductKey);
  EXPECT_EQ(Edit(Name("Others", "x", IDCANCEL)), std::nullopt);
  EXPECT_EQ(DumpTree(HKEY_LOCAL_MACHINE, kProductKey), before);
  EXPECT_EQ(Edit(Name("STAFF", "x")), "STAFF");  // not a duplicate of itself
  EXPECT_EQ(Schemes(), (Names{"Default User: All", "STAFF: x", "Standard: Built in"}));
  EXPECT_EQ(Edit(Name("standard", "y"), {"  ", "DEFAULT USER", "Others"}, "STAFF"), "Others");
  EXPECT_EQ(Edit(PressOK, {"Default User"}, "Default User"),
            "Default User");  // has to be named again, and may keep its name
  EXPECT_EQ(Schemes(), (Names{"Default User: ", "Others: y", "Standard: Built in"}));
  // A value that cannot be deleted is not replaced, and the user is told.
  RegDeleteKeyValueA(HKEY_LOCAL_MACHINE, kSchemesKey, "Others");
  script_.Expect(kExisting, Name("More", "z"));
  script_.ExpectMessage(kWarning, "Error",
                        "More could not be saved completely.\nThe list shows what is stored now.");
  EXPECT_EQ(EditScheme(nullptr, catalogue_, *catalogue_.Find("Others"), folders_), "Others");
  (void)catalogue_.LoadCatalogue();
  EXPECT_EQ(Schemes(), (Names{"Default User: ", "Standard: Built in"}));
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
  script_.Expect("Tab Selection Error", [&](HWND box) {
    EXPECT_EQ(MessageText(box),
              "You need to select at least one\n\rof the tabs for Programs, Files, or\n\rWeb Links.");
    EXPECT_FALSE(IsWindowEnabled(owner)) << "another command could start meanwhile";
    Click(box, IDOK);
  });
  script_.Expect(kExisting, [](HWND sheet) {
    Click(Page(sheet, 0), IDC_GENERAL_FILES);
    Click(sheet, IDOK);
  });
  EXPECT_EQ(EditScheme(owner, catalogue_, *catalogue_.Find("Staff"), folders_), "Others");
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
  EXPECT_EQ(Stored("Copy").Tabs, (TabSelection{0, 1, 0}));
  EXPECT_EQ(catalogue_.Remove("Default User"), ChangeResult::kDone);
  EXPECT_EQ(Create(PressOK, Name("Empty", "")), "Empty");
  EXPECT_EQ(Stored("Empty").Tabs, (TabSelection{1, 1, 1}));
  EXPECT_EQ(Schemes(),
            (Names{"Copy: Built in", "Empty: ", "Staff: Teachers", "Standard: Built in", "Year 1: Ours"}));
}

}  // namespace
