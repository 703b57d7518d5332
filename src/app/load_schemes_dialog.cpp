#include "app/load_schemes_dialog.h"

#include <algorithm>
#include <cctype>

#include "app/exchange_work.h"
#include "app/load_schemes_dialog_ids.h"
#include "base/names.h"
#include "controls/list_view.h"
#include "controls/message.h"
#include "resources/resource_ids.h"

namespace {

constexpr int kNameWidth = 130, kEffectWidth = 155;    // of the schemes
constexpr int kSettingWidth = 190, kValueWidth = 150;  // of their settings

// What a list shows of a text: not all of a very long one, and nothing that breaks the line.
std::string OnOneLine(const std::string& text) {
  constexpr std::size_t kMaxLength = 250;
  std::string shown = text.substr(0, kMaxLength);
  std::ranges::replace_if(
      shown, [](unsigned char c) { return std::iscntrl(c) != 0; }, ' ');
  return text.size() > kMaxLength ? shown + "..." : shown;
}

std::string SettingCell(const Difference& difference, int column) {
  return column == 0 ? difference.Setting : column == 1 ? difference.Here : difference.InFile;
}

std::string SchemeCell(const SchemeToLoad& scheme, int column) {
  return column == 0 ? scheme.Name : column == 1 ? scheme.Description : scheme.EffectInWords();
}

}  // namespace

CLoadSchemesDialog::CLoadSchemesDialog(LoadPlan& plan) : CDialog(IDD_LOAD_SCHEMES), plan_(plan) {}

bool CLoadSchemesDialog::OnInitDialog() {
  SetItemText(IDC_LOAD_FILE, plan_.File);
  SetUpDamage();
  const HWND settings = Item(IDC_LOAD_SETTINGS);
  InsertListColumn(settings, 0, "Setting", kSettingWidth);
  InsertListColumn(settings, 1, "Now", kValueWidth);
  InsertListColumn(settings, 2, "In the file", 0);
  SetUpSchemes();
  CheckItem(IDC_LOAD_KEEP_COPY, plan_.KeepsCopy);
  SetItemText(IDC_LOAD_COPY_FILE, plan_.CopyFile);
  SendItem(IDC_LOAD_COPY_FILE, EM_LIMITTEXT, MAX_PATH - 1);
  EnableCopy();
  EnableLoad();
  return true;
}

void CLoadSchemesDialog::SetUpSchemes() {
  const HWND list = Item(IDC_LOAD_LIST);
  InsertListColumn(list, 0, "Scheme", kNameWidth);
  InsertListColumn(list, 1, "Description", 0);
  InsertListColumn(list, 2, "What would happen", kEffectWidth);
  ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT | LVS_EX_CHECKBOXES);
  ListView_SetCallbackMask(list, LVIS_STATEIMAGEMASK);
  ListView_SetItemCount(list, static_cast<int>(plan_.Schemes.size()));
  StretchListColumn(list, 1);
  // Where there is something to see of it below.
  const auto first = std::ranges::find_if(
      plan_.Schemes, [](const SchemeToLoad& scheme) { return !scheme.Differences.empty(); });
  SelectRow(list, first == plan_.Schemes.end() ? 0 : static_cast<int>(first - plan_.Schemes.begin()));
}

void CLoadSchemesDialog::SetUpDamage() {
  if (plan_.Damage.empty()) return HideDamage();
  const HWND list = Item(IDC_LOAD_DAMAGE);
  InsertListColumn(list, 0, "Scheme", kNameWidth);
  InsertListColumn(list, 1, "Damage", 0);
  ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT);
  ListView_SetItemCount(list, static_cast<int>(plan_.Damage.size()));
  StretchListColumn(list, 1);
  FocusFirstRow(list);
}

void CLoadSchemesDialog::HideDamage() {
  RECT settings{};
  RECT damage{};
  GetWindowRect(Item(IDC_LOAD_SETTINGS), &settings);
  GetWindowRect(Item(IDC_LOAD_DAMAGE), &damage);
  SetWindowPos(Item(IDC_LOAD_SETTINGS), nullptr, 0, 0, settings.right - settings.left,
               damage.bottom - settings.top, SWP_NOMOVE | SWP_NOZORDER);
  ShowItem(IDC_LOAD_DAMAGE_LABEL, false);
  ShowItem(IDC_LOAD_DAMAGE, false);
}

void CLoadSchemesDialog::OnCommand(int id, int code) {
  if (code != BN_CLICKED) return;
  switch (id) {
    case IDC_LOAD_ALL:
      return CheckEach(true);
    case IDC_LOAD_NONE:
      return CheckEach(false);
    case IDC_LOAD_KEEP_COPY:
      return EnableCopy();
    case IDC_LOAD_BROWSE:
      return BrowseForCopy();
  }
}

LRESULT CLoadSchemesDialog::OnNotify(const NMHDR& header) {
  if (header.code == LVN_GETDISPINFOA) {
    FillIn(header.idFrom, reinterpret_cast<NMLVDISPINFOA&>(const_cast<NMHDR&>(header)).item);
    return 0;
  }
  return header.idFrom == IDC_LOAD_LIST ? OnSchemesNotify(header) : 0;
}

LRESULT CLoadSchemesDialog::OnSchemesNotify(const NMHDR& header) {
  switch (header.code) {
    case LVN_ITEMCHANGED:
      ShowSettings();
      return 0;
    case LVN_ODFINDITEMA:
      return FindScheme(reinterpret_cast<const NMLVFINDITEMA&>(header));
    case LVN_KEYDOWN:
      if (reinterpret_cast<const NMLVKEYDOWN&>(header).wVKey == VK_SPACE)
        Toggle(SelectedRow(header.hwndFrom));
      return 0;
    case NM_CLICK:
    case NM_DBLCLK: {
      LVHITTESTINFO hit{};
      hit.pt = reinterpret_cast<const NMITEMACTIVATE&>(header).ptAction;
      const int row = ListView_HitTest(header.hwndFrom, &hit);
      if (hit.flags & LVHT_ONITEMSTATEICON) Toggle(row);
      return 0;
    }
    default:
      return 0;
  }
}

// The row that typing letters leads to.
LRESULT CLoadSchemesDialog::FindScheme(const NMLVFINDITEMA& search) const {
  if (!(search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) || !search.lvfi.psz) return -1;
  const std::string start = search.lvfi.psz;
  const std::size_t count = plan_.Schemes.size();
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t row = (static_cast<std::size_t>(std::max(search.iStart, 0)) + i) % count;
    if (IsSameName(plan_.Schemes[row].Name.substr(0, start.size()), start)) return static_cast<LRESULT>(row);
  }
  return -1;
}

// The settings of the row that is selected.
const std::vector<Difference>& CLoadSchemesDialog::Settings() const {
  static const std::vector<Difference> kNone;
  const int row = SelectedRow(Item(IDC_LOAD_LIST));
  return row < 0 ? kNone : plan_.Schemes[static_cast<std::size_t>(row)].Differences;
}

void CLoadSchemesDialog::ShowSettings() {
  const HWND list = Item(IDC_LOAD_SETTINGS);
  ListView_SetItemCount(list, static_cast<int>(Settings().size()));
  StretchListColumn(list, 2);
  FocusFirstRow(list);
  InvalidateRect(list, nullptr, TRUE);
}

void CLoadSchemesDialog::Toggle(int row) {
  if (row < 0) return;
  bool& isChosen = plan_.Schemes[static_cast<std::size_t>(row)].IsChosen;
  isChosen = !isChosen;
  const HWND list = Item(IDC_LOAD_LIST);
  ListView_RedrawItems(list, row, row);
  NotifyWinEvent(EVENT_OBJECT_STATECHANGE, list, OBJID_CLIENT, row + 1);  // for screen readers
  EnableLoad();
}

void CLoadSchemesDialog::CheckEach(bool check) {
  for (SchemeToLoad& scheme : plan_.Schemes)
    scheme.IsChosen = check;
  InvalidateRect(Item(IDC_LOAD_LIST), nullptr, FALSE);
  EnableLoad();
}

void CLoadSchemesDialog::EnableLoad() {
  EnableItem(IDOK, std::ranges::any_of(plan_.Schemes, &SchemeToLoad::IsChosen));
}

void CLoadSchemesDialog::EnableCopy() {
  for (const int id : {IDC_LOAD_COPY_LABEL, IDC_LOAD_COPY_FILE, IDC_LOAD_BROWSE})
    EnableItem(id, IsItemChecked(IDC_LOAD_KEEP_COPY));
}

void CLoadSchemesDialog::BrowseForCopy() {
  FileRequest request = SchemeFileRequest(Window(), 0);  // Load asks before it replaces a file
  request.Title = "Keep a Copy";
  const std::string typed = ItemText(IDC_LOAD_COPY_FILE);
  // The dialog does not open with what is no path.
  if (typed.size() < MAX_PATH && typed.find_first_of("<>\"|?*") == typed.npos) request.Path = typed;
  if (const auto chosen = AskForFileToSave(request)) SetItemText(IDC_LOAD_COPY_FILE, chosen->Path);
}

void CLoadSchemesDialog::OnOK() {
  plan_.KeepsCopy = IsItemChecked(IDC_LOAD_KEEP_COPY);
  plan_.CopyFile = ItemText(IDC_LOAD_COPY_FILE);
  const std::string copy = CopyOf(plan_).Path;
  const bool replaces = plan_.KeepsCopy && GetFileAttributesA(copy.c_str()) != INVALID_FILE_ATTRIBUTES;
  if (replaces && ShowWarning(Window(), copy + " already exists.\nDo you want to replace it ?",
                              "Load Schemes", MB_YESNO | MB_DEFBUTTON2) != IDYES)
    return;
  EndDialog(IDOK);
}

std::string CLoadSchemesDialog::CellText(UINT_PTR list, std::size_t row, int column) const {
  switch (list) {
    case IDC_LOAD_LIST:
      return SchemeCell(plan_.Schemes[row], column);
    case IDC_LOAD_SETTINGS:
      return SettingCell(Settings()[row], column);
    default:
      return column == 0 ? plan_.Damage[row].Scheme : plan_.Damage[row].Text;
  }
}

void CLoadSchemesDialog::FillIn(UINT_PTR list, LVITEMA& item) const {
  const auto row = static_cast<std::size_t>(item.iItem);
  if (list == IDC_LOAD_LIST && (item.mask & LVIF_STATE)) {
    item.stateMask = LVIS_STATEIMAGEMASK;
    item.state = INDEXTOSTATEIMAGEMASK(plan_.Schemes[row].IsChosen ? 2 : 1);
  }
  if (item.mask & LVIF_TEXT)
    lstrcpynA(item.pszText, OnOneLine(CellText(list, row, item.iSubItem)).c_str(), item.cchTextMax);
}
