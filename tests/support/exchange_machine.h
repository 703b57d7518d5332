// A machine with the shell but without schemes, and a folder for files.
#pragma once

#include <windows.h>

#include <string>

#include "model/scheme_storage.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "support/registry_test.h"
#include "support/sample_schemes.h"
#include "support/scratch_folder.h"

class ExchangeMachineTest : public RegistryTest {
 protected:
  void SetUp() override {
    RegistryTest::SetUp();
    ClearSchemes();
  }

  void ClearSchemes() {
    RegDeleteTreeA(HKEY_LOCAL_MACHINE, kSchemesKey);
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "");
  }
  void Add(const SchemeProperties& scheme) {
    WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "\"" + scheme.Name + "\"=\"For " + scheme.Name + "\"");
    ASSERT_TRUE(SaveSchemeProperties(scheme.Name, scheme));
  }
  std::string Schemes() { return DumpTree(HKEY_LOCAL_MACHINE, kSchemesKey); }

  // The schemes that have a key, each with its number of roots.
  std::string RootCounts() {
    std::string counts;
    ForEachSubkey(OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_READ).Get(), [&](const std::string& name) {
      SchemeProperties scheme;
      (void)LoadFolderDisplay(name, scheme);
      counts += name + ":" + std::to_string(scheme.FolderRoots.size()) + " ";
    });
    return counts;
  }

  const ScratchFolder folder_;
  const std::string path_ = folder_.File("schemes.ksf");
};
