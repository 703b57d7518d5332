#include "controls/program_pictures.h"

UniqueIcon LoadIconOfSize(UINT icon, int size) {
  return UniqueIcon(static_cast<HICON>(LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(icon),
                                                  IMAGE_ICON, size, size, LR_DEFAULTCOLOR)));
}

UniqueImageList LoadBitmapImages(std::span<const UINT> bitmaps) {
  UniqueImageList images;
  for (const UINT id : bitmaps) {
    const UniqueBitmap bitmap(static_cast<HBITMAP>(
        LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(id), IMAGE_BITMAP, 0, 0, LR_LOADMAP3DCOLORS)));
    BITMAP size{};
    if (!GetObjectA(bitmap.Get(), sizeof(size), &size)) continue;
    if (!images)
      images.Reset(ImageList_Create(size.bmWidth, size.bmHeight, ILC_COLOR24 | ILC_MASK,
                                    static_cast<int>(bitmaps.size()), 0));
    ImageList_AddMasked(images.Get(), bitmap.Get(), kPictureGround);
  }
  return images;
}
