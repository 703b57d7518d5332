#include "editor/pictures.h"

#include <array>
#include <cstring>

#include "editor/thumbnail.h"
#include "support/picture_machine.h"

namespace {

constexpr int kSize = 48;

using Pictures = PictureMachineTest;
using Paths = std::vector<std::string>;

TEST_F(Pictures, AreListedAndStoredByTheNameThatFindsThem) {
  const std::string a = AddPicture("User\\A.BMP"), b = AddPicture("Default\\b.bmp");
  const std::string c = AddPicture("Icons\\C.ico"), d = AddPicture("Icons\\D.bmp");
  const std::string hidden = AddPicture("User\\b.bmp"), elsewhere = AddPicture("Elsewhere\\E.bmp");
  AddPicture("Default\\Old.bmpx");
  const PictureFolders folders = Folders();
  for (const auto& [path, stored] :
       {std::pair{a, std::string("A.BMP")}, {b, "b.bmp"}, {c, c}, {hidden, hidden}, {elsewhere, elsewhere}}) {
    EXPECT_EQ(folders.StoredName(path), stored);
    EXPECT_EQ(folders.FullPath(stored), path);
  }
  EXPECT_EQ(folders.StoredName(PicturePath("User") + "\\..\\USER\\a.bmp"), "A.BMP");
  EXPECT_EQ(folders.FullPath("c.ICO"), c) << "as earlier versions stored it";
  for (const std::string& none :
       {std::string(), std::string("*"), PicturePath("User"), std::string(300, 'x')})
    EXPECT_EQ(folders.FullPath(none), "") << none;
  const Paths all = folders.IconsAndBitmaps();
  EXPECT_EQ(all.size(), 5U);
  EXPECT_EQ((Paths{all[0], all[3], all[4]}), (Paths{a, c, d}));
  EXPECT_EQ(folders.Bitmaps().size(), 3U);
  EXPECT_EQ(PictureFolders(PicturePath("User"), PicturePath("USER") + "\\", "").Bitmaps().size(), 2U);
  EXPECT_TRUE(PictureFolders("", "", "").IconsAndBitmaps().empty());
  for (std::size_t i = 0; i < kMaxPictures; ++i)
    AddPicture("User\\" + std::to_string(i) + ".bmp", "");
  EXPECT_EQ(folders.Bitmaps().size(), kMaxPictures);
}

TEST_F(Pictures, KeepTheirAspectAndShowNoMagenta) {
  const struct {
    int width, height, magentaColumns;
    std::array<int, 4> bounds;  // of what is seen: left, top, right, bottom
  } cases[] = {{16, 20, 8, {24, 14, 32, 34}},
               {400, 100, 0, {0, 18, 48, 30}},
               {2000, 1, 0, {0, 23, 48, 24}},
               {96, 96, 49, {24, 0, 48, 48}}};
  for (const auto& each : cases) {
    const std::string path = AddPicture("A.bmp", BitmapBytes(each.width, each.height, each.magentaColumns));
    ICONINFO icon{};
    ASSERT_TRUE(GetIconInfo(LoadThumbnail(path, kSize).Get(), &icon));
    const UniqueBitmap colours(icon.hbmColor), mask(icon.hbmMask);
    std::array<std::uint32_t, kSize * kSize> pixels{};
    GetBitmapBits(colours.Get(), sizeof(pixels), pixels.data());
    std::array<int, 4> bounds{kSize, kSize, 0, 0};
    for (int i = 0; i < kSize * kSize; ++i) {
      const int x = i % kSize, y = i / kSize;
      EXPECT_EQ(pixels[i] & 0xFF, 0U) << "magenta";
      if (pixels[i])
        bounds = {std::min(bounds[0], x), std::min(bounds[1], y), std::max(bounds[2], x + 1),
                  std::max(bounds[3], y + 1)};
    }
    EXPECT_EQ(bounds, each.bounds) << each.width << " by " << each.height;
  }
}

TEST_F(Pictures, ThatAreDamagedOrAbsurdHaveNoThumbnail) {
  // Offsets in the header, and 32 bits to put there.
  constexpr std::size_t kWidth = 18, kHeight = 22, kBitsAndCompression = 28, kColours = 46;
  const struct {
    const char* what;
    std::vector<std::pair<std::size_t, std::uint32_t>> damage;
  } cases[] = {
      {"a palette beyond its end", {{kColours, 0x01000000}}},
      {"enormous", {{kWidth, 100000}, {kHeight, 100000}}},
      {"enormous, compressed", {{kWidth, 100000}, {kHeight, 100000}, {kBitsAndCompression, 0x10008}}},
      {"width overflows", {{kWidth, 0x7FFFFFFF}, {kHeight, 0x7FFFFFFF}}},
      {"height is the least number", {{kWidth, 1}, {kHeight, 0x80000000}}},
      {"no width", {{kWidth, 0}}}};
  for (const auto& each : cases) {
    std::string bytes = BitmapBytes(64, 64);
    for (const auto& [offset, value] : each.damage)
      std::memcpy(&bytes[offset], &value, sizeof(value));
    EXPECT_FALSE(LoadThumbnail(AddPicture("A.bmp", bytes), kSize)) << each.what;
  }
  const std::string rubbishIcon = std::string("\0\0\1\0\1\0", 6) + std::string(60, '\xFF');
  for (const std::string& bytes : {std::string(), BitmapBytes(64, 64).substr(0, 8000), rubbishIcon})
    EXPECT_FALSE(LoadThumbnail(AddPicture("A.bmp", bytes), kSize)) << bytes.size();
}

}  // namespace
