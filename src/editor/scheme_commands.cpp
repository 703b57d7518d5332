#include "editor/scheme_commands.h"

#include <utility>
#include <vector>

#include "base/names.h"
#include "controls/message.h"
#include "editor/my_property_sheet.h"
#include "editor/scheme_creation_dialog.h"
#include "editor/scheme_name_dialog.h"

namespace {

bool IsBlank(const std::string& name) { return name.find_first_not_of(' ') == name.npos; }

// Asks for another name until it is neither blank nor that of another scheme. `ownName` is the name of the
// scheme that is edited, "" for a new one. False when it could not be asked.
bool SettleName(HWND owner, const SchemeCatalogue& catalogue, const std::string& ownName, std::string& name) {
  while (IsBlank(name) || (!IsSameName(name, ownName) && catalogue.IsTaken(name))) {
    CSchemeNameDialog dialog(name);
    if (dialog.DoModal(owner) != IDOK) return false;
    name = dialog.Name();
  }
  return true;
}

// Reads the scheme as the registry has it now. Says so and returns false where the registry refuses to give
// all of it: what is then missing on the screen would be written back over what is there.
bool OpenScheme(HWND owner, const SchemeCatalogue& catalogue, const SchemeEntry& entry,
                SchemeProperties& scheme) {
  if (catalogue.ReadScheme(entry, scheme) != Outcome::kFailed) return true;
  ShowWarning(owner, entry.Name + " could not be read, so it is left as it is.\nPlease try again later.",
              "Error");
  return false;
}

// What a new scheme starts from: the last scheme of that name, or, on a machine without, an empty one with
// all three tabs.
bool ReadSource(HWND owner, const SchemeCatalogue& catalogue, const std::string& name,
                SchemeProperties& source) {
  if (const auto found = catalogue.Find(name))
    return OpenScheme(owner, catalogue, catalogue.Schemes()[*found], source);
  source.Tabs = {1, 1, 1};
  return true;
}

std::vector<std::string> NamesOf(const SchemeCatalogue& catalogue) {
  std::vector<std::string> names;
  for (const SchemeEntry& scheme : catalogue.Schemes())
    names.push_back(scheme.Name);
  return names;
}

// What follows the name of a scheme that stays as it is.
struct Refusal {
  const char* BuiltIn;
  const char* Ambiguous;
};
constexpr Refusal kNotEdited{" is a built in scheme and cannot be edited",
                             " cannot be told apart from another scheme and cannot be edited"};
constexpr Refusal kNotRemoved{" is a built in scheme and cannot be removed",
                              " cannot be told apart from another scheme and cannot be removed"};

// Whether the scheme may be changed; tells the user when it may not.
bool MayChange(HWND owner, const SchemeCatalogue& catalogue, const std::string& name,
               const Refusal& refusal) {
  const char* reason = nullptr;
  if (catalogue.IsProtected(name)) {
    reason = refusal.BuiltIn;
  } else if (catalogue.IsAmbiguous(name)) {
    reason = refusal.Ambiguous;
  }
  if (reason) ShowWarning(owner, name + reason, "Error");
  return !reason;
}

}  // namespace

std::optional<std::string> EditScheme(HWND owner, SchemeCatalogue& catalogue, std::size_t index,
                                      const PictureFolders& folders) {
  const SchemeEntry entry = catalogue.Schemes()[index];
  SchemeProperties edited;
  if (!MayChange(owner, catalogue, entry.Name, kNotEdited) || !OpenScheme(owner, catalogue, entry, edited))
    return std::nullopt;
  CMyPropertySheet sheet("Existing Scheme Properties", edited, folders);
  if (!sheet.Run(owner)) return std::nullopt;
  sheet.CopyTo(edited);
  if (!SettleName(owner, catalogue, entry.Name, edited.Name)) return std::nullopt;
  if (catalogue.Replace(index, edited) != ChangeResult::kDone) {
    ShowWarning(owner, edited.Name + " could not be saved completely.\nThe list shows what is stored now.",
                "Error");
  }
  return catalogue.Schemes()[index].Name;
}

std::optional<std::string> CreateScheme(HWND owner, SchemeCatalogue& catalogue,
                                        const std::string& selectedScheme, const PictureFolders& folders) {
  CSchemeCreationDialog creation(NamesOf(catalogue), selectedScheme);
  if (creation.DoModal(owner) != IDOK) return std::nullopt;
  SchemeProperties created;
  if (!ReadSource(owner, catalogue, creation.Source(), created)) return std::nullopt;
  CMyPropertySheet sheet("New Scheme Properties", created, folders);
  if (!sheet.Run(owner)) return std::nullopt;
  sheet.CopyTo(created);
  if (!SettleName(owner, catalogue, "", created.Name)) return std::nullopt;
  (void)catalogue.Append(created);
  return created.Name;
}

bool DeleteScheme(HWND owner, SchemeCatalogue& catalogue, const std::string& name) {
  if (name.empty()) {
    ShowWarning(owner,
                "As the name of this scheme is a blank deleting it is not possible.\n"
                "Please contact your system administrator for help",
                "Error");
    return false;
  }
  catalogue.LoadProtectedSchemes();
  if (!MayChange(owner, catalogue, name, kNotRemoved)) return false;
  if (ShowWarning(owner, "Are you sure you want to delete this scheme ?", "Scheme Deletion", MB_OKCANCEL) !=
      IDOK) {
    return false;
  }
  (void)catalogue.Remove(name);
  return true;
}
