#include "app/catalogue_messages.h"

#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "controls/command_guard.h"
#include "controls/message.h"

namespace {

// Some forty lines of a message box: more would not fit the smallest screen.
constexpr std::size_t kMaxNamesLength = 4000;

}  // namespace

std::string JoinNames(const std::vector<std::string>& names) {
  std::string text;
  std::size_t named = 0;
  for (; named < names.size() && text.size() + names[named].size() <= kMaxNamesLength; ++named) {
    if (named > 0) text += ", ";
    text += names[named];
  }
  if (named < names.size()) text += " and " + std::to_string(names.size() - named) + " more";
  // A message would end at it.
  std::ranges::replace(text, '\0', '?');
  return text;
}

void EndWithoutSchemes() {
  // It may come in the middle of a command.
  DropInput();
  ShowWarning(nullptr,
              "There has been a problem reading Kelvanstead Settings.\n"
              "This is due to Kelvanstead not being installed or the settings have become damaged.\n"
              "It is recommended that Kelvanstead is reinstalled.\n\n"
              "Kelvanstead Scheme Manager can not run so will now exit",
              "Serious Problem");
  ExitProcess(0);
}

void LoadCatalogueOrEnd(SchemeCatalogue& catalogue, std::size_t maxSchemes) {
  if (catalogue.LoadCatalogue(maxSchemes) == CatalogueResult::kNoSchemesKey) EndWithoutSchemes();
}

void ReportUnreadableSchemes(const SchemeCatalogue& catalogue) {
  if (catalogue.Unreadable().empty()) return;
  ShowWarning(nullptr,
              "The following scheme/s could not be read:\n" + JoinNames(catalogue.Unreadable()) +
                  ".\n\nIt's recommended that they are reloaded from a valid\n"
                  "Kelvanstead Scheme Manager configuration file.",
              "Schemes Problem");
}
