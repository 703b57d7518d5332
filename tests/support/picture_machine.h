// A machine with pictures: the settings name a default, a user-defined and an icon folder of the test's own.
#pragma once

#include <windows.h>

#include <string>

#include "editor/pictures.h"
#include "support/registry_test.h"
#include "support/scratch_folder.h"

// The head of a bitmap file without any pixels.
inline std::string BitmapHeader(LONG width, LONG height, DWORD compression = BI_RGB, WORD bitsPerPixel = 32) {
  BITMAPFILEHEADER file{0x4D42, 0, 0, 0, sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER)};
  BITMAPINFOHEADER info{sizeof(info), width, height, 1, bitsPerPixel, compression, 0, 0, 0, 0, 0};
  return std::string(reinterpret_cast<const char*>(&file), sizeof(file)) +
         std::string(reinterpret_cast<const char*>(&info), sizeof(info));
}

// A bitmap file: red, but for so many columns of magenta on its left.
inline std::string BitmapBytes(int width, int height, int magentaColumns = 0) {
  std::string bytes = BitmapHeader(width, height);
  for (int i = 0; i < width * height; ++i)
    bytes += i % width < magentaColumns ? std::string("\xFF\0\xFF\0", 4) : std::string("\0\0\xFF\0", 4);
  return bytes;
}

class PictureMachineTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    WriteSetting("Software\\Tessaly\\Kelvanstead\\Settings", "Default Pictures", "Default");
    WriteSetting("Software\\Tessaly\\Kelvanstead\\Settings", "User Defined Pictures", "User");
    WriteSetting("Software\\Tessaly\\KelvansteadScheme Manager", "IconPath", "Icons");
    std::filesystem::create_directory(folder_.File("Elsewhere"));
  }
  std::string PicturePath(const std::string& name) const {
    return CanonicalPath(folder_.Path()) + "\\" + name;
  }
  // Makes a file and answers where it is.
  std::string AddPicture(const std::string& name, const std::string& bytes = BitmapBytes(32, 32)) const {
    WriteFileBytes(PicturePath(name), bytes);
    return PicturePath(name);
  }

 private:
  void WriteSetting(const char* key, const char* value, const char* folder) const {
    std::filesystem::create_directory(folder_.File(folder));
    const std::string path = PicturePath(folder);
    RegSetKeyValueA(HKEY_LOCAL_MACHINE, key, value, REG_SZ, path.c_str(),
                    static_cast<DWORD>(path.size()) + 1);
  }

  ScratchFolder folder_;
};
