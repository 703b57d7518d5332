// A machine with pictures: the settings name a default, a user-defined and an icon folder of the test's own.
#pragma once

#include <windows.h>

#include <string>
#include <tuple>

#include "editor/pictures.h"
#include "support/registry_test.h"
#include "support/scratch_folder.h"

// A bitmap file: red, but for so many columns of magenta on its left.
inline std::string BitmapBytes(int width, int height, int magentaColumns = 0) {
  const BITMAPFILEHEADER file{0x4D42, 0, 0, 0, sizeof(BITMAPFILEHEADER) + sizeof(BITMAPINFOHEADER)};
  const BITMAPINFOHEADER info{sizeof(info), width, height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  std::string bytes(reinterpret_cast<const char*>(&file), sizeof(file));
  bytes.append(reinterpret_cast<const char*>(&info), sizeof(info));
  for (int i = 0; i < width * height; ++i)
    bytes.append(i % width < magentaColumns ? "\xFF\0\xFF\0" : "\0\0\xFF\0", 4);
  return bytes;
}

class PictureMachineTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    constexpr char kShell[] = "Software\\Tessaly\\Kelvanstead\\Settings";
    for (const auto& [folder, key, value] :
         {std::tuple{"Default", kShell, "Default Pictures"},
          std::tuple{"User", kShell, "User Defined Pictures"},
          std::tuple{"Icons", "Software\\Tessaly\\KelvansteadScheme Manager", "IconPath"},
          std::tuple{"Elsewhere", kShell, "Not a setting"}}) {
      std::filesystem::create_directory(folder_.File(folder));
      const std::string path = PicturePath(folder);
      RegSetKeyValueA(HKEY_LOCAL_MACHINE, key, value, REG_SZ, path.c_str(),
                      static_cast<DWORD>(path.size()) + 1);
    }
  }
  std::string PicturePath(const std::string& name) const { return CanonicalPath(folder_.File(name)); }
  // Makes a file and answers where it is.
  std::string AddPicture(const std::string& name, const std::string& bytes = BitmapBytes(32, 32)) const {
    WriteFileBytes(folder_.File(name), bytes);
    return PicturePath(name);
  }

 private:
  ScratchFolder folder_;
};
