#include "editor/pictures.h"

#include <array>

#include "editor/thumbnail.h"
#include "support/picture_machine.h"

namespace {

constexpr COLORREF kGround = RGB(0, 255, 0);
constexpr int kSize = 48;

using Pictures = PictureMachineTest;
using Paths = std::vector<std::string>;

TEST_F(Pictures, AreStoredByTheNameThatFindsThem) {
  const struct {
    const char *file, *stored;  // null stores the full path
  } cases[] = {
      {"Default\\A.bmp", "A.bmp"}, {"User\\B.bmp", "B.bmp"},
      {"User\\A.bmp", nullptr},  // hidden by the default
      {"Icons\\C.ico", nullptr},   {"Elsewhere\\D.bmp", nullptr},
  };
  for (const auto& each : cases)
    AddPicture(each.file);
  const PictureFolders folders;
  for (const auto& each : cases) {
    const std::string path = PicturePath(each.file);
    EXPECT_EQ(folders.StoredName(path), each.stored ? each.stored : path);
    EXPECT_EQ(folders.FullPath(folders.StoredName(path)), path);
  }
  EXPECT_EQ(folders.StoredName(PicturePath("user\\..\\USER\\b.bmp")), "B.bmp");
  EXPECT_EQ(folders.FullPath("c.ICO"), PicturePath("Icons\\C.ico"));
  for (const std::string& missing : {std::string(), std::string("Gone.bmp"), std::string("*"),
                                     PicturePath("Default"), PicturePath("A.bmp"), std::string(300, 'x')})
    EXPECT_EQ(folders.FullPath(missing), "") << missing;
}

TEST_F(Pictures, AreListedByNameAndNotWithoutEnd) {
  for (const char* name : {"Default\\b.bmp", "Default\\Notes.txt", "Default\\Old.bmpx", "User\\A.BMP",
                           "Icons\\C.ico", "Icons\\D.bmp"})
    AddPicture(name);
  const std::string a = PicturePath("User\\A.BMP");
  const std::string b = PicturePath("Default\\b.bmp");
  EXPECT_EQ(PictureFolders().Bitmaps(), (Paths{a, b}));
  EXPECT_EQ(PictureFolders().IconsAndBitmaps(),
            (Paths{a, b, PicturePath("Icons\\C.ico"), PicturePath("Icons\\D.bmp")}));
  EXPECT_EQ(PictureFolders(PicturePath("User"), PicturePath("USER\\"), "").IconsAndBitmaps(), Paths{a});
  EXPECT_EQ(PictureFolders("", "", "").IconsAndBitmaps(), Paths{});
  for (std::size_t i = 0; i < kMaxPictures; ++i)
    AddPicture("User\\" + std::to_string(i) + ".bmp", "");
  EXPECT_EQ(PictureFolders().Bitmaps().size(), kMaxPictures);
}

// The pixels of a thumbnail as it looks on kGround, row by row.
std::vector<COLORREF> Draw(const UniqueIcon& icon) {
  std::vector<COLORREF> pixels;
  const HDC screen = GetDC(nullptr);
  const HDC memory = CreateCompatibleDC(screen);
  const UniqueBitmap bitmap(CreateCompatibleBitmap(screen, kSize, kSize));
  const HGDIOBJ previous = SelectObject(memory, bitmap.Get());
  const UniqueBrush ground(CreateSolidBrush(kGround));
  const RECT all{0, 0, kSize, kSize};
  FillRect(memory, &all, ground.Get());
  DrawIconEx(memory, 0, 0, icon.Get(), kSize, kSize, 0, nullptr, DI_NORMAL);
  for (int i = 0; i < kSize * kSize; ++i)
    pixels.push_back(GetPixel(memory, i % kSize, i / kSize));
  SelectObject(memory, previous);
  DeleteDC(memory);
  ReleaseDC(nullptr, screen);
  return pixels;
}

TEST_F(Pictures, KeepTheirAspectAndShowNoMagenta) {
  const struct {
    int width, height, magentaColumns;
    std::array<int, 4> bounds;  // of what is seen: left, top, right, bottom
  } cases[] = {
      {16, 20, 0, {16, 14, 32, 34}},  {16, 20, 8, {24, 14, 32, 34}}, {400, 100, 0, {0, 18, 48, 30}},
      {100, 400, 0, {18, 0, 30, 48}}, {2000, 1, 0, {0, 23, 48, 24}}, {96, 96, 49, {24, 0, 48, 48}},
  };
  for (const auto& each : cases) {
    const std::string path = AddPicture("A.bmp", BitmapBytes(each.width, each.height, each.magentaColumns));
    std::array<int, 4> bounds{kSize, kSize, 0, 0};
    int index = 0;
    for (const COLORREF pixel : Draw(LoadThumbnail(path, kSize))) {
      const int x = index % kSize, y = index++ / kSize;
      EXPECT_EQ(GetBValue(pixel), 0);
      if (pixel == kGround) continue;
      bounds = {std::min(bounds[0], x), std::min(bounds[1], y), std::max(bounds[2], x + 1),
                std::max(bounds[3], y + 1)};
    }
    EXPECT_EQ(bounds, each.bounds) << each.width << " by " << each.height;
  }
}

TEST_F(Pictures, ThatAreDamagedOrAbsurdHaveNoThumbnail) {
  const std::string whole = BitmapBytes(64, 64);
  std::string manyColours = whole;
  manyColours[49] = 1;  // the number of colours of its palette: 16 million
  const struct {
    const char* what;
    std::string bytes;
  } cases[] = {
      {"empty", ""},
      {"the mark alone", "BM"},
      {"half of its pixels missing", whole.substr(0, whole.size() / 2)},
      {"a palette beyond its end", manyColours},
      {"enormous", BitmapHeader(100000, 100000)},
      {"enormous, compressed", BitmapHeader(100000, 100000, BI_RLE8, 8) + std::string(16, '\0')},
      {"width overflows", BitmapHeader(0x7FFFFFFF, 0x7FFFFFFF)},
      {"height is the least number", BitmapHeader(1, LONG_MIN)},
      {"no width", BitmapHeader(0, 10)},
      {"icon of rubbish", std::string("\0\0\1\0\1\0", 6) + std::string(60, '\xFF')},
      {"text", std::string(500, 'a')},
  };
  for (const auto& each : cases)
    EXPECT_FALSE(LoadThumbnail(AddPicture("A.bmp", each.bytes), kSize)) << each.what;
  EXPECT_FALSE(LoadThumbnail(PicturePath("Gone.bmp"), kSize));
}

}  // namespace
