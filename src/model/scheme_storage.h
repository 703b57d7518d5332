// Schemes in the registry: loads and saves SchemeProperties by the tables of scheme_layout.h.
//
// All operations return what happened and show nothing. Loading a section starts from a fresh one and keeps
// what could be read: a missing or damaged value leaves its field empty or 0, a missing section its list
// empty. Saving never deletes: items beyond a shrunken count stay behind, unread. Saving writes nothing at
// all, and fails, where the shell's own key is missing; two operations leave it to their callers to ask. A
// name that cannot be the name of a scheme (see IsSchemeName) fails at once and touches nothing.
//
// Loading reads no more than kMaxItems items of a list, and of a damaged list only as far as there are items;
// it is complete only if the list then holds as many as stated. The list's own length is what is saved.
#pragma once

#include <windows.h>

#include <string>

#include "base/outcome.h"
#include "model/scheme_properties.h"

// Whether the value `name` of the Schemes key stands for a scheme: a key of its name can be opened
// (RegOpenKeyExA). The unnamed value does, since the Schemes key itself answers to its name; it shows as a
// blank scheme. Incomplete where there is no such key, or none can be; failed where it could not be opened
// for another reason.
Outcome FindSchemeKey(const std::string& name);

// Loads the five sections FolderDisplay, WebLinks, TabSelection, ToolBars and Defaults of the scheme `name`,
// each even if an earlier one failed. Complete when all five are. Does not touch Name and Description.
Outcome LoadSchemeProperties(const std::string& name, SchemeProperties& scheme);

// Writes "Scheme Name" under the key of `name`, then the five sections under the key of scheme.Name. True
// when everything was written.
[[nodiscard]] bool SaveSchemeProperties(const std::string& name, const SchemeProperties& scheme);

// The same under scheme.Name for one scheme of many: does not ask whether the shell is there. For a caller
// who holds the Schemes key open, which lies below the shell's.
[[nodiscard]] bool SaveSchemeOfMany(const SchemeProperties& scheme);

// Adds to the stored scheme `name` what SaveSchemeProperties would write of it and is not there: "Scheme
// Name", sections and values, empty or 0. Leaves everything that is there alone, whatever it is, and adds no
// items. For a caller who holds the Schemes key open. False when something that is missing could not be
// added.
[[nodiscard]] bool AddMissingProperties(const std::string& name);

// The sections and items one by one; `number` counts from 1. Loading an item leaves the field of a missing
// value as it was.
Outcome LoadFolderDisplay(const std::string& name, SchemeProperties& scheme);
Outcome LoadWebLinks(const std::string& name, SchemeProperties& scheme);
Outcome LoadTabSelection(const std::string& name, SchemeProperties& scheme);
Outcome LoadToolBars(const std::string& name, SchemeProperties& scheme);
Outcome LoadDefaults(const std::string& name, SchemeProperties& scheme);
[[nodiscard]] bool SaveFolderDisplay(const std::string& name, const SchemeProperties& scheme);
[[nodiscard]] bool SaveWebLinks(const std::string& name, const SchemeProperties& scheme);
[[nodiscard]] bool SaveTabSelection(const std::string& name, const SchemeProperties& scheme);
[[nodiscard]] bool SaveToolBars(const std::string& name, const SchemeProperties& scheme);
[[nodiscard]] bool SaveDefaults(const std::string& name, const SchemeProperties& scheme);
Outcome LoadFolderRoot(const std::string& name, int number, FolderRoot& root);
Outcome LoadWebLink(const std::string& name, int number, WebLink& link);
Outcome LoadToolBarPage(const std::string& name, int number, ToolBarPage& page);
[[nodiscard]] bool SaveFolderRoot(const std::string& name, int number, const FolderRoot& root);
[[nodiscard]] bool SaveWebLink(const std::string& name, int number, const WebLink& link);
[[nodiscard]] bool SaveToolBarPage(const std::string& name, int number, const ToolBarPage& page);
