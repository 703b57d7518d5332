// Schemes in the registry: loads and saves SchemeProperties by the tables of scheme_layout.h.
//
// All operations answer success and show nothing. Loading a section starts from a fresh one and keeps what
// could be read: a missing value leaves its field empty or 0, a missing section its list empty. Saving never
// deletes: records beyond a shrunken count stay behind, unread. Saving writes nothing at all, and fails,
// where the shell's own key is missing. A name that cannot be the name of a scheme (see IsSchemeName) fails
// at once and touches nothing.
//
// A stated count is kept as it is held, in both directions. Loading reads no more than kMaxRecords records,
// and of a damaged list only as far as there are records; it succeeds only if the list then holds as many as
// stated. Saving writes no more than the list holds, and succeeds if that is no fewer than stated.
#pragma once

#include <string>
#include <vector>

#include "model/scheme_properties.h"

// Whether `name` can name a scheme's key: not empty, no backslash, no NUL, at most 255 characters.
bool IsSchemeName(const std::string& name);

// Whether the value `name` of the Schemes key stands for a scheme: a key of its name can be opened. The
// unnamed value does, since the Schemes key itself answers to its name; it shows as a blank scheme.
bool HasSchemeKey(const std::string& name);

// Loads the five sections FolderDisplay, WebLinks, TabSelection, ToolBars and Defaults of the scheme `name`,
// each even if an earlier one failed. True when all five loaded. Does not touch Name and Description.
bool LoadSchemeProperties(const std::string& name, SchemeProperties& scheme);

// Writes "Scheme Name" under the key of `name`, then the five sections under the key of scheme.Name. True
// when everything was written.
bool SaveSchemeProperties(const std::string& name, const SchemeProperties& scheme);

// Saves every scheme so under its own name, each even if an earlier one failed. Writes nothing, and fails,
// without the right to change the Schemes key (RegOpenKeyExA with KEY_ALL_ACCESS). Asks for that key once,
// which stands for the shell's own, too.
bool SaveSchemes(const std::vector<SchemeProperties>& schemes);

// The sections and records one by one; `number` counts from 1. Loading a record leaves the field of a missing
// value as it was.
bool LoadFolderDisplay(const std::string& name, SchemeProperties& scheme);
bool LoadWebLinks(const std::string& name, SchemeProperties& scheme);
bool LoadTabSelection(const std::string& name, SchemeProperties& scheme);
bool LoadToolBars(const std::string& name, SchemeProperties& scheme);
bool LoadDefaults(const std::string& name, SchemeProperties& scheme);
bool SaveFolderDisplay(const std::string& name, const SchemeProperties& scheme);
bool SaveWebLinks(const std::string& name, const SchemeProperties& scheme);
bool SaveTabSelection(const std::string& name, const SchemeProperties& scheme);
bool SaveToolBars(const std::string& name, const SchemeProperties& scheme);
bool SaveDefaults(const std::string& name, const SchemeProperties& scheme);
bool LoadFolderRoot(const std::string& name, int number, FolderRoot& root);
bool SaveFolderRoot(const std::string& name, int number, const FolderRoot& root);
bool LoadWebLink(const std::string& name, int number, WebLink& link);
bool SaveWebLink(const std::string& name, int number, const WebLink& link);
bool LoadToolBarPage(const std::string& name, int number, ToolBarPage& page);
bool SaveToolBarPage(const std::string& name, int number, const ToolBarPage& page);
