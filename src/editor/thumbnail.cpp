#include "editor/thumbnail.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {

constexpr DWORD kMaxFileSize = 16 * 1024 * 1024;
constexpr std::int64_t kMaxPixels = 4'000'000;

using Pixel = std::uint32_t;  // 0xAARRGGBB
constexpr Pixel kColour = 0x00FFFFFF;
constexpr Pixel kMagenta = 0x00FF00FF;
constexpr Pixel kOpaque = 0xFF000000;
constexpr Pixel kFrame = kOpaque | 0xA0A0A0;
constexpr Pixel kCross = kOpaque | 0xC00000;

struct Image {
  Image(int width, int height)
      : Width(width),
        Height(height),
        Pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}
  Pixel& At(int x, int y) {
    return Pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(Width) + x];
  }
  Pixel At(int x, int y) const { return const_cast<Image*>(this)->At(x, y); }

  int Width, Height;
  std::vector<Pixel> Pixels;  // rows from the top
};

enum class PictureKind { kNone, kIcon, kBitmap };

#pragma pack(push, 2)
struct BitmapStart {
  BITMAPFILEHEADER File;
  BITMAPINFOHEADER Info;
};
#pragma pack(pop)

// The oldest kind of header in the form of the later ones.
BITMAPINFOHEADER Modernised(const BITMAPINFOHEADER& info) {
  if (info.biSize != sizeof(BITMAPCOREHEADER)) return info;
  BITMAPCOREHEADER core;
  std::memcpy(&core, &info, sizeof(core));
  return {core.bcSize, core.bcWidth, core.bcHeight, core.bcPlanes, core.bcBitCount, BI_RGB, 0, 0, 0, 0, 0};
}

// Whether all that the header speaks of lies in the file: not every loader looks.
bool IsReasonableBitmap(const BitmapStart& start, DWORD fileSize) {
  constexpr DWORD kMaxColours = 256;
  const BITMAPINFOHEADER info = Modernised(start.Info);
  const std::int64_t width = info.biWidth;
  const std::int64_t height = std::abs(static_cast<std::int64_t>(info.biHeight));
  const auto headers = static_cast<std::int64_t>(sizeof(BITMAPFILEHEADER)) + info.biSize;
  const std::int64_t colours = info.biClrUsed || info.biBitCount > 8 ? info.biClrUsed : 1 << info.biBitCount;
  const std::int64_t pixelBytes = static_cast<std::int64_t>(fileSize) - start.File.bfOffBits;
  if (width <= 0 || height == 0 || width > kMaxPixels || height > kMaxPixels || width * height > kMaxPixels ||
      info.biBitCount > 32 || colours > kMaxColours || start.File.bfOffBits < headers ||
      headers + colours * static_cast<std::int64_t>(sizeof(RGBQUAD)) > fileSize)
    return false;
  switch (info.biCompression) {
    case BI_RGB:
    case BI_BITFIELDS:
      return (width * info.biBitCount + 31) / 32 * 4 * height <= pixelBytes;
    case BI_RLE4:
    case BI_RLE8:
      return info.biSizeImage <= pixelBytes;
    default:
      return false;
  }
}

// Looks at the head of a file before the system is let near the rest.
PictureKind KindOf(const std::string& path) {
  const UniqueFile file(
      CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  if (!file || GetFileType(file.Get()) != FILE_TYPE_DISK) return PictureKind::kNone;
  const DWORD size = GetFileSize(file.Get(), nullptr);  // INVALID_FILE_SIZE is too large as well
  BitmapStart start{};
  DWORD read = 0;
  if (size > kMaxFileSize || !ReadFile(file.Get(), &start, sizeof(start), &read, nullptr) ||
      read < sizeof(start))
    return PictureKind::kNone;
  constexpr WORD kBitmapMark = 0x4D42;  // "BM"
  if (start.File.bfType == kBitmapMark)
    return IsReasonableBitmap(start, size) ? PictureKind::kBitmap : PictureKind::kNone;
  // An icon file begins with a zero and its type, 1.
  const bool icon = start.File.bfType == 0 && LOWORD(start.File.bfSize) == 1;
  return icon ? PictureKind::kIcon : PictureKind::kNone;
}

// Empty when the system cannot make sense of the file.
Image LoadBitmapFile(const std::string& path) {
  const UniqueBitmap bitmap(static_cast<HBITMAP>(
      LoadImageA(nullptr, path.c_str(), IMAGE_BITMAP, 0, 0, LR_LOADFROMFILE | LR_CREATEDIBSECTION)));
  BITMAP description{};
  if (!bitmap || !GetObjectA(bitmap.Get(), sizeof(description), &description) ||
      static_cast<std::int64_t>(description.bmWidth) * description.bmHeight > kMaxPixels)
    return {0, 0};
  Image image(description.bmWidth, description.bmHeight);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = image.Width;
  info.bmiHeader.biHeight = -image.Height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  const WindowDc screen(nullptr);
  const int rows = GetDIBits(screen.Get(), bitmap.Get(), 0, static_cast<UINT>(image.Height),
                             image.Pixels.data(), &info, DIB_RGB_COLORS);
  if (rows != image.Height) return {0, 0};
  for (Pixel& pixel : image.Pixels)
    pixel = (pixel & kColour) == kMagenta ? 0 : pixel | kOpaque;
  return image;
}

// The mean of an area, in which transparent pixels have no colour and make the result fainter.
Pixel MeanOf(const Image& image, int left, int top, int right, int bottom) {
  std::uint64_t red = 0, green = 0, blue = 0, opaque = 0;
  for (int y = top; y < bottom; ++y) {
    for (int x = left; x < right; ++x) {
      const Pixel pixel = image.At(x, y);
      if (!pixel) continue;
      ++opaque;
      red += pixel >> 16 & 0xFF;
      green += pixel >> 8 & 0xFF;
      blue += pixel & 0xFF;
    }
  }
  if (!opaque) return 0;
  const std::uint64_t area =
      static_cast<std::uint64_t>(right - left) * static_cast<std::uint64_t>(bottom - top);
  return static_cast<Pixel>(255 * opaque / area << 24 | red / opaque << 16 | green / opaque << 8 |
                            blue / opaque);
}

// In the middle of a square, made smaller if it has to be, never larger.
Image FitIntoSquare(const Image& image, int size) {
  const int longer = std::max({image.Width, image.Height, size});
  const int width = std::max(1, image.Width * size / longer);
  const int height = std::max(1, image.Height * size / longer);
  const int left = (size - width) / 2;
  const int top = (size - height) / 2;
  Image square(size, size);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int sourceX = x * image.Width / width;
      const int sourceY = y * image.Height / height;
      square.At(left + x, top + y) =
          MeanOf(image, sourceX, sourceY, (x + 1) * image.Width / width, (y + 1) * image.Height / height);
    }
  }
  return square;
}

UniqueIcon MakeIcon(const Image& image) {
  // The mask serves where icons are drawn without their alpha channel. Its rows are of whole words.
  const int maskRowBytes = (image.Width + 15) / 16 * 2;
  std::vector<std::uint8_t> mask(static_cast<std::size_t>(maskRowBytes) * image.Height);
  for (int y = 0; y < image.Height; ++y)
    for (int x = 0; x < image.Width; ++x)
      if (!(image.At(x, y) & kOpaque)) mask[y * maskRowBytes + x / 8] |= 0x80 >> x % 8;
  const UniqueBitmap colourBitmap(CreateBitmap(image.Width, image.Height, 1, 32, image.Pixels.data()));
  const UniqueBitmap maskBitmap(CreateBitmap(image.Width, image.Height, 1, 1, mask.data()));
  ICONINFO info{};
  info.fIcon = TRUE;
  info.hbmColor = colourBitmap.Get();
  info.hbmMask = maskBitmap.Get();
  return UniqueIcon(CreateIconIndirect(&info));
}

Image Frame(int size) {
  Image image(size, size);
  for (int i = 0; i < size; ++i)
    image.At(i, 0) = image.At(i, size - 1) = image.At(0, i) = image.At(size - 1, i) = kFrame;
  return image;
}

}  // namespace

UniqueIcon LoadThumbnail(const std::string& path, int size) {
  switch (KindOf(path)) {
    case PictureKind::kIcon:
      return UniqueIcon(
          static_cast<HICON>(LoadImageA(nullptr, path.c_str(), IMAGE_ICON, size, size, LR_LOADFROMFILE)));
    case PictureKind::kBitmap: {
      const Image image = LoadBitmapFile(path);
      return image.Pixels.empty() ? UniqueIcon() : MakeIcon(FitIntoSquare(image, size));
    }
    case PictureKind::kNone:
      break;
  }
  return {};
}

UniqueIcon EmptyThumbnail(int size) { return MakeIcon(Frame(size)); }

UniqueIcon MissingThumbnail(int size) {
  Image image = Frame(size);
  const int margin = size / 4;
  for (int i = margin; i < size - margin; ++i) {
    for (const int x : {i, i + 1}) {
      image.At(x, i) = kCross;
      image.At(size - 1 - x, i) = kCross;
    }
  }
  return MakeIcon(image);
}
