#include <windows.h>

#include <commctrl.h>
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
constexpr COLORREF kMagenta = RGB(255, 0, 255);

// A bare dialog with an ordinary button and three image buttons.
class CHost : public CDialog {
 public:
  CHost() : CDialog(IDD_PROGRESS) {}

  // Does `action` while the dialog is shown.
  void Run(const std::function<void(CHost& host)>& action) {
    DialogScript script;
    script.Expect("Host", [&](HWND) {
      action(*this);
      EndDialog(IDOK);
    });
    DoModal(nullptr);
  }
  using CDialog::FocusItem;
  using CDialog::Item;

  CImageButton image, menu, picture;
  std::vector<int> commands;           // with BN_CLICKED or from a menu
  std::vector<WPARAM> keysForTheMenu;  // pressed once it is open

 private:
  bool OnInitDialog() override {
    SetWindowTextA(Window(), "Host");
    const char* texts[] = {"&Ordinary", "&Image", "&Menu", ""};
    for (int i = 0; i < 4; ++i) {
      CreateWindowA("BUTTON", texts[i], WS_CHILD | WS_VISIBLE | WS_TABSTOP, 120 * i, 0, 110, 110, Window(),
                    reinterpret_cast<HMENU>(INT_PTR{kOrdinary + i}), nullptr, nullptr);
    }
    image.Attach(Item(kImage));
    image.SetIcon(IDI_ALLOCATE, 32);
    menu.Attach(Item(kMenu));
    menu.SetIcon(IDI_HELP, 16);
    menu.SetMenu(IDM_HELP_MENU);
    picture.Attach(Item(kPicture));
    picture.SetBitmaps(IDB_PEEDY, IDB_PEEDY_SELECTED, kMagenta);
    picture.SetTooltip("Selects Peedy");
    FocusItem(kOrdinary);
    return false;
  }
  void OnCommand(int id, int code) override {
    if (code == BN_CLICKED) commands.push_back(id);
  }
  bool OnMessage(UINT message, WPARAM, LPARAM, LRESULT&) override {
    if (message != WM_INITMENUPOPUP) return false;
    for (const WPARAM key : keysForTheMenu)
      PressKey(key);
    return true;
  }
};

void PressMouse(HWND window, UINT down = WM_LBUTTONDOWN) {
  PostMessageA(window, down, MK_LBUTTON, MAKELPARAM(9, 9));
  PostMessageA(window, WM_LBUTTONUP, 0, MAKELPARAM(9, 9));
}

// What the button draws.
std::vector<COLORREF> Rendered(HWND button) {
  RECT area{};
  GetClientRect(button, &area);
  const HDC screen = GetDC(button);
  const HDC dc = CreateCompatibleDC(screen);
  const UniqueBitmap bitmap(CreateCompatibleBitmap(screen, area.right, area.bottom));
  ReleaseDC(button, screen);
  const HGDIOBJ before = SelectObject(dc, bitmap.Get());
  DRAWITEMSTRUCT item{};
  item.hDC = dc;
  item.itemState = IsWindowEnabled(button) ? 0 : ODS_DISABLED;
  SendMessageA(button, kDrawYourself, 0, reinterpret_cast<LPARAM>(&item));
  std::vector<COLORREF> pixels;
  for (int y = 0; y < area.bottom; ++y) {
    for (int x = 0; x < area.right; ++x)
      pixels.push_back(GetPixel(dc, x, y));
  }
  SelectObject(dc, before);
  DeleteDC(dc);
  return pixels;
}

TEST(ImageButton, ClicksLikeAnOrdinaryButton) {
  CHost().Run([](CHost& host) {
    const HWND button = host.Item(kImage);
    const struct {
      const char* name;
      std::function<void()> act;
      std::size_t clicks;
    } cases[] = {
        {"mouse", [&] { PressMouse(button); }, 1},
        {"two quick clicks", [&] { PressMouse(button), PressMouse(button, WM_LBUTTONDBLCLK); }, 2},
        {"space", [&] { host.FocusItem(kImage), PressKey(VK_SPACE); }, 1},
        {"enter, when focused", [&] { host.FocusItem(kImage), PressKey(VK_RETURN); }, 1},
        {"mnemonic",
         [&] { PostMessageA(host.Item(kOrdinary), WM_SYSCHAR, 'i', static_cast<LPARAM>(1) << 29); }, 1},
        {"BM_CLICK", [&] { SendMessageA(button, BM_CLICK, 0, 0); }, 1},
    };
    for (const auto& [name, act, clicks] : cases) {
      host.commands.clear();
      act();
      Pump();
      EXPECT_EQ(host.commands, std::vector<int>(clicks, kImage)) << name;
    }
  });
}

TEST(ImageButton, TheDefaultButtonFollowsTheFocusButNeverIsAPicture) {
  CHost().Run([](CHost& host) {
    host.FocusItem(kImage);
    host.FocusItem(kPicture);
    EXPECT_EQ(SendMessageA(host.Item(kPicture), WM_GETDLGCODE, 0, 0), DLGC_BUTTON);
    for (const int focused : {kImage, kMenu, kOrdinary, kImage}) {
      host.FocusItem(focused);
      for (const int id : {kOrdinary, kImage, kMenu}) {
        const LRESULT code = SendMessageA(host.Item(id), WM_GETDLGCODE, 0, 0);
        EXPECT_EQ((code & DLGC_DEFPUSHBUTTON) != 0, id == focused) << id << " with the focus on " << focused;
        EXPECT_EQ((code & DLGC_UNDEFPUSHBUTTON) != 0, id != focused) << id;
      }
    }
  });
}

TEST(ImageButton, DropsItsMenuByKeyboardAndMouse) {
  CHost().Run([](CHost& host) {
    const HWND button = host.Item(kMenu);
    const auto altDown = [&] { PostMessageA(button, WM_SYSKEYDOWN, VK_DOWN, static_cast<LPARAM>(1) << 29); };
    const struct {
      const char* name;
      std::function<void()> open;
      std::vector<WPARAM> keys;
      std::vector<int> commands;
    } cases[] = {
        // By keyboard the first command is selected at once.
        {"space", [] { PressKey(VK_SPACE); }, {VK_RETURN}, {32771}},
        {"enter", [] { PressKey(VK_RETURN); }, {VK_DOWN, VK_RETURN}, {32772}},
        {"down", [] { PressKey(VK_DOWN); }, {VK_RETURN}, {32771}},
        {"F4", [] { PressKey(VK_F4); }, {VK_ESCAPE}, {}},
        {"Alt+Down", altDown, {VK_RETURN}, {32771}},
        {"mouse", [&] { PressMouse(button); }, {VK_DOWN, VK_DOWN, VK_RETURN}, {32772}},
        {"BM_CLICK", [&] { SendMessageA(button, BM_CLICK, 0, 0); }, {VK_DOWN, VK_RETURN}, {32771}},
    };
    for (const auto& [name, open, keys, commands] : cases) {
      host.commands.clear();
      host.keysForTheMenu = keys;
      host.FocusItem(kMenu);
      open();
      Pump();
      EXPECT_EQ(host.commands, commands) << name;
      EXPECT_EQ(GetFocus(), button) << name;
      EXPECT_FALSE(SendMessageA(button, BM_GETSTATE, 0, 0) & BST_PUSHED) << name;
    }
    EnableWindow(button, FALSE);
    host.commands.clear();
    SendMessageA(button, BM_CLICK, 0, 0);
    Pump();
    EXPECT_TRUE(host.commands.empty()) << "disabled";
  });
}

int g_stateChanges;
void CALLBACK CountStateChange(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG, DWORD, DWORD) {
  if (GetDlgCtrlID(window) == kPicture && object == OBJID_CLIENT) ++g_stateChanges;
}

TEST(ImageButton, TellsOfItsSelection) {
  CHost().Run([](CHost& host) {
    const HWND button = host.Item(kPicture);
    const HWINEVENTHOOK hook =
        SetWinEventHook(EVENT_OBJECT_STATECHANGE, EVENT_OBJECT_STATECHANGE, nullptr, &CountStateChange,
                        GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT);
    const auto plain = Rendered(button);
    Pump();
    g_stateChanges = 0;
    host.picture.SetSelected(true);
    host.picture.SetSelected(true);
    Pump();
    EXPECT_EQ(g_stateChanges, 1);
    EXPECT_EQ(IsDlgButtonChecked(host.Window(), kPicture), UINT{BST_CHECKED});
    EXPECT_TRUE(SendMessageA(button, BM_GETSTATE, 0, 0) & BST_CHECKED);
    const auto selected = Rendered(button);
    CheckDlgButton(host.Window(), kPicture, BST_UNCHECKED);
    EXPECT_FALSE(host.picture.IsSelected());
    EXPECT_EQ(Rendered(button), plain);
    EXPECT_NE(selected, plain);
    for (const auto& pixels : {plain, selected})
      EXPECT_EQ(std::count(pixels.begin(), pixels.end(), kMagenta), 0) << "transparent pixels are drawn";
    EnableWindow(button, FALSE);
    EXPECT_NE(Rendered(button), plain);
    UnhookWinEvent(hook);
  });
}

TEST(ImageButton, WithoutATextTakesItsTooltipAsItsName) {
  CHost().Run([](CHost& host) {
    EXPECT_EQ(WindowText(host.Item(kPicture)), "Selects Peedy");
    // It is not drawn.
    const auto drawn = Rendered(host.Item(kPicture));
    SetWindowTextA(host.Item(kPicture), "");
    EXPECT_EQ(Rendered(host.Item(kPicture)), drawn);
  });
}

}  // namespace
