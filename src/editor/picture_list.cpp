#include "editor/picture_list.h"

#include <commctrl.h>

#include <algorithm>

#include "base/names.h"
#include "controls/list_view.h"
#include "controls/wait_cursor.h"
#include "editor/thumbnail.h"

namespace {

constexpr int kSpacingX = 96;
constexpr int kSpacingY = kLargeThumbnailSize + 44;  // two lines of text below
constexpr int kImageListGrowth = 32;

enum { kEmptyImage, kMissingImage };

int AddIcon(HIMAGELIST images, const UniqueIcon& icon) { return ImageList_AddIcon(images, icon.Get()); }

}  // namespace

std::string PictureLabel(const PictureFolders& folders, const std::string& stored) {
  if (stored.empty()) return "(no picture)";
  if (!folders.FullPath(stored).empty()) return FileNameOf(stored);
  return stored.substr(0, kMaxPicturePath) + " (not on this machine)";
}

void CPictureList::Fill(HWND listView, HWND fileField, const std::vector<std::string>& paths,
                        const std::string& stored) {
  listView_ = listView;
  fileField_ = fileField;
  thumbnails_.Reset(ImageList_Create(kLargeThumbnailSize, kLargeThumbnailSize, ILC_COLOR32 | ILC_MASK, 0,
                                     kImageListGrowth));
  AddIcon(thumbnails_.Get(), EmptyThumbnail(kLargeThumbnailSize));
  AddIcon(thumbnails_.Get(), MissingThumbnail(kLargeThumbnailSize));
  ListView_SetImageList(listView_, thumbnails_.Get(), LVSIL_NORMAL);
  ListView_SetIconSpacing(listView_, kSpacingX, kSpacingY);

  SendMessageA(listView_, WM_SETREDRAW, FALSE, 0);
  Append({PictureLabel(folders_, ""), "", "", kEmptyImage});
  for (const std::string& path : paths)
    Append({FileNameOf(path), path, std::nullopt, std::nullopt});
  SendMessageA(listView_, WM_SETREDRAW, TRUE, 0);
  SelectStored(stored);
}

void CPictureList::SelectStored(const std::string& stored) {
  if (stored.empty()) return SelectRow(listView_, 0);
  const std::string path = folders_.FullPath(stored);
  if (path.empty()) {
    const std::string label = FileNameOf(stored).substr(0, kMaxPicturePath) + " (missing)";
    return SelectRow(listView_, Append({label, "", stored, kMissingImage}));
  }
  Select(path);
  entries_[static_cast<std::size_t>(FindPath(path))].Stored = stored;
}

void CPictureList::Select(const std::string& path) {
  const std::string canonical = CanonicalPath(path);
  const int row = FindPath(canonical);
  SelectRow(listView_,
            row >= 0 ? row : Append({FileNameOf(canonical), canonical, std::nullopt, std::nullopt}));
}

int CPictureList::Append(Entry entry) {
  entries_.push_back(std::move(entry));
  const int row = static_cast<int>(entries_.size()) - 1;
  InsertListRow(listView_, row, entries_.back().Label.c_str(), I_IMAGECALLBACK);
  return row;
}

int CPictureList::FindPath(const std::string& path) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return !entry.Path.empty() && IsSameName(entry.Path, path);
  });
  return found == entries_.end() ? -1 : static_cast<int>(found - entries_.begin());
}

const CPictureList::Entry& CPictureList::ChosenEntry() const {
  // The focus stays where the selection was when a click beside the pictures has taken it away.
  const int row = ListView_GetNextItem(listView_, -1, LVNI_FOCUSED);
  return entries_[static_cast<std::size_t>(std::max(row, 0))];
}

std::string CPictureList::Chosen() const {
  const Entry& entry = ChosenEntry();
  return entry.Stored ? *entry.Stored : folders_.StoredName(entry.Path);
}

void CPictureList::ShowChosenFile() const {
  const Entry& entry = ChosenEntry();
  SetWindowTextA(
      fileField_,
      (entry.Path.empty() ? PictureLabel(folders_, entry.Stored.value_or("")) : entry.Path).c_str());
}

LRESULT CPictureList::OnNotify(const NMHDR& header) {
  switch (header.code) {
    case LVN_GETDISPINFOA: {
      LVITEMA& item = reinterpret_cast<NMLVDISPINFOA&>(const_cast<NMHDR&>(header)).item;
      if ((item.mask & LVIF_IMAGE) && static_cast<std::size_t>(item.iItem) < entries_.size())
        item.iImage = ThumbnailOf(entries_[static_cast<std::size_t>(item.iItem)]);
      return 0;
    }
    case LVN_ITEMCHANGED:
      if (reinterpret_cast<const NMLISTVIEW&>(header).uNewState & LVIS_FOCUSED) ShowChosenFile();
      return 0;
    case NM_CLICK:
    case NM_RCLICK:
      // There is always a choice: a click beside the pictures does not take it away.
      if (SelectedRow(listView_) < 0)
        SelectRow(listView_, std::max(ListView_GetNextItem(listView_, -1, LVNI_FOCUSED), 0));
      return 0;
    default:
      return 0;
  }
}

int CPictureList::ThumbnailOf(Entry& entry) {
  if (!entry.Thumbnail) {
    const WaitCursor cursor;
    const UniqueIcon icon = LoadThumbnail(entry.Path, kLargeThumbnailSize);
    entry.Thumbnail = icon ? AddIcon(thumbnails_.Get(), icon) : kMissingImage;
  }
  return *entry.Thumbnail;
}
