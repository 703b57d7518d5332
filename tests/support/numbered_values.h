// Values that are all different, so that one in another's place is seen.
#pragma once

#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "support/scheme_file_bytes.h"

struct NumberedValues {
  std::string Tree;               // for WriteTree
  std::string File;               // the same as the records of a file
  std::vector<std::string> Keys;  // in the order of their coming

  // Adds a key. Rows are "name in the registry:label in a file", or one for both, with commas between. The
  // n-th row of all holds the text "text n"; behind # it holds the number n, behind * the count 2.
  void Add(const std::string& key, const std::string& rows, const std::string& owner = "") {
    Keys.push_back(key);
    Tree += "[" + key + "]";
    std::istringstream list(rows);
    for (std::string row; std::getline(list, row, ',');) {
      const std::size_t start = row.find_first_not_of("#*"), colon = row.find(':');
      const int number = row[0] == '*' ? 2 : ++number_;
      char value[16];
      std::snprintf(value, sizeof(value), start == 1 ? "dword:%x" : "\"text %d\"", number);
      Tree += '"' + row.substr(start, colon - start) + "\"=" + value;
      File += Bytes(owner + "|" + row.substr(colon == row.npos ? start : colon + 1) + "|" +
                    (start == 1 ? "" : "text ") + std::to_string(number) + "|");
    }
  }

 private:
  int number_ = 0;
};
