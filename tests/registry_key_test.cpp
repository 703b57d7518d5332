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

TEST_F(RegistryKeyTest, WritesTheTypesAndBytesThatItPromises) {
  EXPECT_TRUE(writer_.SetDword("Number", 0x80000001));
  EXPECT_TRUE(writer_.SetBool("On", true) && writer_.SetBool("Off", false));
  EXPECT_TRUE(writer_.SetString("Text", "C:\\Work", false));
  EXPECT_TRUE(writer_.SetString("Expandable", "%A%", true));
  EXPECT_TRUE(writer_.SetString("Empty", "", false));
  EXPECT_TRUE(writer_.SetString("Null", nullptr, false));
  ExpectTree(HKEY_LOCAL_MACHINE, kPath, R"(
    "Number"=dword:80000001 "On"=dword:ffffffff "Off"=dword:0
    "Text"="C:\\Work" "Expandable"=hex(2):25 41 25 00 "Empty"="" "Null"=hex(1):
  )");
}

TEST_F(RegistryKeyTest, CreatesMissingLevelsOnlyWhenTold) {
  EXPECT_FALSE(reader_.SetDword("Number", 1));
  EXPECT_EQ(ERROR_FILE_NOT_FOUND, reader_.LastError());
  EXPECT_FALSE(reader_.Open(true, true));
  ExpectTree(HKEY_LOCAL_MACHINE, "", "[]");
  reader_.SetCreate(true);
  EXPECT_EQ(0u, reader_.LastError());
  EXPECT_TRUE(reader_.SetDword("Number", 1));
  EXPECT_TRUE(RegistryKey::KeyExists(HKEY_LOCAL_MACHINE, kPath));
  reader_.SetCreate(false);
  EXPECT_FALSE(reader_.SetDword("Number", 2));
  EXPECT_EQ(ERROR_ACCESS_DENIED, reader_.LastError());
  reader_.SetRoot(HKEY_CURRENT_USER);
  EXPECT_FALSE(reader_.Open(false, false));
}

// Each value as it may lie in a damaged registry, and what the getters make of it.
TEST_F(RegistryKeyTest, ReadsDamagedValuesWithoutHarm) {
  const std::string large(70000, 'x');
  std::string bytes;
  for (int i = 0; i < 600; ++i)
    bytes += " 1";
  WriteTree(HKEY_LOCAL_MACHINE, kPath,
            R"(
    "Number"=dword:7 "Text"="seven" "Expandable"=hex(2):25 57 25 00
    "Zero bytes"=hex(1): "Zero binary"=hex(3): "No NUL"=hex(1):61 62 63 "NUL inside"=hex(1):61 62 00 63 00
    "Four bytes"=hex(3):07 00 00 00 "Short number"=hex(4):07 00 "Long number"=hex(4):07 00 00 00 00
    "Several"=hex(7):61 00 62 00 00 "Large binary"=hex(3):)" +
                bytes + "\"Large\"=\"" + large + '"');
  const std::string fits(511, 'a');
  const std::string doesNot(512, 'b');
  ASSERT_TRUE(writer_.SetString("511", fits.c_str(), false) &&
              writer_.SetString("512", doesNot.c_str(), false));

  const struct {
    const char* Name;
    bool IsText;
    const char* Text;
    bool IsNumber;
    DWORD TextError;
  } cases[] = {
      {"Number", false, nullptr, true, 0},       {"Text", true, "seven", false, 0},
      {"Expandable", true, "%W%", false, 0},     {"Zero bytes", true, nullptr, false, 0},
      {"Zero binary", false, nullptr, false, 0}, {"No NUL", true, "abc", false, 0},
      {"NUL inside", true, "ab", false, 0},      {"Four bytes", false, nullptr, false, 0},
      {"Short number", false, nullptr, true, 0}, {"Long number", false, nullptr, false, 0},
      {"Several", false, nullptr, false, 0},     {"Large binary", false, nullptr, false, 0},
      {"Large", true, large.c_str(), false, 0},  {"511", true, fits.c_str(), false, 0},
      {"512", true, doesNot.c_str(), false, 0},  {"missing", false, nullptr, false, ERROR_FILE_NOT_FOUND},
  };
  for (const auto& item : cases) {
    SCOPED_TRACE(item.Name);
    text_ = "untouched";
    EXPECT_EQ(item.IsText, reader_.GetString(item.Name, &text_, false));
    EXPECT_STREQ(item.Text, text_);
    EXPECT_EQ(item.TextError, reader_.LastError());
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
  EXPECT_FALSE(reader_.NextSubkey(&text_));  // not begun
  std::string names;
  for (bool more = reader_.FirstSubkey(&text_); more && text_; more = reader_.NextSubkey(&text_))
    names += text_;
  for (bool more = reader_.FirstValue(&text_); more && text_; more = reader_.NextValue(&text_))
    names += text_;
  EXPECT_EQ("EmptySub 1Sub 2OneTwo", names);
  EXPECT_TRUE(reader_.NextValue(&text_));  // the end stays the end
  EXPECT_EQ(nullptr, text_);

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
  EXPECT_TRUE(reader_.GetString("Zero", &text_, true));
  EXPECT_EQ(nullptr, text_);

  char expected[MAX_PATH];
  GetShortPathNameA("C:\\Program Files", expected, MAX_PATH);
  EXPECT_EQ(std::strlen(expected) < std::strlen("C:\\Program Files"),
            reader_.ShortPath("C:\\Program Files", &text_) && std::strcmp(expected, text_) == 0);
  for (const char* path : {"", "C:\\windows", "C:\\no such folder"}) {
    EXPECT_FALSE(reader_.ShortPath(path, &text_)) << path;
    EXPECT_EQ(nullptr, text_);
  }
}

TEST_F(RegistryKeyTest, DirectReadsEndTextsByLengthAndStopAtWhatDoesNotFit) {
  const std::string fits(259, 'a');
  WriteTree(HKEY_LOCAL_MACHINE, kPath,
            R"("1"=hex(1):61 62 63 "4"="4" [Sub] [] "2"=")" + fits + R"(" "3"=")" + fits + "x\"");
  const UniqueKey key = OpenKey(HKEY_LOCAL_MACHINE, kPath, KEY_READ);
  EXPECT_EQ("abc", ReadText(key.Get(), "1"));
  EXPECT_EQ(fits, ReadText(key.Get(), "2"));
  EXPECT_EQ(std::nullopt, ReadText(key.Get(), "3"));
  EXPECT_EQ("4", ReadText(HKEY_LOCAL_MACHINE, kPath, "4"));
  EXPECT_EQ("", ReadText(HKEY_LOCAL_MACHINE, "Software\\None", "4"));
  std::string seen;
  ForEachValue(key.Get(), [&](const std::string& name, const std::string&) { seen += name; });
  ForEachSubkey(key.Get(), [&](const std::string& name) { seen += name; });
  EXPECT_EQ("12Sub", seen);
}

}  // namespace
