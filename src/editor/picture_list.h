// A list view from which the user chooses a picture by its thumbnail.
//
// The list begins with "(no picture)". It opens on the picture that is stored now, which it offers wherever
// the file lies, and by its name even where this machine has no such file. A thumbnail is made when it is
// first seen.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "controls/window_handles.h"
#include "editor/pictures.h"

class CPictureList {
 public:
  explicit CPictureList(const PictureFolders& folders) : folders_(folders) {}

  // Fills a list view with the pictures at `paths`, as PictureFolders lists them, and selects what is stored
  // now. The text of `fileField` says from then on where the chosen picture lies. The list view has the
  // styles LVS_ICON, LVS_SINGLESEL and LVS_SHAREIMAGELISTS; it must not outlive this.
  void Fill(HWND listView, HWND fileField, const std::vector<std::string>& paths, const std::string& stored);
  // Selects a file, which is added to the list where it is not in it.
  void Select(const std::string& path);

  // What a scheme stores for the chosen picture; "" for no picture. What was stored when the list was filled
  // comes back unchanged.
  std::string Chosen() const;

  // The dialog hands on the list view's notifications. The result goes back to the control.
  LRESULT OnNotify(const NMHDR& header);

 private:
  struct Entry {
    std::string Label;
    std::string Path;                   // "" for no picture or none that is on this machine
    std::optional<std::string> Stored;  // what a scheme holds for it, where that is known
    std::optional<int> Thumbnail;       // in the image list, once it was made
  };

  int Append(Entry entry);
  void SelectStored(const std::string& stored);
  int FindPath(const std::string& path) const;
  const Entry& ChosenEntry() const;
  void ShowChosenFile() const;
  int ThumbnailOf(Entry& entry);

  const PictureFolders& folders_;
  HWND listView_ = nullptr;
  HWND fileField_ = nullptr;
  UniqueImageList thumbnails_;
  std::vector<Entry> entries_;  // one a row
};

// How a dialog names a stored picture to the user.
std::string PictureLabel(const PictureFolders& folders, const std::string& stored);
