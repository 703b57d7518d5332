#include "support/accessibility.h"

#include <oleacc.h>
#include <oleauto.h>

#include <stdexcept>

#include "base/com_apartment.h"

namespace {

// Takes over a text that a component returned.
std::string Narrow(BSTR text) {
  char narrow[512] = "";
  if (text) WideCharToMultiByte(CP_ACP, 0, text, -1, narrow, sizeof(narrow), nullptr, nullptr);
  SysFreeString(text);
  return narrow;
}

std::string StateText(DWORD state) {
  std::string text;
  for (DWORD bit = 1; bit; bit <<= 1) {
    char name[64] = "";
    if (!(state & bit)) continue;
    GetStateTextA(bit, name, sizeof(name));
    text += (text.empty() ? "" : ",") + std::string(name);
  }
  return text;
}

// MinGW's library for oleacc has a jump instead of IID_IAccessible.
AccessibleControl Ask(HWND window) {
  IAccessible* object = nullptr;
  const HRESULT result = AccessibleObjectFromWindow(window, static_cast<DWORD>(OBJID_CLIENT),
                                                    __uuidof(IAccessible), reinterpret_cast<void**>(&object));
  if (FAILED(result)) {
    throw std::runtime_error("no accessible object of control " + std::to_string(GetDlgCtrlID(window)) +
                             ": " + std::to_string(result));
  }
  VARIANT self{}, role{}, state{};
  self.vt = VT_I4;
  BSTR name = nullptr, shortcut = nullptr;
  object->get_accName(self, &name);
  object->get_accRole(self, &role);
  object->get_accState(self, &state);
  object->get_accKeyboardShortcut(self, &shortcut);
  object->Release();
  char roleText[64] = "";
  GetRoleTextA(role.ulVal, roleText, sizeof(roleText));
  return {window, GetDlgCtrlID(window), Narrow(name), roleText, StateText(state.ulVal), Narrow(shortcut)};
}

bool CanTakeFocus(HWND window) {
  return IsWindowEnabled(window) && !(SendMessageA(window, WM_GETDLGCODE, 0, 0) & DLGC_STATIC);
}

void AddControls(HWND dialog, std::vector<AccessibleControl>& controls) {
  for (HWND window = GetWindow(dialog, GW_CHILD); window; window = GetWindow(window, GW_HWNDNEXT)) {
    if (!IsWindowVisible(window)) continue;
    if (GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) {
      AddControls(window, controls);
    } else if (CanTakeFocus(window)) {
      controls.push_back(Ask(window));
    }
  }
}

}  // namespace

std::vector<AccessibleControl> FocusableControls(HWND dialog) {
  const ComApartment com;
  std::vector<AccessibleControl> controls;
  AddControls(dialog, controls);
  return controls;
}
