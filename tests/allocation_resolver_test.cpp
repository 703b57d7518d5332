// Which scheme the logged-on user gets.

#include <windows.h>

#include <gtest/gtest.h>

#include "allocation/account_detection.h"
#include "model/scheme_storage.h"
#include "registry/registry_paths.h"
#include "support/registry_test.h"

namespace {

constexpr char kTessaly[] = "Software\\Tessaly";

std::string Value(const std::string& name, const std::string& text) {
  return text.empty() ? "" : "\"" + name + "\"=\"" + text + "\"\n";
}

using ResolverTest = RegistryTest;

TEST_F(ResolverTest, TriesTheCandidatesInOrder) {
  const struct {
    int Code;
    const char* AccountType;
    // What is allocated to the class, chosen by the user, and allocated to the user and the group.
    const char* Class;
    const char* Own;
    const char* User;
    const char* Group;
    const char* Result;
    const char* Loaded;
  } cases[] = {
      // The class counts for pupils only, however their type is spelled, and comes before user and group.
      {3, "Pupils", "C", "", "U", "G", "C", "C"},
      {6, "pupil", "C", "", "U", "G", "C", "C"},
      {3, "Teachers", "C", "", "U", "G", "U", "U"},
      {6, "Teachers", "C", "", "", "G", "G", "G"},
      {6, "Pupils", "Missing", "", "", "G", "G", "G"},
      {6, "Pupils", "Half", "", "", "", "Default User", "Default User"},
      // The user's own choice counts in the per-user environments only, which know no account types.
      {6, "Teachers", "", "O", "", "", "Default User", "Default User"},
      {8, "Pupils", "C", "O", "U", "G", "O", "O"},
      {9, "Pupils", "C", "Missing", "U", "G", "U", "U"},
      {99, "Pupils", "C", "", "", "G", "Default User", "Default User"},
      // Without an environment the user's scheme is loaded, but the answer is an error.
      {0, "Pupils", "C", "O", "U", "G", "Error", "U"},
      {0, "Pupils", "", "", "", "", "Error", "Default User"},
  };
  WriteTree(HKEY_LOCAL_MACHINE, kProductKey, "[]");
  for (const std::string name : {"C", "O", "U", "G", "Default User"}) {
    SchemeProperties scheme;
    scheme.Name = scheme.Defaults.DefaultView = name;
    ASSERT_TRUE(SaveSchemeProperties(name, scheme));
  }
  // Loads as far as it goes, and fails.
  WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Half"), "[WebLinks] \"WebLinksCount\"=dword:1");

  char name[257] = "";
  DWORD size = sizeof(name);
  GetUserNameA(name, &size);
  const std::string user = name;
  for (const auto& test : cases) {
    SCOPED_TRACE(testing::Message() << test.Code << test.AccountType << test.Class << test.Own);
    for (const std::string key : {"Tallowby", "Crateling", "Kelvanstead\\Class Schemes",
                                  "Kelvanstead\\User Schemes", "Kelvanstead\\User Group Schemes"})
      RegDeleteTreeA(HKEY_LOCAL_MACHINE, (kTessaly + ("\\" + key)).c_str());
    RegDeleteTreeA(HKEY_CURRENT_USER, kTessaly);
    const std::string type = test.AccountType;
    WriteTree(HKEY_LOCAL_MACHINE, kTessaly,
              "[Tallowby\\Accounts\\" + user + "]\n" + Value("Account Type", type) +
                  "[Crateling\\Benchspace]\n" + Value("Current Mode", type) + Value("Current Class", "Oak") +
                  "[Kelvanstead\\Class Schemes]\n" + Value("Oak", test.Class) +
                  "[Kelvanstead\\User Schemes]\n" + Value(user, test.User) +
                  "[Kelvanstead\\User Group Schemes]\n" + Value(type, test.Group));
    WriteTree(HKEY_CURRENT_USER, kTessaly,
              "[Benchspace]\n" + Value("Current Class", "Oak") + "[Kelvanstead]\n" +
                  Value("ConfigToUse", test.Own));

    SchemeProperties scheme;
    scheme.Description = "what was in the object before";
    EXPECT_EQ(ResolveSchemeForUser(scheme, test.Code), test.Result);
    SchemeProperties expected;
    expected.Name = expected.Defaults.DefaultView = test.Loaded;
    EXPECT_TRUE(scheme == expected) << "loaded " << scheme.Defaults.DefaultView;
  }
}

}  // namespace
