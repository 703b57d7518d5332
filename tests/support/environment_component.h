// A real environment component, served by this process (CoRegisterClassObject) while the object lives.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <objbase.h>

#include <functional>
#include <memory>

class EnvironmentComponent {
 public:
  // What the one operation of the component does that counts; a call of any other fails the test.
  using Operation = std::function<HRESULT(LONG* code)>;

  explicit EnvironmentComponent(Operation operation);
  ~EnvironmentComponent();
  EnvironmentComponent(const EnvironmentComponent&) = delete;
  EnvironmentComponent& operator=(const EnvironmentComponent&) = delete;

 private:
  class Object;
  class Factory;

  const std::unique_ptr<Object> object_;
  const std::unique_ptr<Factory> factory_;
  DWORD registration_ = 0;
};
