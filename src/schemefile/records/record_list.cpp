#include "schemefile/records/record_list.h"

SchemeRecord RecordList::operator[](std::size_t position) const {
  const Place& place = places_[position];
  const char* const key1 = text_.data() + place.Start;
  const char* const key2 = key1 + place.Key1Size + 1;
  const char* const value = key2 + place.Key2Size + 1;
  return {{key1, place.Key1Size}, {key2, place.Key2Size}, {value, place.ValueSize}};
}

void RecordList::Append(const SchemeRecord& record) {
  places_.push_back({static_cast<std::uint32_t>(text_.size()), static_cast<std::uint32_t>(record.Key1.size()),
                     static_cast<std::uint32_t>(record.Key2.size()),
                     static_cast<std::uint32_t>(record.Value.size())});
  for (const std::string_view text : {record.Key1, record.Key2, record.Value})
    text_.append(text).push_back(kFieldTerminator);
}

void RecordList::Clear() {
  text_.clear();
  places_.clear();
}
