#include "schemefile/records/record_splitter.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

bool HasSignature(std::string_view file) { return file.starts_with(kSignature); }

RecordList SplitRecords(std::string file) {
  std::vector<RecordList::Place> places;
  places.reserve(static_cast<std::size_t>(std::count(file.begin(), file.end(), kFieldTerminator)) / 3);

  std::size_t start = kSignature.size();
  std::size_t scan = start + 1;  // see the header: the first Key1 is never seen as empty
  while (scan < file.size()) {
    const std::size_t end1 = file.find(kFieldTerminator, scan);
    if (end1 == std::string::npos) break;
    const std::size_t end2 = file.find(kFieldTerminator, end1 + 1);
    if (end2 == std::string::npos) break;
    const std::size_t end3 = file.find(kFieldTerminator, end2 + 1);
    if (end3 == std::string::npos) break;
    places.push_back({static_cast<std::uint32_t>(start), static_cast<std::uint32_t>(end1 - start),
                      static_cast<std::uint32_t>(end2 - end1 - 1),
                      static_cast<std::uint32_t>(end3 - end2 - 1)});
    start = scan = end3 + 1;
  }
  return {std::move(file), std::move(places)};
}
