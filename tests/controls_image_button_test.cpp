#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "controls/dialog.h"
#include "controls/image_button.h"
#include "resources/picture_ids.h"
#include "resources/resource_ids.h"
#include "support/dialog_script.h"

namespace {

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
      CreateWindowA("BUTTON", texts[i], WS_CHILD | WS_VISIBLE | WS_TABSTOP, 80 * i, 0, 80, 100, Window(),
                    reinterpret_cast<HMENU>(INT_PTR{kOrdinary + i}), nullptr, nullptr);
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
      {kImage, BM_CLICK, 0, {}, {kImage}},
      {kOrdinary, WM_SYSCHAR, 'i', {}, {kImage}},
      {kPicture, WM_LBUTTONDOWN, 0, {}, {kPicture}},
      {kPicture, WM_KEYDOWN, VK_RETURN, {}, {IDOK}},  // a picture is chosen by Space
      // By keyboard the first command is selected at once.
      {kMenu, WM_KEYDOWN, VK_SPACE, {VK_RETURN}, {32771}},
      {kMenu, WM_KEYDOWN, VK_RETURN, {VK_DOWN, VK_RETURN}, {32772}},
      {kMenu, WM_KEYDOWN, VK_DOWN, {VK_RETURN}, {32771}},
      {kMenu, WM_KEYDOWN, VK_F4, {VK_ESCAPE}, {}},
      {kMenu, WM_SYSKEYDOWN, VK_DOWN, {VK_RETURN}, {32771}},
      {kMenu, WM_LBUTTONDOWN, 0, {VK_DOWN, VK_DOWN, VK_RETURN}, {32772}},
      {kMenu, BM_CLICK, 0, {VK_DOWN, VK_RETURN}, {32771}},
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
    EXPECT_FALSE(picture_.IsSelected());
    EndDialog(IDOK);
  });
  DoModal(nullptr);
}

}  // namespace
