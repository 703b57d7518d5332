// What can be seen of a window: where its controls stand, columns, pictures of the program, tooltips.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <sstream>
#include <string>

#include "controls/window_handles.h"

// The visible controls in their order, each with its place in the client area, and the height of that:
// "1:312,269 2:399,269 303".
inline std::string LayoutOf(HWND dialog) {
  std::ostringstream layout;
  for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
    if (!IsWindowVisible(child)) continue;
    RECT place;
    GetWindowRect(child, &place);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 1);
    layout << GetDlgCtrlID(child) << ":" << place.left << "," << place.top << " ";
  }
  RECT client;
  GetClientRect(dialog, &client);
  layout << client.bottom;
  return layout.str();
}

// The columns of a list view with their widths: "Name 180, Description 180, ".
inline std::string ColumnsOf(HWND list) {
  std::ostringstream columns;
  for (int i = 0; i < Header_GetItemCount(ListView_GetHeader(list)); ++i) {
    char title[64] = "";
    LVCOLUMNA column{};
    column.mask = LVCF_TEXT;
    column.pszText = title;
    column.cchTextMax = sizeof(title);
    SendMessageA(list, LVM_GETCOLUMNA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    columns << title << " " << ListView_GetColumnWidth(list, i) << ", ";
  }
  return columns.str();
}

// A picture in memory, black at first.
struct Canvas {
  Canvas(int width, int height)
      : Width(width),
        Height(height),
        Bitmap(CreateCompatibleBitmap(WindowDc(nullptr).Get(), width, height)),
        Selected(Dc.Get(), Bitmap.Get()) {}

  const int Width, Height;
  const UniqueMemoryDc Dc{CreateCompatibleDC(nullptr)};
  const UniqueBitmap Bitmap;
  const SelectedObject Selected;
};

// Whether a bitmap of the program stands at the place, whatever shows where the bitmap is magenta.
inline bool ShowsBitmap(const Canvas& canvas, int left, int top, UINT bitmapId) {
  const UniqueBitmap bitmap(static_cast<HBITMAP>(LoadImageA(
      GetModuleHandleA(nullptr), MAKEINTRESOURCEA(bitmapId), IMAGE_BITMAP, 0, 0, LR_LOADMAP3DCOLORS)));
  BITMAP size{};
  if (!GetObjectA(bitmap.Get(), sizeof(size), &size)) return false;
  const UniqueMemoryDc picture(CreateCompatibleDC(nullptr));
  const SelectedObject selected(picture.Get(), bitmap.Get());
  int differences = 0;
  for (int x = 0; x < size.bmWidth; ++x) {
    for (int y = 0; y < size.bmHeight; ++y) {
      const COLORREF expected = GetPixel(picture.Get(), x, y);
      differences += expected != RGB(255, 0, 255) && expected != GetPixel(canvas.Dc.Get(), left + x, top + y);
    }
  }
  return differences == 0;
}

// Draws the picture of a list view's row, LVSIL_SMALL or LVSIL_NORMAL.
inline void DrawRowPicture(const Canvas& canvas, HWND list, int row, int size = LVSIL_SMALL) {
  LVITEMA item{};
  item.mask = LVIF_IMAGE;
  item.iItem = row;
  SendMessageA(list, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
  ImageList_Draw(ListView_GetImageList(list, size), item.iImage, canvas.Dc.Get(), 0, 0, ILD_NORMAL);
}

// The tooltip of a control, "" where there is none.
inline std::string TooltipOf(HWND dialog, int id) {
  char text[256] = "";
  TTTOOLINFOA tool{};
  tool.cbSize = sizeof(tool);
  tool.hwnd = dialog;
  tool.uFlags = TTF_IDISHWND;
  tool.uId = reinterpret_cast<UINT_PTR>(GetDlgItem(dialog, id));
  tool.lpszText = text;
  for (HWND window = nullptr; (window = FindWindowExA(nullptr, window, TOOLTIPS_CLASSA, nullptr));) {
    if (GetWindow(window, GW_OWNER) == dialog)
      SendMessageA(window, TTM_GETTOOLINFOA, 0, reinterpret_cast<LPARAM>(&tool));
  }
  return text;
}
