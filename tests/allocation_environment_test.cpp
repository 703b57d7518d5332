// The environment code: what the component says, and what it may do to the program.

#include "allocation/environment_code.h"

#include <gtest/gtest.h>

#include "support/environment_component.h"

namespace {

// What code of the platform's own compiler throws.
void Throw() {
  const ULONG_PTR arguments[4] = {0x19930520};
  RaiseException(0xE06D7363, EXCEPTION_NONCONTINUABLE, 4, arguments);
}
void Crash() { *static_cast<volatile int*>(nullptr) = 0; }

HRESULT TellSix(LONG* code) {
  *code = 6;
  return E_FAIL;
}

// The code of a machine with such a component (none without a call), which must be released whatever happens.
int Ask(
    EnvironmentComponent::Call call, std::function<void()> onRelease = [] {}) {
  EnvironmentComponent component(std::move(call));
  component.OnRelease = std::move(onRelease);
  const int before = component.References;
  const int code = QueryEnvironmentCode();
  EXPECT_EQ(component.References, before);
  return code;
}

TEST(EnvironmentCode, IsWhatTheComponentSaysWhateverStatusComesWithIt) {
  EXPECT_EQ(Ask(nullptr), 99) << "without a component";
  EXPECT_EQ(Ask(&TellSix), 6);
  EXPECT_EQ(Ask([](LONG*) { return S_OK; }), 99);
}

TEST(EnvironmentCode, SurvivesAComponentThatThrowsOrCrashes) {
  const std::pair<const char*, void (*)()> faults[] = {
      {"own exception", [] { throw 1; }}, {"foreign exception", &Throw}, {"crash", &Crash}};
  for (const auto& [name, fault] : faults) {
    SCOPED_TRACE(name);
    EXPECT_EQ(Ask([fault = fault](LONG* code) { return TellSix(code), fault(), S_OK; }), 99);
    EXPECT_EQ(Ask(&TellSix, fault), 6) << "it was told before";
#ifndef _WIN64
    // The 32-bit compiler's own exceptions do not get through the system's code to anybody.
    if (fault == faults[0].second) continue;
#endif
    EnvironmentComponent component(&TellSix);
    component.OnCreate = fault;
    EXPECT_EQ(QueryEnvironmentCode(), 99);
  }
}

}  // namespace
