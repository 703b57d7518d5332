// Small images of picture files.
//
// Every thumbnail is an icon, so that lists and static controls show it on their own background. It keeps the
// picture's aspect, and a bitmap's magenta, RGB(255, 0, 255), is transparent, as the shell shows it.
#pragma once

#include <windows.h>

#include <string>

#include "controls/window_handles.h"

// Pictures in dialogs, and in lists to choose from.
inline constexpr int kThumbnailSize = 32;
inline constexpr int kLargeThumbnailSize = 48;

// The icon or bitmap in a file, told apart by what the file holds, in a square of `size` pixels. A smaller
// bitmap stands in the middle as it is. None when the file cannot be read, is damaged, or is so large that it
// is no picture for the shell: more than 16 MiB, or more than 4 million pixels.
UniqueIcon LoadThumbnail(const std::string& path, int size);

// What stands for no picture: an empty frame; and for one that cannot be shown: the same, crossed out.
UniqueIcon EmptyThumbnail(int size);
UniqueIcon MissingThumbnail(int size);
