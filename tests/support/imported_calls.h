// Calls of Windows functions, seen or made to fail on their way through the import table of this program.
//
//   ImportedCalls calls({IMPORTED(RegSetValueExA), IMPORTED(RegCreateKeyExA)});
//   calls.FailNth(3, ERROR_DISK_FULL);
//   SaveEverything();
//   EXPECT_EQ(calls.Lines(), (std::vector<std::string>{"RegCreateKeyExA Tabs", "RegSetValueExA Page1",
//   ...}));
//
// The table is that of the whole program: what a test itself calls meanwhile counts too.
#pragma once

#include <windows.h>

#include <algorithm>
#include <deque>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

// The names of all functions that this program imports.
std::vector<std::string> ImportedFunctions();

// Puts a function in the place of an imported one while it lives. Throws std::runtime_error when this program
// imports no function of that name.
class Diversion {
 public:
  Diversion(const char* function, void* replacement);
  ~Diversion();
  Diversion(const Diversion&) = delete;
  Diversion& operator=(const Diversion&) = delete;

  void* Original() const { return original_; }

 private:
  void** slot_;
  void* original_;
};

// A function that can be watched; made by IMPORTED.
struct ImportedFunction {
  const char* Name;
  void* Watcher;
  void** Original;
};

// Watches functions while it lives; there is one at a time.
class ImportedCalls {
 public:
  explicit ImportedCalls(std::initializer_list<ImportedFunction> functions);
  ~ImportedCalls();

  // The n-th call from here on, counted from 1 over all watched functions, fails with the error: it is not
  // carried out. 0: none.
  void FailNth(int n, DWORD error);
  // So does every call whose line contains the text. "": none.
  void FailEach(std::string text, DWORD error);

  // The calls, the failed ones too: the function and the texts that it was given, with blanks between.
  const std::vector<std::string>& Lines() const { return lines_; }
  int Failures() const { return failures_; }

  // The error that a call is to fail with, 0 when it is to be carried out. For the watchers.
  static DWORD OnCall(std::string line);

 private:
  std::deque<Diversion> diversions_;
  std::vector<std::string> lines_;
  std::string failingText_;
  int untilFailure_ = 0, failures_ = 0;
  DWORD error_ = 0;
};

// How IMPORTED makes a watcher of any function's signature.
namespace imported_calls {

template <std::size_t Size>
struct FunctionName {
  char Text[Size];
  constexpr FunctionName(const char (&text)[Size]) { std::copy_n(text, Size, Text); }
};

// Only texts that go in count: a buffer for a text that comes out is a char*.
template <class Argument>
void AddText(std::string& line, Argument argument) {
  if constexpr (std::is_same_v<Argument, const char*>) {
    if (argument) line.append(" ").append(argument);
  } else if constexpr (std::is_same_v<Argument, const wchar_t*>) {
    char text[MAX_PATH] = "";
    if (argument) WideCharToMultiByte(CP_ACP, 0, argument, -1, text, MAX_PATH, nullptr, nullptr);
    line.append(" ").append(text);
  }
}

// Functions that tell of failure by -1.
bool FailsByMinusOne(const std::string& function);

template <class Result>
Result Failure(const char* function, DWORD error) {
  SetLastError(error);
  if constexpr (std::is_same_v<Result, LSTATUS>) {
    return static_cast<LSTATUS>(error);
  } else {
    return FailsByMinusOne(function) ? (Result)-1 : Result{};
  }
}

template <FunctionName Name, class Signature>
struct Watched;

template <FunctionName Name, class Result, class... Arguments>
struct Watched<Name, Result WINAPI(Arguments...)> {
  static inline Result(WINAPI* original)(Arguments...) = nullptr;

  static Result WINAPI Call(Arguments... arguments) {
    std::string line = Name.Text;
    (AddText(line, arguments), ...);
    const DWORD error = ImportedCalls::OnCall(std::move(line));
    return error ? Failure<Result>(Name.Text, error) : original(arguments...);
  }
  static ImportedFunction Function() {
    return {Name.Text, reinterpret_cast<void*>(&Call), reinterpret_cast<void**>(&original)};
  }
};

}  // namespace imported_calls

#define IMPORTED(function) (imported_calls::Watched<#function, decltype(function)>::Function())
