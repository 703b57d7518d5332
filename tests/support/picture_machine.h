// A machine with pictures: a default, a user-defined and an icon folder of the test's own, and one elsewhere.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <string>

#include "editor/pictures.h"
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

class PictureMachineTest : public testing::Test {
 protected:
  PictureMachineTest() {
    for (const char* folder : {"Default", "User", "Icons", "Elsewhere"})
      std::filesystem::create_directory(folder_.File(folder));
  }
  PictureFolders Folders() const {
    return {PicturePath("Default"), PicturePath("User"), PicturePath("Icons")};
  }
  std::string PicturePath(const std::string& name) const { return CanonicalPath(folder_.File(name)); }
  // Makes a file and returns where it is.
  std::string AddPicture(const std::string& name, const std::string& bytes = BitmapBytes(32, 32)) const {
    WriteFileBytes(folder_.File(name), bytes);
    return PicturePath(name);
  }

 private:
  ScratchFolder folder_;
};
