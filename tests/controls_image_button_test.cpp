#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "controls/dialog.h"
#include "controls/image_button.h"
#include "resources/picture_ids.h"
#include "resources/resource_ids.h"
#include "support/dialog_script.h"
#include "support/looks.h"

namespace {

constexpr int kWidth = 110, kHeight = 120;
constexpr int kOrdinary = 900, kImage = 901, kMenu = 902, kPicture = 903;
constexpr LPARAM kInside = MAKELPARAM(9, 9);

// A dialog with an ordinary button and three image buttons.
class ImageButton : public testing::Test, protected CDialog {
 protected:
  ImageButton() : CDialog(IDD_PROGRESS) {}

  CImageButton image_, menu_, picture_;
  std::vector<int> commands_;     // with BN_CLICKED or from a menu
  std::vector<WPARAM> menuKeys_;  // pressed once the menu is open

 private:
  bool OnInitDialog() override {
    SetWindowTextA(Window(), "Host");
    const char* texts[] = {"&Ordinary", "&Image", "&Menu", ""};
    for (int i = 0; i < 4; ++i)
      CreateWindowA("BUTTON", texts[i], WS_CHILD | WS_VISIBLE | WS_TABSTOP, 80 * i, 0, kWidth, kHeight,
                    Window(), reinterpret_cast<HMENU>(INT_PTR{kOrdinary + i}), nullptr, nullptr);
    image_.Attach(Item(kImage));
    menu_.Attach(Item(kMenu));
    menu_.SetIcon(IDI_HELP, 16);
    menu_.SetMenu(IDM_HELP_MENU);
    picture_.Attach(Item(kPicture));
    picture_.SetBitmaps(IDB_PEEDY, IDB_PEEDY_SELECTED);
    picture_.SetTooltip("Selects Peedy");
    FocusItem(kOrdinary);
    return false;
  }
  void OnCommand(int id, int code) override {
    if (code == BN_CLICKED) commands_.push_back(id);
  }
  void OnOK() override { commands_.push_back(IDOK); }
  bool OnMessage(UINT message, WPARAM, LPARAM, LRESULT&) override {
    if (message == WM_INITMENUPOPUP) std::for_each(menuKeys_.begin(), menuKeys_.end(), &PressKey);
    return message == WM_INITMENUPOPUP;
  }
};

TEST_F(ImageButton, ClicksDropsItsMenuAndIsSelectedLikeAnyButton) {
  const struct {
    int focused;
    UINT message;  // posted to the button that has the focus
    WPARAM key;
    std::vector<WPARAM> menuKeys;
    std::vector<int> commands;
  } cases[] = {
      {kImage, WM_LBUTTONDOWN, 0, {}, {kImage}},
      {kImage, WM_LBUTTONDBLCLK, 0, {}, {kImage}},  // the second of two quick clicks
      {kImage, WM_KEYDOWN, VK_SPACE, {}, {kImage}},
      {kImage, WM_KEYDOWN, VK_RETURN, {}, {kImage}},
      {kOrdinary, WM_SYSCHAR, 'i', {}, {kImage}},
      {kPicture, WM_KEYDOWN, VK_RETURN, {}, {IDOK}},  // a picture is chosen by Space
      // By keyboard the first command is selected at once.
      {kMenu, WM_KEYDOWN, VK_SPACE, {VK_RETURN}, {32771}},
      {kMenu, WM_KEYDOWN, VK_RETURN, {VK_DOWN, VK_RETURN}, {32772}},
      {kMenu, WM_KEYDOWN, VK_DOWN, {VK_RETURN}, {32771}},
      {kMenu, WM_KEYDOWN, VK_F4, {VK_RETURN}, {32771}},
      {kMenu, WM_SYSKEYDOWN, VK_DOWN, {VK_RETURN}, {32771}},
      {kMenu, WM_LBUTTONDOWN, 0, {VK_DOWN, VK_DOWN, VK_RETURN}, {32772}},
  };
  DialogScript script;
  script.Expect("Host", [&](HWND) {
    for (const auto& each : cases) {
      commands_.clear();
      menuKeys_ = each.menuKeys;
      FocusItem(each.focused);
      PostMessageA(GetFocus(), each.message, each.key, kInside);
      PostMessageA(GetFocus(), each.key ? WM_KEYUP : WM_LBUTTONUP, each.key, kInside);
      Pump();
      EXPECT_EQ(commands_, each.commands) << each.focused << ": " << each.message << ", " << each.key;
      EXPECT_FALSE(SendItem(each.focused, BM_GETSTATE) & BST_PUSHED);
    }
    EXPECT_EQ(ItemText(kPicture), "Selects Peedy") << "the tooltip is its name";
    picture_.SetSelected(true);
    EXPECT_TRUE(IsItemChecked(kPicture));
    CheckItem(kPicture, false);
    EXPECT_FALSE(IsItemChecked(kPicture));
    EndDialog(IDOK);
  });
  DoModal(nullptr);
}

// A pixel of what a button draws of itself.
COLORREF Drawn(HWND button, int x, int y, UINT state = 0) {
  const Canvas canvas(kWidth, kHeight);
  DRAWITEMSTRUCT item{};
  item.itemState = state;
  item.hwndItem = button;
  item.hDC = canvas.Dc.Get();
  SendMessageA(GetParent(button), WM_DRAWITEM, 0, reinterpret_cast<LPARAM>(&item));
  return GetPixel(canvas.Dc.Get(), x, y);
}

// Its pictures are seen in the dialog of the helpers.
TEST_F(ImageButton, ShowsItsGroundTheFocusAndNewColours) {
  DialogScript script;
  script.Expect("Host", [&](HWND) {
    EXPECT_EQ(Drawn(Item(kPicture), 8, 30), GetSysColor(COLOR_BTNFACE)) << "the ground of a picture";
    picture_.SetTooltip("Selects another");
    EXPECT_EQ(TooltipOf(Window(), kPicture), "Selects another");

    static COLORREF face = RGB(1, 2, 3);
    image_.SetColour(CImageButton::kBackgroundColour, [] { return face; });
    UpdateWindow(Item(kImage));
    EXPECT_FALSE(GetUpdateRect(Item(kImage), nullptr, FALSE));
    face = RGB(9, 8, 7);
    SendMessageA(Window(), WM_SYSCOLORCHANGE, 0, 0);
    EXPECT_TRUE(GetUpdateRect(Item(kImage), nullptr, FALSE)) << "still shows the colour of before";
    EXPECT_EQ(Drawn(Item(kImage), 2, kHeight / 2), face);
    SendMessageA(Window(), WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS), 0);
    const auto dot = [this](int y) { return Drawn(Item(kImage), 3, y, ODS_FOCUS); };
    EXPECT_NE(dot(kHeight / 2), dot(kHeight / 2 + 1)) << "no dotted rectangle where the focus is";
    EndDialog(IDOK);
  });
  DoModal(nullptr);
}

}  // namespace
