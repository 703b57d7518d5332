#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <vector>

#include "controls/dialog.h"
#include "controls/image_button.h"
#include "controls/window_text.h"
#include "resources/picture_ids.h"
#include "resources/resource_ids.h"
#include "support/dialog_script.h"

namespace {

constexpr int kOrdinary = 900, kImage = 901, kMenu = 902, kPicture = 903;
constexpr int kWidth = 80, kHeight = 100;
constexpr COLORREF kMagenta = RGB(255, 0, 255);
constexpr LPARAM kAltDown = 1 << 29;

void PressMouse(HWND window, UINT down = WM_LBUTTONDOWN) {
  PostMessageA(window, down, MK_LBUTTON, MAKELPARAM(9, 9));
  PostMessageA(window, WM_LBUTTONUP, 0, MAKELPARAM(9, 9));
}

std::vector<COLORREF> Seen(HWND button) {
  RedrawWindow(button, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  const HDC dc = GetDC(button);
  std::vector<COLORREF> pixels;
  for (int i = 0; i < kWidth * kHeight; ++i)
    pixels.push_back(GetPixel(dc, i % kWidth, i / kWidth));
  ReleaseDC(button, dc);
  return pixels;
}

// A dialog with an ordinary button and three image buttons.
class ImageButton : public testing::Test, protected CDialog {
 protected:
  ImageButton() : CDialog(IDD_PROGRESS) {}

  // Does `action` while the dialog is shown.
  void Run(const std::function<void()>& action) {
    DialogScript script;
    script.Expect("Host", [&](HWND) { action(), EndDialog(IDOK); });
    DoModal(nullptr);
  }

  CImageButton image_, menu_, picture_;
  std::vector<int> commands_;     // with BN_CLICKED or from a menu
  std::vector<WPARAM> menuKeys_;  // pressed once the menu is open

 private:
  bool OnInitDialog() override {
    SetWindowTextA(Window(), "Host");
    const char* texts[] = {"&Ordinary", "&Image", "&Menu", ""};
    for (int i = 0; i < 4; ++i)
      CreateWindowA("BUTTON", texts[i], WS_CHILD | WS_VISIBLE | WS_TABSTOP, kWidth * i, 0, kWidth, kHeight,
                    Window(), reinterpret_cast<HMENU>(INT_PTR{kOrdinary + i}), nullptr, nullptr);
    image_.Attach(Item(kImage));
    menu_.Attach(Item(kMenu));
    menu_.SetIcon(IDI_HELP, 16);
    menu_.SetMenu(IDM_HELP_MENU);
    picture_.Attach(Item(kPicture));
    picture_.SetBitmaps(IDB_PEEDY, IDB_PEEDY_SELECTED, kMagenta);
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

TEST_F(ImageButton, ClicksAndDropsItsMenuByKeyboardAndMouse) {
  Run([this] {
    const HWND ordinary = Item(kOrdinary), image = Item(kImage), menu = Item(kMenu);
    const auto key = [](WPARAM code) { return [code] { PressKey(code); }; };
    const auto click = [](HWND button) { return [button] { SendMessageA(button, BM_CLICK, 0, 0); }; };
    const auto mouse = [&] { PressMouse(image); };
    const auto doubleClick = [&] { PressMouse(image), PressMouse(image, WM_LBUTTONDBLCLK); };
    const auto mnemonic = [&] { PostMessageA(ordinary, WM_SYSCHAR, 'i', kAltDown); };
    const auto menuMouse = [&] { PressMouse(menu); };
    const auto altDown = [&] { PostMessageA(menu, WM_SYSKEYDOWN, VK_DOWN, kAltDown); };
    const struct {
      const char* name;
      int focused;
      std::function<void()> act;
      std::vector<WPARAM> menuKeys;
      std::vector<int> commands;
    } cases[] = {
        {"mouse", kImage, mouse, {}, {kImage}},
        {"two quick clicks", kImage, doubleClick, {}, {kImage, kImage}},
        {"space", kImage, key(VK_SPACE), {}, {kImage}},
        {"enter", kImage, key(VK_RETURN), {}, {kImage}},
        {"mnemonic", kOrdinary, mnemonic, {}, {kImage}},
        {"BM_CLICK", kOrdinary, click(image), {}, {kImage}},
        {"a picture takes the mouse", kOrdinary, click(Item(kPicture)), {}, {kPicture}},
        {"but not Enter, which confirms", kPicture, key(VK_RETURN), {}, {IDOK}},
        // By keyboard the first command is selected at once.
        {"menu, space", kMenu, key(VK_SPACE), {VK_RETURN}, {32771}},
        {"menu, enter", kMenu, key(VK_RETURN), {VK_DOWN, VK_RETURN}, {32772}},
        {"menu, down", kMenu, key(VK_DOWN), {VK_RETURN}, {32771}},
        {"menu, F4", kMenu, key(VK_F4), {VK_ESCAPE}, {}},
        {"menu, Alt+Down", kMenu, altDown, {VK_RETURN}, {32771}},
        {"menu, mouse", kMenu, menuMouse, {VK_DOWN, VK_DOWN, VK_RETURN}, {32772}},
        {"menu, BM_CLICK", kMenu, click(menu), {VK_DOWN, VK_RETURN}, {32771}},
    };
    for (const auto& each : cases) {
      commands_.clear();
      menuKeys_ = each.menuKeys;
      FocusItem(each.focused);
      each.act();
      Pump();
      EXPECT_EQ(commands_, each.commands) << each.name;
      EXPECT_FALSE(SendMessageA(menu, BM_GETSTATE, 0, 0) & BST_PUSHED) << each.name;
    }
  });
}

TEST_F(ImageButton, ShowsItsSelectionAndIsNamedByItsTooltip) {
  Run([this] {
    const HWND button = Item(kPicture);
    EXPECT_EQ(WindowText(button), "Selects Peedy");
    const auto plain = Seen(button);
    SetWindowTextA(button, "");
    EXPECT_EQ(Seen(button), plain) << "the name is not drawn";
    picture_.SetSelected(true);
    EXPECT_EQ(IsDlgButtonChecked(Window(), kPicture), UINT{BST_CHECKED});
    EXPECT_NE(Seen(button), plain);
    EXPECT_EQ(std::ranges::count(Seen(button), kMagenta), 0) << "transparent pixels are drawn";
    CheckItem(kPicture, false);
    EXPECT_EQ(Seen(button), plain);
    EnableWindow(button, FALSE);
    EXPECT_NE(Seen(button), plain);
  });
}

}  // namespace
