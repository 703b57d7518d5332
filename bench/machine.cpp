#include "machine.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "base/unique_handle.h"
#include "model/scheme_layout.h"
#include "registry/registry_paths.h"

namespace {

std::string Numbered(const char* format, int a, int b = 0) {
  char text[200];
  std::snprintf(text, sizeof(text), format, a, b);
  return text;
}

struct TreeMaker {
  std::string AddKey(const std::string& key) {
    Tree.push_back({key, "", kKeyOnly, ""});
    return key;
  }
  void AddText(const std::string& key, const std::string& name, const std::string& text) {
    Tree.push_back({key, name, REG_SZ, std::string(text.c_str(), text.size() + 1)});
  }
  void AddNumber(const std::string& key, const std::string& name, DWORD number) {
    Tree.push_back(
        {key, name, REG_DWORD, std::string(reinterpret_cast<const char*>(&number), sizeof(number))});
  }
  // The key with every value of the table: the texts name the scheme, the record and the value, the numbers
  // are 0 and 1.
  template <class Record, std::size_t Size>
  void AddFields(const std::string& key, const FieldTable<Record, Size>& fields, int scheme, int record) {
    AddKey(key);
    int flag = 0;
    for (const Field<Record>& field : fields) {
      if (std::holds_alternative<typename Field<Record>::Number>(field.Member)) {
        AddNumber(key, field.Name, static_cast<DWORD>((scheme + record + ++flag) % 2));
      } else {
        AddText(key, field.Name, Numbered("C:\\School\\Year %d\\Folder %d\\", scheme, record) + field.Name);
      }
    }
  }

  RegistryTree Tree;
};

void AddDescription(TreeMaker& maker, const std::string& name, int scheme) {
  maker.AddText(kSchemesKey, name, Numbered("The scheme of class %d", scheme));
}

void AddScheme(TreeMaker& maker, const std::string& name, int scheme) {
  const std::string path = maker.AddKey(SchemeKeyPath(name));
  maker.AddText(path, "Scheme Name", name);
  maker.AddNumber(maker.AddKey(path + "\\FolderDisplay"), "RootFolderCount", 2);
  for (int n = 1; n <= 2; ++n)
    maker.AddFields(path + Numbered("\\FolderDisplay\\Root %d", n), kFolderRootFields, scheme, n);
  maker.AddNumber(maker.AddKey(path + "\\WebLinks"), "WebLinksCount", 2);
  for (int n = 1; n <= 2; ++n)
    maker.AddFields(path + Numbered("\\WebLinks\\WebLink %d", n), kWebLinkFields, scheme, n);
  maker.AddFields(path + "\\TabSelection", kTabSelectionFields, scheme, 0);
  maker.AddKey(path + "\\ToolBars");
  for (int n = 1; n <= 3; ++n)
    maker.AddFields(path + Numbered("\\ToolBars\\Page %d", n), kToolBarPageFields, scheme, n);
  maker.AddFields(path + "\\Defaults", kDefaultsFields, scheme, 0);
}

void ReadKey(const std::string& path, RegistryTree& tree) {
  UniqueKey key;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_READ, key.Put()) != ERROR_SUCCESS) return;
  tree.push_back({path, "", kKeyOnly, ""});
  char name[260];
  char data[1024];
  for (DWORD index = 0;; ++index) {
    DWORD nameSize = sizeof(name);
    DWORD dataSize = sizeof(data);
    DWORD type = 0;
    if (RegEnumValueA(key.Get(), index, name, &nameSize, nullptr, &type, reinterpret_cast<BYTE*>(data),
                      &dataSize)) {
      break;
    }
    tree.push_back({path, name, type, std::string(data, dataSize)});
  }
  for (DWORD index = 0;; ++index) {
    DWORD nameSize = sizeof(name);
    if (RegEnumKeyExA(key.Get(), index, name, &nameSize, nullptr, nullptr, nullptr, nullptr)) break;
    ReadKey(path + "\\" + name, tree);
  }
}

}  // namespace

RegistryTree MakeSchemes(int count) {
  TreeMaker maker;
  maker.AddKey(kSchemesKey);
  for (int i = 1; i <= count; ++i)
    AddDescription(maker, Numbered("Scheme %03d", i), i);
  for (int i = 1; i <= count; ++i)
    AddScheme(maker, Numbered("Scheme %03d", i), i);
  return maker.Tree;
}

RegistryTree MakeScheme(const std::string& name, int number) {
  TreeMaker maker;
  maker.AddKey(kSchemesKey);
  AddDescription(maker, name, number);
  AddScheme(maker, name, number);
  return maker.Tree;
}

RegistryTree MakeShell(const std::string& pictures) {
  TreeMaker maker;
  maker.AddText(maker.AddKey(kSettingsKey), "Default Pictures", pictures);
  maker.AddText(maker.AddKey(kProtectedSchemesKey), "Scheme 001", "");
  return maker.Tree;
}

void WriteTree(const RegistryTree& tree) {
  UniqueKey key;
  for (const RegistryValue& value : tree) {
    if (value.Type == kKeyOnly) {
      RegCreateKeyExA(HKEY_LOCAL_MACHINE, value.Key.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr,
                      key.Put(), nullptr);
    } else {
      RegSetValueExA(key.Get(), value.Name.c_str(), 0, value.Type,
                     reinterpret_cast<const BYTE*>(value.Data.data()), static_cast<DWORD>(value.Data.size()));
    }
  }
}

RegistryTree ReadTree(const std::string& path) {
  RegistryTree tree;
  ReadKey(path, tree);
  std::sort(tree.begin(), tree.end());
  return tree;
}

void EmptyKey(const std::string& path) {
  UniqueKey key;
  if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, path.c_str(), 0, KEY_ALL_ACCESS, key.Put()) == ERROR_SUCCESS) {
    RegDeleteTreeA(key.Get(), nullptr);
  }
}
