#include "schemefile/record_splitter.h"

#include <algorithm>
#include <string>

bool HasSignature(std::string_view file) { return file.starts_with(kSignature); }

std::vector<SchemeRecord> SplitRecords(std::string_view file) {
  std::vector<SchemeRecord> records;
  records.reserve(static_cast<std::size_t>(std::count(file.begin(), file.end(), kFieldTerminator)) / 3);

  std::size_t start = kSignature.size();
  std::size_t scan = start + 1;  // see the header: the first Key1 is never seen as empty
  while (scan < file.size()) {
    const std::size_t end1 = file.find(kFieldTerminator, scan);
    if (end1 == std::string_view::npos) break;
    const std::size_t end2 = file.find(kFieldTerminator, end1 + 1);
    if (end2 == std::string_view::npos) break;
    const std::size_t end3 = file.find(kFieldTerminator, end2 + 1);
    if (end3 == std::string_view::npos) break;
    records.push_back({std::string(file.substr(start, end1 - start)),
                       std::string(file.substr(end1 + 1, end2 - end1 - 1)),
                       std::string(file.substr(end2 + 1, end3 - end2 - 1))});
    start = scan = end3 + 1;
  }
  return records;
}
