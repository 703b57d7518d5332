// A list of records that owns their texts, all in one piece of memory, of less than 4 GB: a file becomes such
// a list without a copy of any text. Knows nothing of Windows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "schemefile/records/scheme_record.h"

class RecordList {
 public:
  // Where the texts of a record stand: one behind the other from Start on, each with one byte behind it that
  // belongs to none.
  struct Place {
    std::uint32_t Start;
    std::uint32_t Key1Size, Key2Size, ValueSize;
  };

  RecordList() = default;
  // Takes over a text with the places of the records in it.
  RecordList(std::string text, std::vector<Place> places)
      : text_(std::move(text)), places_(std::move(places)) {}

  std::size_t Count() const { return places_.size(); }
  // The texts of the record stay valid until the list changes. Unchecked.
  SchemeRecord operator[](std::size_t position) const;

  // Where the record begins in the text.
  std::size_t Offset(std::size_t position) const { return places_[position].Start; }
  // Of the whole text, with what belongs to no record.
  std::size_t TextSize() const { return text_.size(); }

  // Copies the record's texts, which must not be of this list.
  void Append(const SchemeRecord& record);
  void Clear();

 private:
  std::string text_;
  std::vector<Place> places_;
};
