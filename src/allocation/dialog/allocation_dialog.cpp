#include "allocation/dialog/allocation_dialog.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "allocation/account_detection.h"
#include "allocation/dialog/allocation_dialog_ids.h"
#include "allocation/dialog/scheme_choice.h"
#include "allocation/dialog/scheme_selector.h"
#include "allocation/environment_code.h"
#include "controls/list_view.h"
#include "controls/message.h"
#include "controls/program_pictures.h"
#include "resources/picture_ids.h"
#include "resources/resource_ids.h"

namespace {

// How far the template's lower controls move up, in pixels.
constexpr int kPerUserShift = 250;
constexpr int kAllocationShift = 110;

constexpr UINT kPictures[] = {IDB_CLASS, IDB_USER, IDB_USER_GROUP};  // by AllocationKind

constexpr int kSchemeColumn = 2;
struct Column {
  const char* Title;
  int Width;
  const char* (*Text)(const Allocation& allocation);
};
constexpr Column kColumns[] = {
    {"Class or User", 180, [](const Allocation& allocation) { return allocation.Name.c_str(); }},
    {"Type", 180, [](const Allocation& allocation) { return KindText(allocation.Kind); }},
    {"Schemes", 300, [](const Allocation& allocation) { return allocation.Scheme.c_str(); }},
};

struct RowOrder {
  const std::vector<Allocation>& Allocations;
  int SortedColumn;
  bool Descending;

  static int CALLBACK Compare(LPARAM left, LPARAM right, LPARAM order) {
    return reinterpret_cast<const RowOrder*>(order)->Compare(left, right);
  }
  int Compare(LPARAM left, LPARAM right) const {
    const auto text = kColumns[SortedColumn].Text;
    const int order = lstrcmpiA(text(Allocations[static_cast<std::size_t>(left)]),
                                text(Allocations[static_cast<std::size_t>(right)]));
    if (order == 0) return left < right ? -1 : 1;  // rows that are alike keep their first order
    return Descending ? -order : order;
  }
};

}  // namespace

CAllocationDialog::CAllocationDialog() : CDialog(IDD_ALLOCATION) {}

bool CAllocationDialog::OnInitDialog() {
  perUser_ = IsPerUserEnvironment(QueryEnvironmentCode());
  if (perUser_) {
    ShowPerUserLayout();
  } else {
    ShowAllocationLayout();
  }
  MakeColumns();
  FillSchemes();
  FillRows();
  FocusItem(perUser_ ? IDC_CURRENT_USER_SCHEME : IDC_ALLOCATION_LIST);
  return false;
}

void CAllocationDialog::ShowPerUserLayout() {
  SetWindowTextA(Window(), "User Schemes");
  for (const int id :
       {IDC_ALLOCATION_HINT, IDC_ALLOCATION_LIST, IDC_ALLOCATION_CHANGE, IDC_ALLOCATION_GROUP, IDCANCEL})
    ShowItem(id, false);
  for (const int id : {IDC_CURRENT_USER_GROUP, IDC_CURRENT_USER_EXPLANATION, IDC_CURRENT_USER_LABEL,
                       IDC_CURRENT_USER_SCHEME, IDC_CURRENT_USER_APPLY})
    MoveItem(id, 0, -kPerUserShift);
  // Being alone, OK stands in the corner.
  MoveItem(IDOK, ItemPlace(IDCANCEL).left - ItemPlace(IDOK).left, -kPerUserShift);
  Shorten(kPerUserShift);
}

void CAllocationDialog::ShowAllocationLayout() {
  for (const int id : {IDC_CURRENT_USER_GROUP, IDC_CURRENT_USER_EXPLANATION, IDC_CURRENT_USER_SCHEME,
                       IDC_CURRENT_USER_APPLY, IDC_CURRENT_USER_LABEL})
    ShowItem(id, false);
  Shorten(kAllocationShift);
  for (const int id : {IDOK, IDCANCEL})
    MoveItem(id, 0, -kAllocationShift);
}

RECT CAllocationDialog::ItemPlace(int id) const {
  RECT place;
  GetWindowRect(Item(id), &place);
  MapWindowPoints(nullptr, Window(), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

void CAllocationDialog::MoveItem(int id, int dx, int dy) {
  const RECT place = ItemPlace(id);
  SetWindowPos(Item(id), nullptr, place.left + dx, place.top + dy, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// The window was centred at its full height, and stays centred.
void CAllocationDialog::Shorten(int pixels) {
  RECT place;
  GetWindowRect(Window(), &place);
  SetWindowPos(Window(), nullptr, place.left, place.top + pixels / 2, place.right - place.left,
               place.bottom - place.top - pixels, SWP_NOZORDER | SWP_NOACTIVATE);
}

void CAllocationDialog::MakeColumns() {
  const HWND list = Item(IDC_ALLOCATION_LIST);
  ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP);
  // From now on the list's own.
  ListView_SetImageList(list, LoadBitmapImages(kPictures).Release(), LVSIL_SMALL);
  int index = 0;
  for (const Column& column : kColumns)
    InsertListColumn(list, index++, column.Title, column.Width);
}

void CAllocationDialog::FillSchemes() {
  schemes_ = SchemeNames();
  SortNames(schemes_);
  for (const std::string& scheme : schemes_)
    SendItem(IDC_CURRENT_USER_SCHEME, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(scheme.c_str()));
  const std::optional<std::size_t> current = FindName(schemes_, ReadConfigToUse());
  if (current) SendItem(IDC_CURRENT_USER_SCHEME, CB_SETCURSEL, *current);
}

void CAllocationDialog::FillRows() {
  allocations_ = ReadAllocations(IsNtFamily());
  const HWND list = Item(IDC_ALLOCATION_LIST);
  SendMessageA(list, WM_SETREDRAW, FALSE, 0);
  ListView_SetItemCount(list, static_cast<int>(allocations_.size()));
  for (int row = 0; row < static_cast<int>(allocations_.size()); ++row) {
    const Allocation& allocation = allocations_[static_cast<std::size_t>(row)];
    InsertListRow(list, row, allocation.Name.c_str(), static_cast<int>(allocation.Kind), row);
    for (int column = 1; column <= kSchemeColumn; ++column)
      SetListCell(list, row, column, kColumns[column].Text(allocation));
  }
  SendMessageA(list, WM_SETREDRAW, TRUE, 0);
  FocusFirstRow(list);
}

void CAllocationDialog::OnCommand(int id, int code) {
  if (code != BN_CLICKED) return;
  switch (id) {
    case IDC_ALLOCATION_CHANGE:
      OnChange();
      break;
    case IDC_CURRENT_USER_APPLY:
      ApplyToCurrentUser();
  }
}

LRESULT CAllocationDialog::OnNotify(const NMHDR& header) {
  if (header.idFrom != IDC_ALLOCATION_LIST) return 0;
  switch (header.code) {
    case LVN_ITEMCHANGED:
      EnableItem(IDC_ALLOCATION_CHANGE, ListView_GetSelectedCount(header.hwndFrom) > 0);
      break;
    case LVN_COLUMNCLICK:
      SortBy(reinterpret_cast<const NMLISTVIEW&>(header).iSubItem);
      break;
    case LVN_KEYDOWN:
      if (reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey == 'A' && GetKeyState(VK_CONTROL) < 0)
        ListView_SetItemState(header.hwndFrom, -1, LVIS_SELECTED, LVIS_SELECTED);
      break;
    case NM_DBLCLK:
      OnChange();
      break;
  }
  return 0;
}

void CAllocationDialog::OnOK() {
  if (perUser_ ? ApplyToCurrentUser() : WriteRows()) EndDialog(IDOK);
}

void CAllocationDialog::OnChange() {
  const std::vector<int> rows = SelectedRows();
  if (rows.empty()) return;
  CSchemeSelector selector(schemes_, CommonScheme(rows));
  if (selector.DoModal(Window()) != IDOK) return;
  for (const int row : rows) {
    Allocation& allocation = AllocationOf(row);
    allocation.Scheme = selector.Scheme();
    allocation.Known = true;
    SetListCell(Item(IDC_ALLOCATION_LIST), row, kSchemeColumn, allocation.Scheme.c_str());
  }
}

bool CAllocationDialog::WriteRows() {
  WriteResult result = WriteResult::kDone;
  for (int row = 0; row < static_cast<int>(allocations_.size()); ++row) {
    const Allocation& allocation = AllocationOf(row);
    if (!allocation.Known) continue;
    const WriteResult written = WriteAllocation(allocation.Kind, allocation.Name, allocation.Scheme);
    if (written != WriteResult::kDone) result = written;
  }
  return Report(result);
}

bool CAllocationDialog::ApplyToCurrentUser() {
  const LRESULT entry = SendItem(IDC_CURRENT_USER_SCHEME, CB_GETCURSEL);
  return entry == CB_ERR || Report(WriteConfigToUse(schemes_[static_cast<std::size_t>(entry)]));
}

bool CAllocationDialog::Report(WriteResult result) const {
  if (result == WriteResult::kDone) return true;
  ShowWarning(Window(),
              result == WriteResult::kNoRights ? "You do not have the rights to change these settings.\n"
                                                 "Please contact your system administrator for help"
                                               : "Not all of these settings could be written.\n"
                                                 "Please contact your system administrator for help",
              "Error");
  return false;
}

void CAllocationDialog::SortBy(int column) {
  descending_ = column == sortedColumn_ && !descending_;
  sortedColumn_ = column;
  const HWND list = Item(IDC_ALLOCATION_LIST);
  const RowOrder order{allocations_, column, descending_};
  ListView_SortItems(list, &RowOrder::Compare, reinterpret_cast<LPARAM>(&order));

  const HWND header = ListView_GetHeader(list);
  for (int i = 0; i < static_cast<int>(std::size(kColumns)); ++i) {
    HDITEMA item{};
    item.mask = HDI_FORMAT;
    SendMessageA(header, HDM_GETITEMA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
    item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
    if (i == column) item.fmt |= descending_ ? HDF_SORTDOWN : HDF_SORTUP;
    SendMessageA(header, HDM_SETITEMA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item));
  }
}

std::vector<int> CAllocationDialog::SelectedRows() const {
  const HWND list = Item(IDC_ALLOCATION_LIST);
  std::vector<int> rows;
  for (int row = -1; (row = ListView_GetNextItem(list, row, LVNI_SELECTED)) >= 0;)
    rows.push_back(row);
  return rows;
}

Allocation& CAllocationDialog::AllocationOf(int row) {
  LVITEMA item{};
  item.mask = LVIF_PARAM;
  item.iItem = row;
  SendItem(IDC_ALLOCATION_LIST, LVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
  return allocations_[static_cast<std::size_t>(item.lParam)];
}

std::optional<std::string> CAllocationDialog::CommonScheme(const std::vector<int>& rows) {
  const std::string& first = AllocationOf(rows.front()).Scheme;
  const bool shared =
      std::all_of(rows.begin(), rows.end(), [&](int row) { return AllocationOf(row).Scheme == first; });
  return shared ? std::optional(first) : std::nullopt;
}
