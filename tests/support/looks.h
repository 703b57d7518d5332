// What can be seen of a window: pictures of the program in it, and tooltips.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "controls/window_handles.h"

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
