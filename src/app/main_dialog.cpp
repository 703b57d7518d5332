#include "app/main_dialog.h"

#include <windows.h>
#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "allocation/dialog/allocation_dialog.h"
#include "app/about_dialog.h"
#include "app/catalogue_messages.h"
#include "app/exchange_commands.h"
#include "app/load_schemes_command.h"
#include "app/main_dialog_ids.h"
#include "app/settings.h"
#include "controls/list_view.h"
#include "controls/message.h"
#include "controls/program_pictures.h"
#include "editor/scheme_commands.h"
#include "helper/dialog/helper_chooser.h"
#include "resources/picture_ids.h"
#include "resources/resource_ids.h"

namespace {

constexpr COLORREF kButtonText = 0x800000;  // navy blue
constexpr int kButtonIconSize = 16;
constexpr int kColumnWidth = 180;

constexpr int kListIconSize = 16;
constexpr int kImageListRoom = 300;
constexpr int kImageListGrowth = 50;
enum ListImage { kBuiltInImage, kSchemeImage };

constexpr DWORD kListStyle =
    LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_SHAREIMAGELISTS | LVS_NOSORTHEADER;

// Posted to the window itself. Without a file that waits it means nothing.
constexpr UINT kOpenWaitingFile = WM_APP + 1;

using UniqueDrop = UniqueHandle<HDROP, &DragFinish>;

PictureFolders Pictures() { return {GetDefaultPictures(), GetUserDefinedPictures(), GetIconPath()}; }

}  // namespace

CMainDialog::CMainDialog(std::wstring fileToOpen) : CDialog(IDD_MAIN), fileToOpen_(std::move(fileToOpen)) {}

bool CMainDialog::OnInitDialog() {
  SetUpWindowIcons();
  LoadCatalogueOrEnd(catalogue_);
  ReportUnreadableSchemes(catalogue_);
  SetUpButtons();
  SetUpList();
  FillList();
  AcceptFiles();
  if (!fileToOpen_.empty()) OpenLater(fileToOpen_);
  return true;
}

void CMainDialog::SetUpWindowIcons() {
  largeIcon_ = LoadIconOfSize(IDI_APP, GetSystemMetrics(SM_CXICON));
  smallIcon_ = LoadIconOfSize(IDI_APP, GetSystemMetrics(SM_CXSMICON));
  SendMessageA(Window(), WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(largeIcon_.Get()));
  SendMessageA(Window(), WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(smallIcon_.Get()));
}

void CMainDialog::SetUpButtons() {
  allocateButton_.Attach(Item(IDC_ALLOCATE));
  allocateButton_.SetIcon(IDI_ALLOCATE, kButtonIconSize);
  helperButton_.Attach(Item(IDC_CHOOSE_HELPER));
  helperButton_.SetIcon(IDI_HELPER, kButtonIconSize);
  for (CImageButton* button : {&allocateButton_, &helperButton_}) {
    button->SetColour(CImageButton::kBackgroundColour, [] { return GetSysColor(COLOR_BTNFACE); });
    button->SetColour(CImageButton::kTextColour, [] { return kButtonText; });
  }
  helpButton_.Attach(Item(IDC_HELP_MENU));
  helpButton_.SetIcon(IDI_HELP, kButtonIconSize);
  helpButton_.SetTooltip("Help and About");
  helpButton_.SetColour(CImageButton::kBackgroundColour, [] { return GetSysColor(COLOR_BTNFACE); });
  helpButton_.SetMenu(IDM_HELP_MENU);
}

void CMainDialog::SetUpList() {
  list_ = Item(IDC_SCHEME_LIST);
  InsertListColumn(list_, 0, "Name", kColumnWidth);
  InsertListColumn(list_, 1, "Description", kColumnWidth);
  ListView_SetColumnWidth(list_, 1, LVSCW_AUTOSIZE_USEHEADER);
  SetWindowLongA(list_, GWL_STYLE, GetWindowLongA(list_, GWL_STYLE) | static_cast<LONG>(kListStyle));
  ListView_SetExtendedListViewStyle(list_, LVS_EX_FULLROWSELECT);
  for (const int id : {IDC_EDIT, IDC_DELETE, IDC_CREATE})
    EnableItem(id, true);
}

void CMainDialog::FillList(int rowToSelect) {
  SendMessageA(list_, WM_SETREDRAW, FALSE, 0);
  ListView_DeleteAllItems(list_);
  RebuildImageList();
  catalogue_.LoadProtectedSchemes();
  for (int row = 0; const SchemeEntry& scheme : catalogue_.Schemes())
    InsertRow(row++, scheme);
  SendMessageA(list_, WM_SETREDRAW, TRUE, 0);
  // Only now does the list know whether it needs a scroll bar.
  StretchListColumn(list_, 1);
  if (rowToSelect >= 0) {
    SelectRow(list_, rowToSelect);
  } else {
    FocusFirstRow(list_);
  }
  InvalidateRect(list_, nullptr, TRUE);
}

void CMainDialog::RebuildImageList() {
  UniqueImageList images(ImageList_Create(kListIconSize, kListIconSize, ILC_COLOR32 | ILC_MASK,
                                          kImageListRoom, kImageListGrowth));
  // In the order of ListImage.
  for (const UINT id : {IDI_BUILT_IN_SCHEME, IDI_SCHEME}) {
    ImageList_AddIcon(images.Get(), LoadIconOfSize(id, kListIconSize).Get());
  }
  ListView_SetImageList(list_, images.Get(), LVSIL_SMALL);
  images_ = std::move(images);
}

void CMainDialog::InsertRow(int row, const SchemeEntry& scheme) {
  InsertListRow(list_, row, scheme.Name.c_str(),
                catalogue_.IsProtected(scheme.Name) ? kBuiltInImage : kSchemeImage);
  SetListCell(list_, row, 1, scheme.Description.c_str());
}

void CMainDialog::Reload() {
  LoadCatalogueOrEnd(catalogue_);
  FillList();
}

void CMainDialog::ReloadAndSelect(const std::string& scheme) {
  LoadCatalogueOrEnd(catalogue_);
  const std::optional<std::size_t> row = catalogue_.Find(scheme);
  FillList(row ? static_cast<int>(*row) : -1);
}

void CMainDialog::OnCommand(int id, int code) {
  if (code != BN_CLICKED) return;  // also what a menu sends
  switch (id) {
    case IDC_EDIT:
      return EditSelectedScheme();
    case IDC_CREATE:
      return CreateNewScheme();
    case IDC_DELETE:
      return DeleteSelectedScheme();
    case IDC_LOAD:
      return LoadSchemesFromDisk();
    case IDC_SAVE:
      return SaveToDisk(Window());
    case IDC_ALLOCATE:
      CAllocationDialog().DoModal(Window());
      return;
    case IDC_CHOOSE_HELPER:
      CHelperDialog().DoModal(Window());
      return;
    case IDM_HELP:
      return OnHelp(nullptr);
    case IDM_ABOUT:
      return ShowAbout();
  }
}

LRESULT CMainDialog::OnNotify(const NMHDR& header) {
  if (header.idFrom != IDC_SCHEME_LIST) return 0;
  switch (header.code) {
    case NM_DBLCLK:
      EditSelectedScheme();
      break;
    case LVN_KEYDOWN:
      if (reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey == VK_DELETE) DeleteSelectedScheme();
      break;
  }
  return 0;
}

void CMainDialog::OnHelp(const char* page) { ShowHelp(page); }

void CMainDialog::ShowAbout() {
  MessageBeep(0);
  CAboutDialog().DoModal(Window());
}

void CMainDialog::EditSelectedScheme() {
  const int row = SelectedRow(list_);
  if (row < 0) return;
  const auto edited = EditScheme(Window(), catalogue_, static_cast<std::size_t>(row), Pictures());
  if (edited) ReloadAndSelect(*edited);
}

void CMainDialog::CreateNewScheme() {
  const int row = SelectedRow(list_);
  const std::string selected = row < 0 ? std::string() : ListCellText(list_, row, 0);
  const auto created = CreateScheme(Window(), catalogue_, selected, Pictures());
  if (created) ReloadAndSelect(*created);
}

void CMainDialog::DeleteSelectedScheme() {
  const int row = SelectedRow(list_);
  if (row < 0) return;
  if (!DeleteScheme(Window(), catalogue_, ListCellText(list_, row, 0))) return;
  LoadCatalogueOrEnd(catalogue_);
  FillList(std::min(row, static_cast<int>(catalogue_.Schemes().size()) - 1));
}

void CMainDialog::LoadSchemesFromDisk() {
  LoadFromDisk(Window(), [this] { Reload(); });
}

bool CMainDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
  switch (message) {
    case WM_COPYDATA:
      result = static_cast<LRESULT>(
          OnFileOffered(reinterpret_cast<HWND>(wParam), *reinterpret_cast<const COPYDATASTRUCT*>(lParam)));
      return true;
    case WM_DROPFILES:
      OnFilesDropped(reinterpret_cast<HDROP>(wParam));
      return true;
    case kOpenWaitingFile:
      OpenWaitingFile();
      return true;
    case WM_ENABLE:
      // A command may have begun between the offer of a file and its opening.
      if (wParam && !fileToOpen_.empty()) PostMessageA(Window(), kOpenWaitingFile, 0, 0);
      return false;
    default:
      return false;
  }
}

void CMainDialog::AcceptFiles() {
  constexpr UINT kCopyGlobalData = 0x49;  // by which dropped files travel
  for (const UINT message : {UINT{WM_COPYDATA}, UINT{WM_DROPFILES}, kCopyGlobalData})
    ChangeWindowMessageFilterEx(Window(), message, MSGFLT_ALLOW, nullptr);
}

OfferResult CMainDialog::OnFileOffered(HWND sender, const COPYDATASTRUCT& offer) {
  const std::optional<std::wstring> path = OfferedPath(sender, offer);
  if (!path) return OfferResult::kNotTaken;
  if (GetFileAttributesW(path->c_str()) == INVALID_FILE_ATTRIBUTES) return OfferResult::kNotFound;
  if (!IsWindowEnabled(Window()) || !fileToOpen_.empty()) return OfferResult::kBusy;
  OpenLater(*path);
  return OfferResult::kTaken;
}

void CMainDialog::OnFilesDropped(HDROP drop) {
  const UniqueDrop dropped(drop);
  constexpr UINT kCount = 0xFFFFFFFF;
  if (DragQueryFileW(drop, kCount, nullptr, 0) != 1) {
    ShowWarning(Window(), "Please drop one scheme file at a time.", "Load Schemes");
    return;
  }
  std::wstring path(DragQueryFileW(drop, 0, nullptr, 0) + std::size_t{1}, L'\0');
  path.resize(DragQueryFileW(drop, 0, path.data(), static_cast<UINT>(path.size())));
  OpenLater(std::move(path));
}

void CMainDialog::OpenLater(std::wstring path) {
  fileToOpen_ = std::move(path);
  PostMessageA(Window(), kOpenWaitingFile, 0, 0);
}

void CMainDialog::OpenWaitingFile() {
  if (!IsWindowEnabled(Window()) || fileToOpen_.empty()) return;
  const std::wstring path = std::exchange(fileToOpen_, {});
  OpenSchemeFile(Window(), path, [this] { Reload(); });
}
