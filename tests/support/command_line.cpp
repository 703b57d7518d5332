#include "support/command_line.h"

#include <array>
#include <cstring>
#include <regex>

#include "base/names.h"
#include "model/scheme_storage.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "support/registry_test.h"

namespace {

constexpr DWORD kPatience = 60000;
constexpr char kTessaly[] = "Software\\Tessaly";
constexpr char kClass[] = "Software\\Classes\\CLSID\\{E656B628-C6DD-4125-931C-5FCA10F47A42}";
constexpr char kSaved[] = "Software\\Kelvanstead Scheme Manager Tests\\Saved";

struct Place {
  HKEY Root;
  const char* Path;
  const char* Saved;
};
const std::array kPlaces = {
    Place{HKEY_LOCAL_MACHINE, kTessaly, "Machine"},
    Place{HKEY_CURRENT_USER, kTessaly, "User"},
    Place{HKEY_CURRENT_USER, "Software\\Policies\\Tessaly", "Policies"},
    Place{HKEY_LOCAL_MACHINE, kClass, "Class"},
};

// Moves a key with everything below it, if there is one.
void Move(HKEY fromRoot, const std::string& from, HKEY toRoot, const std::string& to) {
  {
    const UniqueKey source = OpenKey(fromRoot, from, KEY_READ);
    if (!source) return;
    UniqueKey target;
    ASSERT_EQ(CreateKey(toRoot, to, KEY_ALL_ACCESS, target), ERROR_SUCCESS);
    ASSERT_EQ(RegCopyTreeA(source.Get(), nullptr, target.Get()), ERROR_SUCCESS);
  }
  ASSERT_EQ(RegDeleteTreeA(fromRoot, from.c_str()), ERROR_SUCCESS);
}

void TakeAway(const Place& place) {
  Move(place.Root, place.Path, HKEY_CURRENT_USER, std::string(kSaved) + "\\" + place.Saved);
}

void PutBack(const Place& place) {
  RegDeleteTreeA(place.Root, place.Path);
  Move(HKEY_CURRENT_USER, std::string(kSaved) + "\\" + place.Saved, place.Root, place.Path);
}

UniqueFile OutputFile(const std::string& path) {
  SECURITY_ATTRIBUTES inherited{sizeof(inherited), nullptr, TRUE};
  return UniqueFile(CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
}

std::string OutputText(const std::string& path) {
  std::string text = ReadFileBytes(path);
  std::erase(text, '\r');
  return text;
}

// A file beside the tests.
std::string BesideTests(const std::string& name) {
  char path[MAX_PATH];
  GetModuleFileNameA(nullptr, path, MAX_PATH);
  return std::string(path, strrchr(path, '\\') + 1) + name;
}

}  // namespace

RunningCommand::RunningCommand(const std::wstring& arguments, const ScratchFolder& folder)
    : resultsPath_(folder.File("results.txt")), problemsPath_(folder.File("problems.txt")) {
  const UniqueFile results = OutputFile(resultsPath_), problems = OutputFile(problemsPath_);
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdOutput = results.Get();
  startup.hStdError = problems.Get();
  std::wstring line = L"\"" + Widen(BesideTests("ksm.exe")) + L"\" " + arguments;
  PROCESS_INFORMATION started{};
  EXPECT_TRUE(
      CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup, &started))
      << GetLastError();
  CloseHandle(started.hThread);
  process_.Reset(started.hProcess);
}

CommandResult RunningCommand::Finish() {
  DWORD code = STILL_ACTIVE;
  EXPECT_EQ(WaitForSingleObject(process_.Get(), kPatience), WAIT_OBJECT_0);
  GetExitCodeProcess(process_.Get(), &code);
  return {code, OutputText(resultsPath_), OutputText(problemsPath_)};
}

bool RunningCommand::Kill() {
  const bool isKilled = TerminateProcess(process_.Get(), 99) != 0;
  return Finish().Code == 99 && isKilled;
}

void CommandLineTest::SetUp() {
  for (const Place& place : kPlaces) {
    if (OpenKey(HKEY_CURRENT_USER, std::string(kSaved) + "\\" + place.Saved, KEY_READ)) PutBack(place);
    TakeAway(place);
  }
}

void CommandLineTest::TearDown() {
  for (const Place& place : kPlaces)
    PutBack(place);
  RegDeleteTreeA(HKEY_CURRENT_USER, kSaved);
}

CommandResult CommandLineTest::Run(const std::string& arguments) {
  return RunningCommand(Widen(arguments), folder_).Finish();
}

void CommandLineTest::InstallShell() { WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, ""); }

void CommandLineTest::InstallEnvironment() {
  const std::string path = std::regex_replace(BesideTests("Environment.dll"), std::regex(R"(\\)"), "$&$&");
  WriteTree(HKEY_LOCAL_MACHINE, kClass,
            "[InprocServer32] @=\"" + path + "\" \"ThreadingModel\"=\"Apartment\"");
}

void CommandLineTest::Add(const SchemeProperties& scheme) {
  const UniqueKey schemes = OpenKey(HKEY_LOCAL_MACHINE, kSchemesKey, KEY_ALL_ACCESS);
  ASSERT_EQ(WriteText(schemes.Get(), scheme.Name, scheme.Description), ERROR_SUCCESS);
  ASSERT_TRUE(SaveSchemeProperties(scheme.Name, scheme));
}

std::string CommandLineTest::Machine() { return DumpTree(HKEY_LOCAL_MACHINE, kTessaly); }
