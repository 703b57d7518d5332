#include "cli/json.h"

// Nothing here reads or writes streams.
#define JSON_NO_IO
#include <nlohmann/json.hpp>

#include <utility>

#include "cli/text.h"

struct Json::Object {
  nlohmann::ordered_json Value = nlohmann::ordered_json::object();
};

Json::Json() : object_(std::make_unique<Object>()) {}
Json::Json(Json&& other) noexcept = default;
Json::~Json() = default;

Json& Json::SetText(const char* key, const std::string& ansi) {
  object_->Value[key] = ToUtf8(ansi);
  return *this;
}

Json& Json::SetNumber(const char* key, std::int64_t number) {
  object_->Value[key] = number;
  return *this;
}

Json& Json::SetFlag(const char* key, bool flag) {
  object_->Value[key] = flag;
  return *this;
}

Json& Json::SetNull(const char* key) {
  object_->Value[key] = nullptr;
  return *this;
}

Json& Json::SetList(const char* key, std::vector<Json> objects) {
  nlohmann::ordered_json& list = object_->Value[key] = nlohmann::ordered_json::array();
  for (Json& each : objects)
    list.push_back(std::move(each.object_->Value));
  return *this;
}

void Json::Print(Output& output) const { output.PrintUtf8(object_->Value.dump(2) + "\n"); }
