// The program's own icons and bitmaps. A bitmap stands on magenta, which is to be seen through.
#pragma once

#include <windows.h>

#include <span>

#include "controls/window_handles.h"

inline constexpr COLORREF kPictureGround = RGB(255, 0, 255);

// An icon resource, drawn `size` by `size` pixels (LoadImageA). Empty for a number without a resource.
UniqueIcon LoadIconOfSize(UINT icon, int size);

// An image list of bitmap resources, in their order, in their natural size (LoadImageA with
// LR_LOADMAP3DCOLORS); they are all of one size. What is on kPictureGround is transparent. A number without a
// resource is left out; empty when there is none at all.
UniqueImageList LoadBitmapImages(std::span<const UINT> bitmaps);
