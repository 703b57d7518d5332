#include "editor/pictures.h"

#include <windows.h>

#include <algorithm>

#include "base/names.h"
#include "base/unique_handle.h"

namespace {

static_assert(kMaxPicturePath == MAX_PATH - 1);

bool IsFile(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Appends the files of a folder with that ending, until kMaxPictures are there.
void AppendFiles(const std::string& folder, const char* extension, std::vector<std::string>& paths) {
  WIN32_FIND_DATAA found;
  const UniqueFind find(FindFirstFileA((folder + "\\*" + extension).c_str(), &found));
  if (!find) return;
  do {
    const std::string name = found.cFileName;
    // The system also matches short names, and writes '?' for what the code page cannot express: such a file
    // cannot be named in a scheme.
    const bool usable = !(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) &&
                        name.find('?') == std::string::npos &&
                        IsSameName(name.substr(std::min(name.rfind('.'), name.size())), extension) &&
                        folder.size() + 1 + name.size() <= kMaxPicturePath;
    if (usable) paths.push_back(folder + "\\" + name);
  } while (paths.size() < kMaxPictures && FindNextFileA(find.Get(), &found));
}

// As the user's language sorts them.
void SortByName(std::vector<std::string>& paths) {
  std::sort(paths.begin(), paths.end(), [](const std::string& left, const std::string& right) {
    return lstrcmpiA(FileNameOf(left).c_str(), FileNameOf(right).c_str()) < 0;
  });
}

}  // namespace

std::string CanonicalPath(const std::string& path) {
  if (path.empty()) return {};
  char full[MAX_PATH];
  const DWORD fullLength = GetFullPathNameA(path.c_str(), sizeof(full), full, nullptr);
  if (fullLength == 0 || fullLength >= sizeof(full)) return path;
  char longForm[MAX_PATH];
  const DWORD longLength = GetLongPathNameA(full, longForm, sizeof(longForm));
  std::string result = longLength > 0 && longLength < sizeof(longForm) ? longForm : full;
  if (result.ends_with('\\')) result.pop_back();
  return result;
}

std::string FileNameOf(const std::string& path) { return path.substr(path.rfind('\\') + 1); }

PictureFolders::PictureFolders(const std::string& defaults, const std::string& userDefined,
                               const std::string& icons)
    : folders_{CanonicalPath(defaults), CanonicalPath(userDefined), CanonicalPath(icons)} {
  // A folder that is set twice is looked at once.
  if (IsSameName(folders_[kUserDefined], folders_[kDefaults])) folders_[kUserDefined].clear();
  if (IsSameName(folders_[kIcons], folders_[kDefaults]) ||
      IsSameName(folders_[kIcons], folders_[kUserDefined]))
    folders_[kIcons].clear();
}

std::string PictureFolders::FindByName(const std::string& name, int folders) const {
  for (int i = 0; i < folders; ++i) {
    const std::string path = folders_[i] + "\\" + name;
    if (!folders_[i].empty() && IsFile(path)) return CanonicalPath(path);
  }
  return {};
}

std::string PictureFolders::FullPath(const std::string& stored) const {
  if (stored.empty() || stored.size() > kMaxPicturePath) return {};
  if (stored.find_first_of("\\/:") == std::string::npos) return FindByName(stored, kFolderCount);
  return IsFile(stored) ? CanonicalPath(stored) : std::string();
}

std::string PictureFolders::StoredName(const std::string& path) const {
  const std::string canonical = CanonicalPath(path);
  const std::string name = FileNameOf(canonical);
  return IsSameName(FindByName(name, kIcons), canonical) ? name : canonical;
}

std::vector<std::string> PictureFolders::Bitmaps() const {
  std::vector<std::string> paths;
  for (const int folder : {kDefaults, kUserDefined})
    if (!folders_[folder].empty()) AppendFiles(folders_[folder], ".bmp", paths);
  SortByName(paths);
  return paths;
}

std::vector<std::string> PictureFolders::IconsAndBitmaps() const {
  std::vector<std::string> paths;
  for (const std::string& folder : folders_) {
    if (folder.empty()) continue;
    AppendFiles(folder, ".bmp", paths);
    AppendFiles(folder, ".ico", paths);
  }
  SortByName(paths);
  return paths;
}
