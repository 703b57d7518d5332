// Which scheme the logged-on user gets, against a registry with five schemes.

#include <windows.h>

#include <gtest/gtest.h>

#include "allocation/account_detection.h"
#include "model/scheme_storage.h"
#include "registry/registry_paths.h"
#include "support/registry_test.h"

namespace {

constexpr char kTessaly[] = "Software\\Tessaly";

std::string UserName() {
  char name[257] = "";
  DWORD size = sizeof(name);
  GetUserNameA(name, &size);
  return name;
}

std::string Value(const std::string& name, const std::string& text) {
  return text.empty() ? "" : "\"" + name + "\"=\"" + text + "\"\n";
}

// The schemes differ in one number, by which a test tells which was loaded.
constexpr const char* kSchemes[] = {"Class Scheme", "Own", "User Scheme", "Group Scheme", "Default User"};

class ResolverTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteTree(HKEY_LOCAL_MACHINE, kTessaly, "[Kelvanstead]");
    std::uint32_t number = 0;
    for (const char* name : kSchemes) {
      SchemeProperties scheme;
      scheme.Name = name;
      scheme.Defaults.DefaultIconSize = ++number;
      ASSERT_TRUE(SaveSchemeProperties(name, scheme));
    }
    // Half a scheme: it loads as far as it goes, and fails.
    WriteTree(HKEY_LOCAL_MACHINE, SchemeKeyPath("Half"), "[Defaults]\n\"DefaultIconSize\"=dword:63");
  }
};

TEST_F(ResolverTest, TriesTheCandidatesInOrder) {
  struct Case {
    int Code;
    const char* AccountType;
    const char* ClassScheme;
    const char* ConfigToUse;
    const char* UserScheme;
    const char* GroupScheme;
    const char* Result;
    const char* Loaded;
  };
  constexpr char kClass[] = "Class Scheme";
  constexpr char kOwn[] = "Own";
  constexpr char kUser[] = "User Scheme";
  constexpr char kGroup[] = "Group Scheme";
  constexpr char kDefault[] = "Default User";
  const Case cases[] = {
      // The class counts for pupils only, however their type is spelled, and comes before user and group.
      {3, "Pupils", kClass, "", kUser, kGroup, kClass, kClass},
      {6, "pupil", kClass, "", kUser, kGroup, kClass, kClass},
      {3, "Teachers", kClass, "", kUser, kGroup, kUser, kUser},
      {6, "Teachers", kClass, "", "", kGroup, kGroup, kGroup},
      {6, "Pupils", "Missing", "", "", kGroup, kGroup, kGroup},
      {6, "Pupils", "Half", "", "", "", kDefault, kDefault},
      // The user's own choice counts in the per-user environments only, which know no accounts.
      {6, "Teachers", "", kOwn, "", "", kDefault, kDefault},
      {8, "Pupils", kClass, kOwn, kUser, kGroup, kOwn, kOwn},
      {9, "Pupils", kClass, "Missing", kUser, kGroup, kUser, kUser},
      {99, "Pupils", kClass, "", "", kGroup, kDefault, kDefault},
      {99, "Pupils", "", "Schemes\\\\Own", "", "", kDefault, kDefault},
      // Without an environment the user's scheme is loaded, but the answer is an error.
      {0, "Pupils", kClass, kOwn, kUser, kGroup, "Error", kUser},
      {0, "Pupils", "", "", "", "", "Error", kDefault},
      {7, "", "", "", "", "", kDefault, kDefault},
  };
  const std::string user = UserName();
  for (const Case& test : cases) {
    SCOPED_TRACE(testing::Message() << "code " << test.Code << ", " << test.AccountType << ", class "
                                    << test.ClassScheme << ", own " << test.ConfigToUse);
    const std::string type = test.AccountType;
    WriteTree(HKEY_LOCAL_MACHINE, kTessaly,
              "[Tallowby\\Accounts\\" + user + "]\n" + Value("Account Type", type) +
                  "[Crateling\\Benchspace]\n" + Value("Current Mode", type) + Value("Current Class", "Oak") +
                  "[Kelvanstead\\Class Schemes]\n" + Value("Oak", test.ClassScheme) +
                  "[Kelvanstead\\User Schemes]\n" + Value(user, test.UserScheme) +
                  "[Kelvanstead\\User Group Schemes]\n" + Value(type, test.GroupScheme));
    WriteTree(HKEY_CURRENT_USER, kTessaly,
              "[Benchspace]\n" + Value("Current Class", "Oak") + "[Kelvanstead]\n" +
                  Value("ConfigToUse", test.ConfigToUse));

    SchemeProperties scheme;
    scheme.Description = "what was in the object before";
    EXPECT_EQ(ResolveSchemeForUser(scheme, test.Code), test.Result);
    SchemeProperties expected;
    expected.Name = test.Loaded;
    EXPECT_TRUE(LoadSchemeProperties(test.Loaded, expected));
    EXPECT_EQ(scheme.Name, test.Loaded);
    EXPECT_TRUE(scheme == expected) << "loaded " << scheme.Defaults.DefaultIconSize;

    for (const char* key : {"Tallowby", "Crateling", "Kelvanstead\\Class Schemes",
                            "Kelvanstead\\User Schemes", "Kelvanstead\\User Group Schemes"})
      RegDeleteTreeA(HKEY_LOCAL_MACHINE, (std::string(kTessaly) + "\\" + key).c_str());
    RegDeleteTreeA(HKEY_CURRENT_USER, kTessaly);
  }
}

}  // namespace
