// Results as JSON, in UTF-8. The keys are documented: scripts depend on them. The library behind it stays in
// json.cpp.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "cli/output.h"

// An object. Its keys come out in the order in which they were set.
class Json {
 public:
  Json();
  Json(Json&& other) noexcept;
  ~Json();
  Json& operator=(Json&&) = delete;

  Json& SetText(const char* key, const std::string& ansi);
  Json& SetNumber(const char* key, std::int64_t number);
  Json& SetFlag(const char* key, bool flag);
  Json& SetNull(const char* key);
  Json& SetList(const char* key, std::vector<Json> objects);

  void Print(Output& output) const;

 private:
  struct Object;
  std::unique_ptr<Object> object_;
};
