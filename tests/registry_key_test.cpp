#include "registry/registry_key.h"

#include <gtest/gtest.h>

#include <cstring>

#include "registry/registry_access.h"
#include "support/registry_test.h"

namespace {

constexpr char kPath[] = "Software\\Sample";

class RegistryKeyTest : public RegistryTest {
 protected:
  RegistryKey reader_{false, kPath, HKEY_LOCAL_MACHINE};
  RegistryKey writer_{true, kPath, HKEY_LOCAL_MACHINE};
  const char* text_ = "untouched";
};

TEST_F(RegistryKeyTest, WritesWhatItPromisesAndCreatesOnlyWhenTold) {
  EXPECT_FALSE(reader_.SetDword("Number", 1) || reader_.Open(true, true));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, reader_.LastError());
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");
  EXPECT_TRUE(writer_.SetDword("Number", 0x80000001));
  EXPECT_TRUE(writer_.SetBool("On", true) && writer_.SetBool("Off", false));
  EXPECT_TRUE(writer_.SetString("Text", "C:\\Work", false) && writer_.SetString("Empty", "", false));
  EXPECT_TRUE(writer_.SetString("Expandable", "%A%", true) && writer_.SetString("Null", nullptr, false));
  const std::string stored = R"(
    "Number"=dword:80000001 "On"=dword:ffffffff "Off"=dword:0
    "Text"="C:\\Work" "Expandable"=hex(2):25 41 25 00 "Empty"="" "Null"=hex(1):)";
  ExpectTree(HKEY_LOCAL_MACHINE, kPath, stored);

  EXPECT_TRUE(RegistryKey::KeyExists(HKEY_LOCAL_MACHINE, kPath));
  EXPECT_TRUE(reader_.Open(false, false));
  EXPECT_FALSE(reader_.SetDword("Number", 2)) << "opened for reading";
  writer_.SetCreate(false);
  EXPECT_FALSE(writer_.SetDword("Number", 2));
  EXPECT_EQ(ERROR_ACCESS_DENIED, writer_.LastError());
  ExpectTree(HKEY_LOCAL_MACHINE, kPath, stored);
  writer_.SetRoot(HKEY_CURRENT_USER);
  EXPECT_FALSE(writer_.Open(false, false));
}

// Each value as it may lie in a damaged registry, and what the getters make of it.
TEST_F(RegistryKeyTest, ReadsDamagedValuesWithoutHarm) {
  const std::string fits(511, 'a'), doesNot(512, 'b'), large(70000, 'c');  // the first buffer has 512 bytes
  const struct {
    const char* Name;
    std::string Stored;
    bool IsText;
    const char* Text;
    bool IsNumber;
  } cases[] = {
      {"Number", "dword:7", false, nullptr, true},
      {"Short number", "hex(4):07 00", false, nullptr, true},
      {"Long number", "hex(4):07 00 00 00 00", false, nullptr, false},
      {"Four bytes", "hex(3):07 00 00 00", false, nullptr, false},
      {"Text", "\"seven\"", true, "seven", false},
      {"Expandable", "hex(2):25 57 25 00", true, "%W%", false},
      {"Zero bytes", "hex(1):", true, nullptr, false},
      {"Zero binary", "hex(3):", false, nullptr, false},
      {"No NUL", "hex(1):61 62 63", true, "abc", false},
      {"NUL inside", "hex(1):61 62 00 63 00", true, "ab", false},
      {"Several", "hex(7):61 00 62 00 00", false, nullptr, false},
      {"511", '"' + fits + '"', true, fits.c_str(), false},
      {"512", '"' + doesNot + '"', true, doesNot.c_str(), false},
      {"Large", '"' + large + '"', true, large.c_str(), false},
      {"missing", "", false, nullptr, false},
  };
  for (const auto& item : cases) {
    SCOPED_TRACE(item.Name);
    if (!item.Stored.empty())
      WriteTree(HKEY_LOCAL_MACHINE, kPath, '"' + std::string(item.Name) + "\"=" + item.Stored);
    text_ = "untouched";
    EXPECT_EQ(item.IsText, reader_.GetString(item.Name, &text_, false));
    EXPECT_STREQ(item.Text, text_);
    EXPECT_EQ(item.Stored.empty() ? ERROR_FILE_NOT_FOUND : 0, reader_.LastError());
    DWORD number = 99;
    bool flag = false;
    EXPECT_EQ(item.IsNumber, reader_.GetDword(item.Name, &number));
    EXPECT_EQ(item.IsNumber ? 7u : 99u, number);
    EXPECT_EQ(item.IsNumber, reader_.GetBool(item.Name, &flag));
    EXPECT_EQ(item.IsNumber, flag);
  }
}

TEST_F(RegistryKeyTest, EnumeratesToTheEnd) {
  WriteTree(HKEY_LOCAL_MACHINE, kPath, R"("One"=dword:1 "Two"="2" [Empty] [Sub 1] [Sub 2\Below])");
  EXPECT_FALSE(reader_.NextSubkey(&text_)) << "not begun";
  std::string names;
  for (bool more = reader_.FirstSubkey(&text_); more && text_; more = reader_.NextSubkey(&text_))
    names += text_;
  for (bool more = reader_.FirstValue(&text_); more && text_; more = reader_.NextValue(&text_))
    names += text_;
  EXPECT_EQ("EmptySub 1Sub 2OneTwo", names);
  EXPECT_TRUE(reader_.NextValue(&text_) && !text_) << "the end stays the end";

  reader_.SetPath("Software\\Sample\\Empty");
  EXPECT_FALSE(reader_.FirstSubkey(&text_) || text_ || reader_.FirstValue(&text_));
  reader_.Close();
  EXPECT_FALSE(reader_.NextValue(&text_));
}

TEST_F(RegistryKeyTest, ExpandsVariablesAndShortensPaths) {
  SetEnvironmentVariableA("SCHEME_TEST", "C:\\Program Files");
  WriteTree(HKEY_LOCAL_MACHINE, kPath, R"("Text"="%SCHEME_TEST%\\x" "Zero"=hex(2):)");
  EXPECT_TRUE(reader_.GetString("Text", &text_, true));
  EXPECT_STREQ("C:\\Program Files\\x", text_);
  EXPECT_TRUE(reader_.GetString("Zero", &text_, true) && !text_);

  char expected[MAX_PATH];
  GetShortPathNameA("C:\\Program Files", expected, MAX_PATH);
  EXPECT_EQ(std::strlen(expected) < std::strlen("C:\\Program Files"),
            reader_.ShortPath("C:\\Program Files", &text_) && std::strcmp(expected, text_) == 0);
  for (const char* path : {"", "C:\\windows", "C:\\no such folder"})
    EXPECT_FALSE(reader_.ShortPath(path, &text_) || text_) << path;
}

TEST_F(RegistryKeyTest, DirectReadsEndTextsByLengthAndStopAtWhatDoesNotFit) {
  const std::string fits(259, 'a');
  WriteTree(HKEY_LOCAL_MACHINE, kPath,
            R"("1"=hex(1):61 62 63 "2"=")" + fits + R"(" "3"=")" + fits + R"(x" "4"="4" [Sub])");
  const UniqueKey key = OpenKey(HKEY_LOCAL_MACHINE, kPath, KEY_READ);
  EXPECT_EQ("abc", ReadText(key.Get(), "1"));
  EXPECT_EQ(fits, ReadText(key.Get(), "2"));
  EXPECT_EQ(std::nullopt, ReadText(key.Get(), "3"));
  EXPECT_EQ("", ReadText(HKEY_LOCAL_MACHINE, "Software\\None", "4"));
  std::string seen;
  ForEachValue(key.Get(), [&](const std::string& name, const std::string&) { seen += name; });
  ForEachSubkey(key.Get(), [&](const std::string& name) { seen += name; });
  EXPECT_EQ("12Sub", seen);
}

}  // namespace
