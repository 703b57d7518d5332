// Owners of the handles of pictures and drawing. Shared handles (stock objects, LR_SHARED icons) have no
// owner and stay raw.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "base/unique_handle.h"

using UniqueIcon = UniqueHandle<HICON, &DestroyIcon>;
using UniqueBitmap = UniqueHandle<HBITMAP, &DeleteObject>;
using UniqueBrush = UniqueHandle<HBRUSH, &DeleteObject>;
using UniqueFont = UniqueHandle<HFONT, &DeleteObject>;
using UniqueImageList = UniqueHandle<HIMAGELIST, &ImageList_Destroy>;
using UniqueMenu = UniqueHandle<HMENU, &DestroyMenu>;
using UniqueMemoryDc = UniqueHandle<HDC, &DeleteDC>;

// The device context of a window, or of the screen for null (GetDC).
class WindowDc {
 public:
  explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
  ~WindowDc() { ReleaseDC(window_, dc_); }
  WindowDc(const WindowDc&) = delete;
  WindowDc& operator=(const WindowDc&) = delete;
  HDC Get() const { return dc_; }

 private:
  const HWND window_;
  const HDC dc_;
};

// Selects an object into a device context for as long as it stands (SelectObject).
class SelectedObject {
 public:
  SelectedObject(HDC dc, HGDIOBJ object) : dc_(dc), before_(SelectObject(dc, object)) {}
  ~SelectedObject() { SelectObject(dc_, before_); }
  SelectedObject(const SelectedObject&) = delete;
  SelectedObject& operator=(const SelectedObject&) = delete;

 private:
  const HDC dc_;
  const HGDIOBJ before_;
};
