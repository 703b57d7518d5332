#include "schemefile/check.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string_view>
#include <utility>
#include <variant>

#include "model/scheme_layout.h"
#include "registry/registry_paths.h"
#include "schemefile/records/record_splitter.h"
#include "schemefile/records/record_store.h"

namespace {

// The number that the whole of the text states, as the store reads it: blanks, a sign, digits.
std::optional<std::int32_t> WholeNumber(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n\v\f"), text.size()));
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  std::int32_t number = 0;
  const char* const end = text.data() + text.size();
  const auto [stopped, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc() || stopped != end) return std::nullopt;
  return number;
}

// The registry takes names that differ in case for one. Letters beyond ASCII depend on the machine.
std::string Folded(std::string_view name) {
  std::string folded(name);
  for (char& c : folded) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return folded;
}

std::string Shortened(std::string_view text) {
  constexpr std::size_t kMaxLength = 100;
  return text.size() <= kMaxLength ? std::string(text) : std::string(text.substr(0, kMaxLength)) + "...";
}

class FileCheck {
 public:
  explicit FileCheck(RecordList records) : isRead_(records.Count()), place_(kSignature.size()) {
    store_.Fill(std::move(records));
  }

  CheckResult Run() {
    const std::int32_t count = CheckSchemeCount();
    // The config list is read once its own question for the count has moved the cursor behind it.
    store_.ResetReadCursor();
    (void)store_.FindRecord(kSchemeCountLabel, kSchemeCountName);
    for (std::int32_t i = 1; i <= count && !IsFull(); ++i)
      CheckDescription(ConfigKey(i));
    for (std::int32_t i = 0; i < count && !IsFull(); ++i)
      CheckScheme(SchemeKey(i));
    for (const auto& [name, position] : descriptions_) {
      scheme_ = name;
      AddAt(position, FindingKind::kStray, "describes a scheme that the file does not have");
    }
    scheme_.clear();
    CheckLeftOver();
    CheckEnd();
    std::ranges::stable_sort(result_.Findings, {}, &Finding::Offset);
    return std::move(result_);
  }

 private:
  const RecordList& Records() const { return store_.Records(); }
  bool IsFull() const { return result_.Findings.size() >= kMaxFindings; }

  void Add(FindingKind kind, std::string_view key1, std::string_view key2, std::size_t offset,
           std::string text) {
    if (IsFull()) return;
    std::string record(Shortened(key1));
    if (!key2.empty()) record += ", " + Shortened(key2);
    result_.Findings.push_back({kind, IsSchemeName(scheme_) ? scheme_ : Shortened(scheme_), std::move(record),
                                offset, std::move(text)});
  }
  void AddAt(std::size_t position, FindingKind kind, std::string text) {
    const SchemeRecord record = Records()[position];
    Add(kind, record.Key1, record.Key2, Records().Offset(position), std::move(text));
  }
  void AddMissing(std::string_view key1, std::string_view key2) {
    Add(FindingKind::kMissing, key1, key2, place_, "is missing");
  }

  // Where the record stands that an import reads for these keys.
  std::optional<std::size_t> Find(std::string_view key1, std::string_view key2) {
    const std::optional<std::size_t> position = store_.FindRecord(key1, key2);
    if (position) {
      isRead_[*position] = true;
      place_ = EndOf(*position);
    }
    return position;
  }
  std::optional<std::size_t> FindOrAdd(std::string_view key1, std::string_view key2) {
    const std::optional<std::size_t> position = Find(key1, key2);
    if (!position) AddMissing(key1, key2);
    return position;
  }
  std::size_t EndOf(std::size_t position) const {
    const SchemeRecord record = Records()[position];
    return Records().Offset(position) + record.Key1.size() + record.Key2.size() + record.Value.size() + 3;
  }

  std::optional<std::int32_t> CheckNumber(std::size_t position) {
    const std::optional<std::int32_t> number = WholeNumber(Records()[position].Value);
    if (!number) AddAt(position, FindingKind::kNumber, "is no number, or one of more than 32 bits");
    return number;
  }
  void CheckText(std::size_t position) {
    if (Records()[position].Value.find('\0') != std::string_view::npos)
      AddAt(position, FindingKind::kText, "would end at the NUL in it");
  }

  // A count that may stand as it is, else 0.
  std::int32_t CheckCount(std::size_t position, std::int32_t max) {
    const std::optional<std::int32_t> count = CheckNumber(position);
    if (!count || (*count >= 0 && *count <= max)) return count.value_or(0);
    AddAt(position, FindingKind::kCount,
          *count < 0 ? "is less than 0" : "is more than the " + std::to_string(max) + " that can be");
    return 0;
  }

  std::int32_t CheckSchemeCount() {
    const auto position = FindOrAdd(kSchemeCountLabel, kSchemeCountName);
    return position ? CheckCount(*position, static_cast<std::int32_t>(Records().Count())) : 0;
  }

  void CheckDescription(const std::string& key) {
    const auto named = FindOrAdd(kConfigHiveLabel, key);
    if (!named) return;
    const std::string_view name = Records()[*named].Value;
    scheme_ = name;
    if (!descriptions_.emplace(name, *named).second)
      AddAt(*named, FindingKind::kDoubled, "describes a scheme a second time");
    if (const auto described = FindOrAdd(kConfigHiveLabel, name)) {
      CheckText(*described);
      if (Records()[*described].Value.size() > kMaxTextLength)
        AddAt(*described, FindingKind::kText, "would be cut to 259 characters");
    }
    scheme_.clear();
  }

  void CheckScheme(const std::string& key) {
    const auto named = FindOrAdd(key, kSchemeNameName);
    if (!named) return;
    ++result_.Schemes;
    scheme_ = Records()[*named].Value;
    if (!IsSchemeName(scheme_)) {
      AddAt(*named, FindingKind::kName, "is no name that a scheme can have");
    } else if (!names_.insert(Folded(scheme_)).second) {
      AddAt(*named, FindingKind::kName, "is the name of an earlier scheme");
    } else {
      CheckSections(scheme_);
    }
    if (descriptions_.erase(scheme_) == 0) AddMissing(kConfigHiveLabel, scheme_);
    scheme_.clear();
  }

  void CheckSections(const std::string& name) {
    CheckItems(name, kFolderDisplayLayout);
    CheckItems(name, kWebLinksLayout);
    CheckSection(name + kTabsFileLabel, kTabSelectionFields);
    for (const char page : {'1', '2', '3'})
      CheckSection(name + kToolBarPageFileLabel + page, kToolBarPageFileFields);
    CheckSection(name + kDefaultsFileLabel, kDefaultsFields);
  }

  template <class Item>
  void CheckItems(const std::string& name, const CountedSectionLayout<Item>& layout) {
    const auto counted = FindOrAdd(name + layout.FileCountLabel, layout.FileCountName);
    if (!counted) return;
    const std::int32_t count = CheckCount(*counted, kMaxItems);
    int missing = 0;
    for (std::int32_t n = 1; n <= count; ++n)
      missing += CheckItem(name + layout.Items.FileLabel + ItemName(layout.Items, n), layout.Items) ? 0 : 1;
    if (missing > 0) {
      AddAt(*counted, FindingKind::kCount,
            "states " + std::to_string(count) + ", of which " + std::to_string(missing) + " are missing");
    }
  }

  template <class Item>
  bool CheckItem(const std::string& label, const ItemListLayout<SchemeProperties, Item>& layout) {
    bool isThere = false;
    for (const ItemPart<Item>& part : layout.Parts)
      isThere |= CheckFields(label + part.FileSuffix, part.ReadFields);
    return isThere;
  }

  template <class Fields>
  void CheckSection(const std::string& owner, const Fields& fields) {
    if (!CheckFields(owner, fields)) AddMissing(owner, "");
  }

  // False, without a finding, when not one of the records is there.
  template <class Fields>
  bool CheckFields(const std::string& owner, const Fields& fields) {
    std::vector<std::pair<const char*, std::size_t>> missing;
    for (const auto& field : fields) {
      if (const auto position = Find(owner, field.Label)) {
        field.Member.index() == 0 ? CheckText(*position) : (void)CheckNumber(*position);
      } else {
        missing.emplace_back(field.Label, place_);
      }
    }
    if (missing.size() == fields.size()) return false;
    for (const auto& [label, place] : missing)
      Add(FindingKind::kMissing, owner, label, place, "is missing");
    return true;
  }

  using Keys = std::pair<std::string_view, std::string_view>;
  Keys KeysOf(std::size_t position) const {
    const SchemeRecord record = Records()[position];
    return {record.Key1, record.Key2};
  }

  // The records that no look-up has read. Neighbours make one finding.
  void CheckLeftOver() {
    std::vector<std::pair<std::size_t, std::size_t>> runs;  // the first of each, and their number
    for (std::size_t i = 0; i < isRead_.size() && runs.size() < kMaxFindings; ++i) {
      const std::size_t first = i;
      while (i < isRead_.size() && !isRead_[i])
        ++i;
      if (i > first) runs.emplace_back(first, i - first);
    }
    if (runs.empty()) return;
    std::map<Keys, bool> isDoubled;
    for (const auto& [first, count] : runs)
      isDoubled[KeysOf(first)] = false;
    for (std::size_t i = 0; i < isRead_.size(); ++i) {
      const auto found = isRead_[i] ? isDoubled.find(KeysOf(i)) : isDoubled.end();
      if (found != isDoubled.end()) found->second = true;
    }
    for (const auto& [first, count] : runs)
      AddLeftOver(first, count, isDoubled[KeysOf(first)]);
  }

  void AddLeftOver(std::size_t first, std::size_t count, bool isDoubled) {
    scheme_ = SchemeOf(Records()[first].Key1);
    std::string text = isDoubled ? "stands twice" : "is read by no import";
    if (count > 1) text += ", like the next " + std::to_string(count - 1);
    AddAt(first, isDoubled ? FindingKind::kDoubled : FindingKind::kStray, std::move(text));
    scheme_.clear();
  }

  // The scheme whose label the key is.
  std::string SchemeOf(std::string_view key) const {
    constexpr std::string_view kBeforeLabel = " - ";
    for (std::size_t end = key.find(kBeforeLabel); end != key.npos; end = key.find(kBeforeLabel, end + 1)) {
      if (names_.contains(Folded(key.substr(0, end)))) return std::string(key.substr(0, end));
    }
    return {};
  }

  void CheckEnd() {
    const std::size_t end = Records().Count() ? EndOf(Records().Count() - 1) : kSignature.size();
    if (end < Records().TextSize()) Add(FindingKind::kTornEnd, "", "", end, "The file ends inside a record");
  }

  RecordStore store_;
  std::vector<bool> isRead_;
  std::size_t place_;   // behind the record read last
  std::string scheme_;  // that is being looked at
  std::set<std::string> names_;
  std::map<std::string, std::size_t> descriptions_;  // not yet claimed by a scheme, with their positions
  CheckResult result_;
};

}  // namespace

CheckResult CheckRecords(RecordList records) { return FileCheck(std::move(records)).Run(); }
