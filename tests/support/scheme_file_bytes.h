// Scheme files as readable text.
#pragma once

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "schemefile/records/record_splitter.h"
#include "schemefile/records/record_store.h"

// '|' stands for the byte that ends a field.
inline std::string Bytes(std::string text) {
  std::replace(text.begin(), text.end(), '|', '\xAC');
  return text;
}

// The bytes of a sound file. A line is "key1: key2=value; key2=value" and stands for as many records; one
// that begins with a blank goes on with the key1 of the line before it.
inline std::string FileBytes(const std::string& text) {
  std::string file = "Kelvanstead Scheme Manager!|";
  std::string key1;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with(' ')) {
      key1 = line.substr(0, line.find(": "));
      line.erase(0, key1.size() + 1);
    }
    std::istringstream items(line);
    for (std::string item; std::getline(items, item, ';');) {
      const std::size_t equals = item.find('=');
      file += key1 + '|' + item.substr(1, equals - 1) + '|' + item.substr(equals + 1) + '|';
    }
  }
  return Bytes(file);
}

// The records of a list, whose texts stay with it.
inline std::vector<SchemeRecord> Records(const RecordList& list) {
  std::vector<SchemeRecord> records;
  for (std::size_t i = 0; i < list.Count(); ++i)
    records.push_back(list[i]);
  return records;
}

inline RecordList ListOf(const std::vector<SchemeRecord>& records) {
  RecordList list;
  for (const SchemeRecord& record : records)
    list.Append(record);
  return list;
}

// The bytes of a file with the records of a store.
inline std::string FileBytes(const RecordStore& store) {
  RecordList records;
  store.FlushRecordStore(records);
  std::string file(kSignature);
  for (const SchemeRecord& record : Records(records))
    file.append(record.Key1).append(record.Key2).append(record.Value);
  return file;
}
