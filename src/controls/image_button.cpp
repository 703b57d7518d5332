#include "controls/image_button.h"

#include <commctrl.h>

#include <algorithm>
#include <array>

#include "controls/callback.h"
#include "controls/dialog.h"
#include "controls/program_pictures.h"
#include "controls/window_text.h"

namespace {

constexpr UINT_PTR kSubclassId = 1;
// Posted by a key, so that the character that the key also sends does not reach the menu.
constexpr UINT kDropMenu = WM_APP + 1;

constexpr int kMargin = 5;  // from the button's edge to its content
constexpr int kGap = 6;     // between picture and text
constexpr int kFocusInset = 3;
constexpr int kArrowHalf = 3;  // half the width of the drop arrow, and its height
constexpr int kArrowRoom = 2 * kArrowHalf + kGap;

constexpr UINT kCaptionFormat = DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS;

// A memory picture of the button, copied to the screen in one go.
class BackBuffer {
 public:
  BackBuffer(HDC target, const RECT& area)
      : target_(target),
        area_(area),
        dc_(CreateCompatibleDC(target)),
        bitmap_(CreateCompatibleBitmap(target, area.right, area.bottom)),
        selected_(dc_.Get(), bitmap_.Get()) {}
  ~BackBuffer() { BitBlt(target_, 0, 0, area_.right, area_.bottom, dc_.Get(), 0, 0, SRCCOPY); }
  BackBuffer(const BackBuffer&) = delete;
  BackBuffer& operator=(const BackBuffer&) = delete;
  HDC Dc() const { return dc_.Get(); }

 private:
  const HDC target_;
  const RECT area_;
  const UniqueMemoryDc dc_;
  const UniqueBitmap bitmap_;
  const SelectedObject selected_;
};

bool IsHighContrast() {
  HIGHCONTRASTA contrast{};
  contrast.cbSize = sizeof(contrast);
  return SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON);
}

// `percent` of `tint` over `ground`.
COLORREF Blend(COLORREF ground, COLORREF tint, int percent) {
  const auto mix = [percent](int below, int above) { return below + (above - below) * percent / 100; };
  return RGB(mix(GetRValue(ground), GetRValue(tint)), mix(GetGValue(ground), GetGValue(tint)),
             mix(GetBValue(ground), GetBValue(tint)));
}

void Fill(HDC dc, const RECT& area, COLORREF colour) {
  const UniqueBrush brush(CreateSolidBrush(colour));
  FillRect(dc, &area, brush.Get());
}

void Frame(HDC dc, const RECT& area, COLORREF colour) {
  const UniqueBrush brush(CreateSolidBrush(colour));
  FrameRect(dc, &area, brush.Get());
}

SIZE TextSize(HDC dc, const std::string& text) {
  RECT area{};
  DrawTextA(dc, text.c_str(), -1, &area, DT_SINGLELINE | DT_CALCRECT);
  return {area.right, area.bottom};
}

void DrawDropArrow(HDC dc, int centre, int middle, COLORREF colour) {
  for (int row = 0; row <= kArrowHalf; ++row) {
    const int y = middle - kArrowHalf / 2 + row;
    const int half = kArrowHalf - row;
    Fill(dc, {centre - half, y, centre + half + 1, y + 1}, colour);
  }
}

}  // namespace

struct CImageButton::Look {
  COLORREF face;
  COLORREF frame;
  COLORREF text;
  int frameWidth;
  bool pressed;
  bool disabled;
  bool focusShown;
  bool mnemonicShown;
  bool highContrast;
};

CImageButton::~CImageButton() { Detach(); }

void CImageButton::Attach(HWND button) {
  Detach();
  button_ = button;
  background_ = [] { return GetSysColor(COLOR_BTNFACE); };
  textColour_ = [] { return GetSysColor(COLOR_BTNTEXT); };
  const LONG style = GetWindowLongA(button, GWL_STYLE);
  default_ = (style & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
  SetWindowLongA(button, GWL_STYLE, (style & ~BS_TYPEMASK) | BS_OWNERDRAW);
  SetWindowSubclass(button, &Procedure, kSubclassId, reinterpret_cast<DWORD_PTR>(this));
}

void CImageButton::Detach() {
  if (button_) RemoveWindowSubclass(button_, &Procedure, kSubclassId);
  button_ = tooltip_ = nullptr;
  pictures_.Reset();
  menu_.Reset();
  pictureAbove_ = default_ = selected_ = hot_ = false;
  captionShown_ = true;
}

void CImageButton::SetIcon(UINT iconId, int size) {
  const UniqueIcon icon = LoadIconOfSize(iconId, size);
  pictures_.Reset(icon ? ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, 1, 0) : nullptr);
  if (pictures_) ImageList_ReplaceIcon(pictures_.Get(), -1, icon.Get());
  pictureAbove_ = false;
  Redraw();
}

void CImageButton::SetBitmaps(UINT first, UINT second) {
  pictures_ = LoadBitmapImages(std::array{first, second});
  pictureAbove_ = true;
  Redraw();
}

void CImageButton::SetTooltip(const std::string& text) {
  if (GetWindowTextLengthA(button_) == 0) {
    SetWindowTextA(button_, text.c_str());
    captionShown_ = false;
    Redraw();
  }
  if (!tooltip_) {
    tooltip_ =
        CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0,
                        0, 0, 0, GetParent(button_), nullptr, GetModuleHandleA(nullptr), nullptr);
  }
  SendTool(TTM_DELTOOLA);
  tooltipText_ = text;
  SendTool(TTM_ADDTOOLA);
}

void CImageButton::SendTool(UINT message) {
  TTTOOLINFOA tool{};
  tool.cbSize = sizeof(tool);
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = GetParent(button_);
  tool.uId = reinterpret_cast<UINT_PTR>(button_);
  tool.lpszText = tooltipText_.data();
  SendMessageA(tooltip_, message, 0, reinterpret_cast<LPARAM>(&tool));
}

void CImageButton::SetColour(int slot, Colour colour) {
  if (slot == kBackgroundColour) background_ = colour;
  if (slot == kTextColour) textColour_ = colour;
  Redraw();
}

void CImageButton::SetMenu(UINT menuId) {
  menu_.Reset(LoadMenuA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(menuId)));
  Redraw();
}

void CImageButton::SetSelected(bool selected) {
  if (selected == selected_) return;
  selected_ = selected;
  Redraw();
  NotifyWinEvent(EVENT_OBJECT_STATECHANGE, button_, OBJID_CLIENT, CHILDID_SELF);
}

LRESULT CALLBACK CImageButton::Procedure(HWND, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                         DWORD_PTR self) {
  return GuardCallback(LRESULT{0},
                       [&] { return reinterpret_cast<CImageButton*>(self)->Route(message, wParam, lParam); });
}

LRESULT CImageButton::Route(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case kDrawYourself:
      Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case kDropMenu:
      DropMenu(true);
      return 0;
    case WM_ERASEBKGND:
      return TRUE;
    case WM_GETDLGCODE:
      return DialogCode(wParam);
    case BM_SETSTYLE:
      // An owner-drawn button cannot be a default button by its style: both are types of a button.
      default_ = (wParam & BS_TYPEMASK) == BS_DEFPUSHBUTTON;
      Redraw();
      return 0;
    case BM_SETCHECK:
      SetSelected(wParam == BST_CHECKED);
      return 0;
    case BM_GETCHECK:
      return selected_ ? BST_CHECKED : BST_UNCHECKED;
    case BM_GETSTATE:
      return DefSubclassProc(button_, message, wParam, lParam) | (selected_ ? BST_CHECKED : BST_UNCHECKED);
    case WM_MOUSEMOVE:
      OnMouseMove();
      break;
    case WM_MOUSELEAVE:
      hot_ = false;
      Redraw();
      break;
    case WM_LBUTTONDBLCLK:
      // The second of two quick clicks counts like the first.
      message = WM_LBUTTONDOWN;
      [[fallthrough]];
    case WM_LBUTTONDOWN:
      if (!menu_) break;
      SetFocus(button_);
      DropMenu(false);
      return 0;
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_KEYUP:
      if (menu_ && OnMenuKey(message, wParam)) return 0;
      break;
    case WM_KILLFOCUS:
      if (menu_) SendMessageA(button_, BM_SETSTATE, FALSE, 0);
      break;
    case WM_SETTEXT:
    case WM_ENABLE:
    case WM_UPDATEUISTATE:
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED: {
      const LRESULT result = DefSubclassProc(button_, message, wParam, lParam);
      Redraw();
      return result;
    }
    case WM_NCDESTROY: {
      const HWND window = button_;
      const LRESULT result = DefSubclassProc(window, message, wParam, lParam);
      Detach();
      return result;
    }
    default:
      break;
  }
  return DefSubclassProc(button_, message, wParam, lParam);
}

LRESULT CImageButton::DialogCode(WPARAM key) const {
  // Enter stays with the dialog's default button.
  if (pictureAbove_) return DLGC_BUTTON;
  LRESULT code = DLGC_BUTTON | (default_ ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
  // The dialog would turn Enter into BN_CLICKED and Down into a move of the focus.
  if (menu_ && (key == VK_RETURN || key == VK_DOWN)) code |= DLGC_WANTMESSAGE;
  return code;
}

void CImageButton::OnMouseMove() {
  if (hot_) return;
  TRACKMOUSEEVENT track{};
  track.cbSize = sizeof(track);
  track.dwFlags = TME_LEAVE;
  track.hwndTrack = button_;
  hot_ = TrackMouseEvent(&track);
  Redraw();
}

// True for each key that the menu takes. Space opens when it comes up, as it clicks every button, if it went
// down here.
bool CImageButton::OnMenuKey(UINT message, WPARAM key) {
  if (message == WM_SYSKEYDOWN && key != VK_DOWN) return false;  // Alt+F4 closes the window
  const bool down = message != WM_KEYUP;
  switch (key) {
    case VK_SPACE:
      if (down) {
        SendMessageA(button_, BM_SETSTATE, TRUE, 0);
      } else if (SendMessageA(button_, BM_GETSTATE, 0, 0) & BST_PUSHED) {
        PostMessageA(button_, kDropMenu, 0, 0);
      }
      return true;
    case VK_RETURN:
    case VK_DOWN:
    case VK_F4:
      if (down) PostMessageA(button_, kDropMenu, 0, 0);
      return down;
    default:
      return false;
  }
}

void CImageButton::DropMenu(bool byKeyboard) {
  const HMENU popup = GetSubMenu(menu_.Get(), 0);
  if (!popup || !IsWindowEnabled(button_)) return;
  // A menu opened by a key starts on its first command.
  if (byKeyboard) PostMessageA(button_, WM_KEYDOWN, VK_DOWN, 0);
  TPMPARAMS keepClear{};
  keepClear.cbSize = sizeof(keepClear);
  GetWindowRect(button_, &keepClear.rcExclude);
  UINT flags = TPM_TOPALIGN | TPM_VERTICAL;
  const POINT corner = MenuPosition(popup, flags);
  SendMessageA(button_, BM_SETSTATE, TRUE, 0);
  SendTool(TTM_DELTOOLA);  // the tooltip would cover the menu
  TrackPopupMenuEx(popup, flags, corner.x, corner.y, GetParent(button_), &keepClear);
  if (!button_) return;
  SendTool(TTM_ADDTOOLA);
  SendMessageA(button_, BM_SETSTATE, FALSE, 0);
  // The click on the button that closed the menu must not open it again.
  MSG message;
  while (PeekMessageA(&message, button_, WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, PM_REMOVE)) {
  }
}

// Below the button, flush with its left edge, or with its right edge where the menu would leave the screen.
POINT CImageButton::MenuPosition(HMENU menu, UINT& flags) const {
  RECT button{};
  GetWindowRect(button_, &button);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof(monitor);
  GetMonitorInfoA(MonitorFromWindow(button_, MONITOR_DEFAULTTONEAREST), &monitor);

  NONCLIENTMETRICSA metrics{};
  metrics.cbSize = sizeof(metrics);
  SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof(metrics), &metrics, 0);
  const UniqueFont font(CreateFontIndirectA(&metrics.lfMenuFont));
  const WindowDc dc(button_);
  const SelectedObject selected(dc.Get(), font.Get());
  LONG widest = 0;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    char text[128] = "";
    GetMenuStringA(menu, static_cast<UINT>(i), text, sizeof(text), MF_BYPOSITION);
    widest = std::max(widest, TextSize(dc.Get(), text).cx);
  }
  // A menu keeps room for a check mark before its texts and for a submenu's arrow after them.
  const LONG width = widest + 3 * GetSystemMetrics(SM_CXMENUCHECK);

  const bool fits = button.left + width <= monitor.rcWork.right;
  flags |= fits ? TPM_LEFTALIGN : TPM_RIGHTALIGN;
  return {fits ? button.left : button.right, button.bottom};
}

CImageButton::Look CImageButton::CurrentLook(UINT itemState) const {
  const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
  const bool highContrast = IsHighContrast();
  const LRESULT hidden = SendMessageA(button_, WM_QUERYUISTATE, 0, 0);
  Look look{};
  look.highContrast = highContrast;
  look.pressed = itemState & ODS_SELECTED;
  look.disabled = itemState & ODS_DISABLED;
  look.focusShown = (itemState & ODS_FOCUS) && !(hidden & UISF_HIDEFOCUS);
  look.mnemonicShown = !(hidden & UISF_HIDEACCEL);
  look.face = highContrast ? GetSysColor(COLOR_BTNFACE) : background_();
  look.text = highContrast ? GetSysColor(COLOR_BTNTEXT) : textColour_();
  look.frame = GetSysColor(highContrast ? COLOR_BTNTEXT : COLOR_BTNSHADOW);
  look.frameWidth = default_ || selected_ ? 2 : 1;
  if (look.disabled) {
    look.text = GetSysColor(COLOR_GRAYTEXT);
    if (!highContrast) look.frame = Blend(look.face, look.frame, 50);
  } else {
    if (default_ || selected_ || hot_ || look.pressed) look.frame = highlight;
    if (!highContrast && look.pressed) look.face = Blend(look.face, highlight, 25);
    if (!highContrast && hot_ && !look.pressed) look.face = Blend(look.face, highlight, 10);
  }
  return look;
}

void CImageButton::Draw(const DRAWITEMSTRUCT& item) const {
  RECT area{};
  GetClientRect(button_, &area);
  const BackBuffer buffer(item.hDC, area);
  const Look look = CurrentLook(item.itemState);
  const auto font = reinterpret_cast<HFONT>(SendMessageA(button_, WM_GETFONT, 0, 0));
  const SelectedObject selected(buffer.Dc(), font ? font : GetStockObject(DEFAULT_GUI_FONT));
  DrawFace(buffer.Dc(), area, look);
  DrawContent(buffer.Dc(), area, look);
}

void CImageButton::DrawFace(HDC dc, const RECT& area, const Look& look) const {
  Fill(dc, area, look.face);
  RECT edge = area;
  for (int i = 0; i < look.frameWidth; ++i) {
    Frame(dc, edge, look.frame);
    InflateRect(&edge, -1, -1);
  }
  if (!look.focusShown) return;
  RECT focus = area;
  InflateRect(&focus, -kFocusInset, -kFocusInset);
  // The ordinary focus rectangle inverts the ground, which hardly shows on a middle grey.
  if (look.highContrast) return Frame(dc, focus, look.text);
  SetTextColor(dc, 0);
  SetBkColor(dc, RGB(255, 255, 255));
  DrawFocusRect(dc, &focus);
}

// Picture and text together stand in the middle, the drop arrow at the right edge.
void CImageButton::DrawContent(HDC dc, RECT area, const Look& look) const {
  InflateRect(&area, -kMargin, -kMargin);
  if (look.pressed) OffsetRect(&area, 1, 1);
  if (menu_) {
    DrawDropArrow(dc, area.right - kArrowHalf - 1, (area.top + area.bottom) / 2, look.text);
    area.right -= kArrowRoom;
  }
  const SIZE picture = PictureSize();
  const SIZE caption = captionShown_ ? TextSize(dc, WindowText(button_)) : SIZE{};
  const int gap = picture.cx && caption.cx ? kGap : 0;
  const int width = area.right - area.left;
  const int height = area.bottom - area.top;
  if (pictureAbove_) {
    const int top = area.top + std::max<int>(0, (height - picture.cy - gap - caption.cy) / 2);
    DrawPicture(dc, area.left + (width - picture.cx) / 2, top, look.disabled);
    area.top = top + picture.cy + gap;
    area.bottom = area.top + caption.cy;
    DrawCaption(dc, area, DT_CENTER, look);
  } else {
    const int left = area.left + std::max<int>(0, (width - picture.cx - gap - caption.cx) / 2);
    DrawPicture(dc, left, area.top + (height - picture.cy) / 2, look.disabled);
    area.left = left + picture.cx + gap;
    DrawCaption(dc, area, DT_LEFT, look);
  }
}

void CImageButton::DrawPicture(HDC dc, int x, int y, bool disabled) const {
  if (!pictures_) return;
  IMAGELISTDRAWPARAMS draw{};
  draw.cbSize = sizeof(draw);
  draw.himl = pictures_.Get();
  draw.i = std::min(selected_ ? 1 : 0, ImageList_GetImageCount(pictures_.Get()) - 1);
  draw.hdcDst = dc;
  draw.x = x;
  draw.y = y;
  draw.rgbBk = CLR_NONE;
  draw.rgbFg = CLR_NONE;
  draw.fStyle = ILD_TRANSPARENT;
  draw.fState = disabled ? ILS_SATURATE : ILS_NORMAL;
  ImageList_DrawIndirect(&draw);
}

void CImageButton::DrawCaption(HDC dc, RECT area, UINT format, const Look& look) const {
  if (!captionShown_) return;
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, look.text);
  DrawTextA(dc, WindowText(button_).c_str(), -1, &area,
            kCaptionFormat | format | (look.mnemonicShown ? 0 : DT_HIDEPREFIX));
}

SIZE CImageButton::PictureSize() const {
  int width = 0, height = 0;
  if (pictures_) ImageList_GetIconSize(pictures_.Get(), &width, &height);
  return {width, height};
}
