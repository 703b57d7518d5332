#include "registry/registry_key.h"

#include <gtest/gtest.h>

#include <tuple>

#include "support/registry_test.h"

namespace {

constexpr char kPath[] = "Software\\Sample";

struct RegistryKeyTest : RegistryTest {
  RegistryKey reader_{RegistryKey::kOpen, kPath};
  RegistryKey writer_{RegistryKey::kCreate, kPath};
  const char* text_ = "untouched";
};

TEST_F(RegistryKeyTest, WritesWhatItPromisesAndCreatesOnlyWhenTold) {
  EXPECT_FALSE(reader_.SetDword("Number", 1));
  EXPECT_FALSE(reader_.Open());
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");
  EXPECT_TRUE(writer_.SetDword("Number", 0x80000001));
  EXPECT_TRUE(writer_.SetBool("On", true));
  EXPECT_TRUE(writer_.SetBool("Off", false));
  EXPECT_TRUE(writer_.SetString("Text", "C:\\Work"));
  EXPECT_TRUE(writer_.SetExpandString("Expandable", "%A%"));
  EXPECT_TRUE(writer_.SetString("Null", nullptr));
  writer_.SetCreate(RegistryKey::kOpen);
  EXPECT_FALSE(writer_.SetDword("Number", 2));
  EXPECT_EQ(ERROR_ACCESS_DENIED, writer_.LastError());
  ExpectTree(HKEY_LOCAL_MACHINE, kPath, R"(
    "Number"=dword:80000001 "On"=dword:ffffffff "Off"=dword:0
    "Text"="C:\\Work" "Expandable"=hex(2):25 41 25 00 "Null"=hex(1):)");
}

// A value as it may lie in a damaged registry, and what the getters make of it.
TEST_F(RegistryKeyTest, ReadsDamagedValuesWithoutHarm) {
  const std::string large(70000, 'c');
  enum Kind { kNeither, kNumber, kText };
  const std::tuple<std::string, Kind, const char*> cases[] = {
      {"", kNeither, nullptr},  // missing
      {"dword:7", kNumber, nullptr},
      {"hex(4):07 00", kNumber, nullptr},
      {"hex(4):07 00 00 00 00", kNeither, nullptr},
      {"hex(3):07 00 00 00", kNeither, nullptr},
      {"hex(2):25 57 25 00", kText, "%W%"},
      {"hex(1):", kText, nullptr},
      {"hex(1):61 62 63", kText, "abc"},
      {'"' + large + '"', kText, large.c_str()},
  };
  for (const auto& [stored, kind, text] : cases) {
    SCOPED_TRACE(stored.substr(0, 30));
    if (!stored.empty()) WriteTree(HKEY_LOCAL_MACHINE, kPath, "\"V\"=" + stored);
    text_ = "untouched";
    EXPECT_EQ(kind == kText, reader_.GetString("V", &text_));
    EXPECT_STREQ(text, text_);
    EXPECT_EQ(stored.empty() ? ERROR_FILE_NOT_FOUND : 0, reader_.LastError());
    DWORD number = 99;
    bool flag = false;
    EXPECT_EQ(kind == kNumber, reader_.GetDword("V", &number));
    EXPECT_EQ(kind == kNumber ? 7u : 99u, number);
    EXPECT_EQ(kind == kNumber, reader_.GetBool("V", &flag) && flag);
  }
}

TEST_F(RegistryKeyTest, EnumeratesToTheEndAndExpandsVariables) {
  WriteTree(HKEY_LOCAL_MACHINE, kPath, R"("One"="%SCHEME_TEST%\\x" "Two"="2" [Empty] [Sub 1] [Sub 2\Below])");
  std::string names;
  for (bool more = reader_.FirstSubkey(&text_); more && text_; more = reader_.NextSubkey(&text_))
    names += text_;
  for (bool more = reader_.FirstValue(&text_); more && text_; more = reader_.NextValue(&text_))
    names += text_;
  EXPECT_EQ("EmptySub 1Sub 2OneTwo", names);
  EXPECT_TRUE(reader_.NextValue(&text_) && !text_) << "the end stays the end";

  SetEnvironmentVariableA("SCHEME_TEST", "C:\\Program Files");
  EXPECT_TRUE(reader_.GetExpandedString("One", &text_));
  EXPECT_STREQ("C:\\Program Files\\x", text_);
  EXPECT_TRUE(reader_.ShortPath("C:\\windows", &text_)) << "true also where the short form does not fit";
  EXPECT_STREQ(text_, "") << "of which nothing is returned then";
  EXPECT_FALSE(reader_.ShortPath("C:\\no such folder", &text_) || text_);
}

}  // namespace
