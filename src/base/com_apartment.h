#pragma once

#include <windows.h>

#include <objbase.h>

// COM on this thread while this stands (CoInitialize, CoUninitialize).
class ComApartment {
 public:
  ComApartment() : initialised_(SUCCEEDED(CoInitialize(nullptr))) {}
  ~ComApartment() {
    if (initialised_) CoUninitialize();
  }
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;

 private:
  const bool initialised_;
};
