// A row of a layout table: where one value of a record stands in the registry and in a scheme file, and which
// member holds it. A table lists its rows in the order in which the registry values are read; where another
// order is wanted, InOrder makes it from the names, checked by the compiler.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

template <class Record>
struct Field {
  using Text = std::string Record::*;
  using Number = std::uint32_t Record::*;

  const char* Name;                   // registry value name
  std::variant<Text, Number> Member;  // a REG_SZ or a REG_DWORD
  const char* Label = Name;           // second key of its record in a scheme file
};

template <class Record, std::size_t Size>
using FieldTable = std::array<Field<Record>, Size>;

// The rows of `table` named by `names`, in that order. Does not compile when a name is not in the table.
template <class Record, std::size_t Size, std::size_t Count>
consteval FieldTable<Record, Count> InOrder(const FieldTable<Record, Size>& table,
                                            const std::array<std::string_view, Count>& names) {
  const auto find = [&table](std::string_view name) -> const Field<Record>& {
    for (const auto& field : table) {
      if (name == field.Name) return field;
    }
    throw "no such field";
  };
  return [&]<std::size_t... I>(std::index_sequence<I...>) {
    return FieldTable<Record, Count>{find(names[I])...};
  }
  (std::make_index_sequence<Count>{});
}
