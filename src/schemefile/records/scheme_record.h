#pragma once

#include <string_view>

// One record of a scheme file: a value under a two-part key. Texts are counted, single-byte and unconverted;
// they may hold NUL bytes. They belong to whoever made the record, a RecordList for instance.
struct SchemeRecord {
  std::string_view Key1;   // an item, or a label such as a scheme's name + " - Defaults"
  std::string_view Key2;   // the item within the label, or a description
  std::string_view Value;  // numbers stand in signed decimal

  bool operator==(const SchemeRecord&) const = default;
};

// Every field on disk, the signature included, ends in this byte (the not sign of Windows-1252).
inline constexpr char kFieldTerminator = '\xAC';
