// Owners of Windows handles.
//
// A UniqueHandle closes what it holds, once, when it is reset or destroyed. It can be moved, not copied.
// One alias a kind of handle; those of windows are in controls/window_handles.h.
#pragma once

#include <windows.h>

#include <type_traits>
#include <utility>

template <class Handle, auto Close>
class UniqueHandle {
 public:
  UniqueHandle() = default;
  // Takes ownership. INVALID_HANDLE_VALUE counts as no handle.
  explicit UniqueHandle(Handle handle) : handle_(Valid(handle)) {}
  UniqueHandle(UniqueHandle&& other) noexcept : handle_(other.Release()) {}
  UniqueHandle& operator=(UniqueHandle&& other) noexcept {
    if (this != &other) Reset(other.Release());
    return *this;
  }
  ~UniqueHandle() { Reset(); }

  Handle Get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }
  Handle Release() { return std::exchange(handle_, nullptr); }
  void Reset(Handle handle = nullptr) {
    if (handle_) Close(handle_);
    handle_ = Valid(handle);
  }
  // For functions that hand out a handle through a pointer. Closes what is held first.
  Handle* Put() {
    Reset();
    return &handle_;
  }

 private:
  static Handle Valid(Handle handle) {
    if constexpr (std::is_same_v<Handle, HANDLE>) {
      if (handle == INVALID_HANDLE_VALUE) return nullptr;
    }
    return handle;
  }

  Handle handle_ = nullptr;
};

using UniqueKey = UniqueHandle<HKEY, &RegCloseKey>;
using UniqueFile = UniqueHandle<HANDLE, &CloseHandle>;
using UniqueFind = UniqueHandle<HANDLE, &FindClose>;
using UniqueProcess = UniqueHandle<HANDLE, &CloseHandle>;
using UniqueSnapshot = UniqueHandle<HANDLE, &CloseHandle>;
