#include "support/command_line.h"

#include <cstring>
#include <regex>
#include <stdexcept>
#include <utility>

#include "base/names.h"
#include "model/scheme_storage.h"
#include "registry/registry_access.h"
#include "registry/registry_paths.h"
#include "support/registry_test.h"
#include "support/sample_schemes.h"

namespace {

constexpr DWORD kPatience = 60000;
constexpr char kTessaly[] = "Software\\Tessaly";
constexpr char kClass[] = "Software\\Classes\\CLSID\\{E656B628-C6DD-4125-931C-5FCA10F47A42}";
// Stands there while what else stands there is a test's.
constexpr char kMark[] = "Software\\Kelvanstead Scheme Manager Tests\\Machine";

const std::pair<HKEY, const char*> kPlaces[] = {{HKEY_LOCAL_MACHINE, kTessaly},
                                                {HKEY_LOCAL_MACHINE, kClass},
                                                {HKEY_CURRENT_USER, kTessaly},
                                                {HKEY_CURRENT_USER, "Software\\Policies\\Tessaly"},
                                                {HKEY_CURRENT_USER, kMark}};

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
  EXPECT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                             Widen(folder.Path()).c_str(), &startup, &started))
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
  if (OpenKey(HKEY_LOCAL_MACHINE, kProductKey, KEY_READ) && !OpenKey(HKEY_CURRENT_USER, kMark, KEY_READ))
    throw std::runtime_error("this machine has a shell of its own");
  TearDown();
  WriteTree(HKEY_CURRENT_USER, kMark, "");
  ClearSchemes();
}

void CommandLineTest::TearDown() {
  for (const auto& [root, path] : kPlaces)
    RegDeleteTreeA(root, path);
}

CommandResult CommandLineTest::Run(const std::string& arguments) {
  return RunningCommand(Widen(arguments), folder_).Finish();
}

void CommandLineTest::ClearSchemes() {
  RegDeleteTreeA(HKEY_LOCAL_MACHINE, kSchemesKey);
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "");
}

void CommandLineTest::InstallEnvironment() {
  const std::string path = std::regex_replace(BesideTests("Environment.dll"), std::regex(R"(\\)"), "$&$&");
  WriteTree(HKEY_LOCAL_MACHINE, kClass,
            "[InprocServer32] @=\"" + path + "\" \"ThreadingModel\"=\"Apartment\"");
}

void CommandLineTest::Add(const std::string& name) {
  WriteTree(HKEY_LOCAL_MACHINE, kSchemesKey, "\"" + name + "\"=\"For " + name + "\"");
  ASSERT_TRUE(SaveSchemeProperties(name, Scheme(name)));
}

std::string CommandLineTest::Machine() { return DumpTree(HKEY_LOCAL_MACHINE, kTessaly); }
