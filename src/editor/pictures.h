// The picture files of this machine, and how a scheme names them.
//
// A scheme names a picture that lies in one of the shell's two pictures folders by its bare file name, so
// that it works on a machine whose folders lie elsewhere, and any other by its full path.
#pragma once

#include <array>
#include <string>
#include <vector>

// At most so many pictures are offered; what a folder holds beyond is not looked at.
inline constexpr std::size_t kMaxPictures = 1000;

// The longest name or path of a picture; no file has a longer one.
inline constexpr std::size_t kMaxPicturePath = 259;

// Looks at the files each time that it is asked; remembers nothing but where the folders are.
class PictureFolders {
 public:
  // A folder that is "", or is not there, holds nothing.
  PictureFolders(const std::string& defaults, const std::string& userDefined, const std::string& icons);

  // The file that a scheme means by `stored`, or "" when it is not on this machine. A bare name is looked for
  // in the default, then the user-defined pictures, then among the icons, where earlier versions found some.
  std::string FullPath(const std::string& stored) const;
  // What a scheme stores for a file: its bare name where the shell finds that very file by it.
  std::string StoredName(const std::string& path) const;

  // Full paths of the bitmaps in the two pictures folders, sorted by file name.
  std::vector<std::string> Bitmaps() const;
  // Full paths of the icons and bitmaps in all three folders, sorted by file name.
  std::vector<std::string> IconsAndBitmaps() const;

 private:
  enum { kDefaults, kUserDefined, kIcons, kFolderCount };

  // The file of that name in one of the first `folders` folders, or "".
  std::string FindByName(const std::string& name, int folders) const;

  // Full paths in the long form, without a backslash at the end, or "".
  std::array<std::string, kFolderCount> folders_;
};

// The full path in its long form, without a backslash at the end (GetFullPathNameA, GetLongPathNameA): two
// paths of an existing file then differ in case at most. "" stays "".
std::string CanonicalPath(const std::string& path);
// What follows the last backslash.
std::string FileNameOf(const std::string& path);
