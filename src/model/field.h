// A row of a layout table: where one value stands in the registry and in a scheme file, and which member
// holds it. A table lists its rows in the order in which the registry values are read; where another order is
// wanted, InOrder makes it from the names, checked by the compiler. Knows nothing of Windows.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

// `Owner` is the section or the item that the value belongs to.
template <class Owner>
struct Field {
  using Text = std::string Owner::*;
  using Number = std::uint32_t Owner::*;

  const char* Name;                   // registry value name
  std::variant<Text, Number> Member;  // a REG_SZ or a REG_DWORD
  const char* Label = Name;           // second key of its record in a scheme file
};

template <class Owner, std::size_t Size>
using FieldTable = std::array<Field<Owner>, Size>;

// The row of that name. In a constant expression a name that is not in the table does not compile.
template <class Owner, std::size_t Size>
constexpr const Field<Owner>& FieldNamed(const FieldTable<Owner, Size>& table, std::string_view name) {
  for (const Field<Owner>& field : table) {
    if (name == field.Name) return field;
  }
  throw "no such field";
}

// The rows of `table` in the order of `names`. Does not compile unless each of its rows is named once.
template <class Owner, std::size_t Size>
consteval FieldTable<Owner, Size> InOrder(const FieldTable<Owner, Size>& table,
                                          const std::array<std::string_view, Size>& names) {
  for (std::size_t i = 0; i < Size; ++i) {
    if (std::find(names.begin() + i + 1, names.end(), names[i]) != names.end()) throw "a field named twice";
  }
  return [&]<std::size_t... I>(std::index_sequence<I...>) {
    return FieldTable<Owner, Size>{FieldNamed(table, names[I])...};
  }
  (std::make_index_sequence<Size>{});
}

// The rows of `table` but for those named. Does not compile when a name is not in the table.
template <class Owner, std::size_t Size, std::size_t Count>
consteval FieldTable<Owner, Size - Count> Without(const FieldTable<Owner, Size>& table,
                                                  const std::array<std::string_view, Count>& names) {
  for (const std::string_view name : names)
    (void)FieldNamed(table, name);
  std::size_t next = 0;
  const auto take = [&]() -> const Field<Owner>& {
    while (std::find(names.begin(), names.end(), table[next].Name) != names.end())
      ++next;
    return table[next++];
  };
  return [&]<std::size_t... I>(std::index_sequence<I...>) {
    return FieldTable<Owner, Size - Count>{((void)I, take())...};
  }
  (std::make_index_sequence<Size - Count>{});
}

// The rows of both tables.
template <class Owner, std::size_t First, std::size_t Second>
consteval FieldTable<Owner, First + Second> Joined(const FieldTable<Owner, First>& first,
                                                   const FieldTable<Owner, Second>& second) {
  return [&]<std::size_t... I, std::size_t... J>(std::index_sequence<I...>, std::index_sequence<J...>) {
    return FieldTable<Owner, First + Second>{first[I]..., second[J]...};
  }
  (std::make_index_sequence<First>{}, std::make_index_sequence<Second>{});
}

// The table with another label in each of the named rows. Does not compile when a name is not in the table.
template <class Owner, std::size_t Size, std::size_t Count>
consteval FieldTable<Owner, Size> Relabelled(
    FieldTable<Owner, Size> table, const std::pair<std::string_view, const char*> (&labels)[Count]) {
  for (const auto& [name, label] : labels) {
    const auto field = std::ranges::find(table, name, &Field<Owner>::Name);
    if (field == table.end()) throw "no such field";
    field->Label = label;
  }
  return table;
}
