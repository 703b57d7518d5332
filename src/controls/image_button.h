// An image button: an ordinary push button of a dialog that draws an icon beside its text or a picture above
// it, tells where the mouse is, has a tooltip, and may drop down a menu.
//
// The window stays a BUTTON and its text stays its name, so that tabbing, mnemonics, BM_CLICK and screen
// readers find what they expect. The button becomes owner-drawn and is subclassed (SetWindowSubclass); its
// parent must be a CDialog, which hands WM_DRAWITEM on as kDrawYourself. A click sends BN_CLICKED as always,
// except on a button with a menu.
#pragma once

#include <windows.h>

#include <string>

#include "controls/window_handles.h"

class CImageButton {
 public:
  // Slots of SetColour.
  static constexpr int kBackgroundColour = 0;
  static constexpr int kTextColour = 1;

  CImageButton() = default;
  ~CImageButton();
  CImageButton(const CImageButton&) = delete;
  CImageButton& operator=(const CImageButton&) = delete;

  // Takes a push button over, usually in OnInitDialog. Let go when the window or this object is destroyed.
  // May be called again for the window of a dialog that is shown again: pictures, colours, tooltip and menu
  // are set anew then. Every other operation needs an attached button.
  void Attach(HWND button);
  HWND Window() const { return button_; }

  // An icon of the program, drawn `size` by `size` pixels to the left of the text. A number without a
  // resource leaves the text alone on the button.
  void SetIcon(UINT iconId, int size);
  // Two bitmaps of the program, of the same size, drawn above the text: the first while the button is not
  // selected, the second while it is (LoadBitmapImages). Such a button is chosen, by mouse or Space, rather
  // than pressed: it never becomes the default button, so that Enter confirms the dialog.
  void SetBitmaps(UINT first, UINT second);
  // Shown while the mouse rests on the button. A button that has no text takes the tooltip as its text, not
  // drawn, so that it has a name.
  void SetTooltip(const std::string& text);
  // A colour is asked for at each drawing, so that one made from the system's follows a change of those.
  // COLOR_BTNFACE and COLOR_BTNTEXT at first. Other slots are ignored, and under a high-contrast scheme the
  // system's colours are drawn.
  using Colour = COLORREF (*)();
  void SetColour(int slot, Colour colour);
  // The first pop-up of a menu of the program drops down from the button: when the mouse presses it and by
  // Space, Enter, Down, Alt+Down and F4. The chosen command reaches the dialog as a posted WM_COMMAND; the
  // button sends no BN_CLICKED any more.
  void SetMenu(UINT menuId);
  // Selected buttons show their second picture. BM_SETCHECK and BM_GETCHECK (CheckDlgButton,
  // IsDlgButtonChecked) mean the same state, which screen readers are told of as "checked".
  void SetSelected(bool selected);

 private:
  struct Look;

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR self);
  LRESULT Route(UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT DialogCode(WPARAM key) const;
  void Detach();
  void Redraw() const { InvalidateRect(button_, nullptr, FALSE); }

  void SendTool(UINT message);
  void OnMouseMove();
  bool OnMenuKey(UINT message, WPARAM key);
  void DropMenu(bool byKeyboard);
  POINT MenuPosition(HMENU menu, UINT& flags) const;

  void Draw(const DRAWITEMSTRUCT& item) const;
  Look CurrentLook(UINT itemState) const;
  void DrawFace(HDC dc, const RECT& area, const Look& look) const;
  void DrawContent(HDC dc, RECT area, const Look& look) const;
  void DrawPicture(HDC dc, int x, int y, bool disabled) const;
  void DrawCaption(HDC dc, RECT area, UINT format, const Look& look) const;
  SIZE PictureSize() const;

  HWND button_ = nullptr;
  HWND tooltip_ = nullptr;  // owned by the dialog, which destroys it
  std::string tooltipText_;
  UniqueImageList pictures_;
  UniqueMenu menu_;
  Colour background_ = nullptr;
  Colour textColour_ = nullptr;
  bool pictureAbove_ = false;
  bool captionShown_ = true;
  bool default_ = false;
  bool selected_ = false;
  bool hot_ = false;
};
