#include "schemefile/compare.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>
#include <variant>

#include "model/scheme_layout.h"

namespace {

// The words for a number. A number that only counts as one of the two stands behind the word.
enum class Meaning {
  kPlain,     // texts and numbers as they are
  kTab,       // On or Off, by whether it is 0
  kButton,    // the same, with the number
  kYesNo,     // the same
  kSwitch,    // On for 1, else Off
  kSilence,   // Silent for 1, else Talking
  kFirstTab,  // a tab, counted from 1
  kView,      // a text that stands for a view
};

// A row of a layout table with its words.
template <class Owner>
struct WordedField {
  Field<Owner> Row;
  const char* Words;
  Meaning Kind;
};

struct FieldWords {
  std::string_view Name;  // of the field in its layout table
  const char* Words;
  Meaning Kind = Meaning::kPlain;
};

// The rows in the order of their words. Does not compile unless each row of the table has words, once.
template <class Owner, std::size_t Size>
consteval std::array<WordedField<Owner>, Size> InWords(const FieldTable<Owner, Size>& table,
                                                       const FieldWords (&words)[Size]) {
  for (const Field<Owner>& field : table) {
    if (std::ranges::count(words, std::string_view(field.Name), &FieldWords::Name) != 1)
      throw "a field without words";
  }
  return [&]<std::size_t... I>(std::index_sequence<I...>) {
    return std::array<WordedField<Owner>, Size>{
        {{FieldNamed(table, words[I].Name), words[I].Words, words[I].Kind}...}};
  }
  (std::make_index_sequence<Size>{});
}

constexpr auto kTabWords = InWords(kTabSelectionFields, {{"Page1", "Programs", Meaning::kTab},
                                                         {"Page2", "My Files", Meaning::kTab},
                                                         {"Page3", "Links", Meaning::kTab}});
constexpr auto kDefaultsWords =
    InWords(kDefaultsFields, {{"DefaultFirstTab", "Tab", Meaning::kFirstTab},
                              {"DefaultView", "View for 'My Files'", Meaning::kView},
                              {"Context Menu", "Right Click Menus", Meaning::kSwitch},
                              {"Options Menu", "Options menu", Meaning::kSwitch},
                              {"Silent", "OnScreen Helper", Meaning::kSilence},
                              {"DefaultIconSize", "Icon Size"},
                              {"ShortToolTips", "Short ToolTips", Meaning::kButton}});
constexpr auto kFolderWords =
    InWords(kFolderRootFields, {{"RootDisplayName", "Display Name"},
                                {"RootPath", "Path"},
                                {"FolderLevels", "Folder levels"},
                                {"DenyModify", "Users may not change the contents", Meaning::kYesNo},
                                {"CollapsedIconFile", "Closed folder"},
                                {"ExpandedIconFile", "Open folder"},
                                {"LongToolTip", "Long ToolTip"},
                                {"ShortToolTip", "Short ToolTip"},
                                {"Wav File", "Sound"}});
constexpr auto kLinkWords = InWords(kWebLinkFields, {{"DisplayName", "Display Name"},
                                                     {"URL", "URL"},
                                                     {"LongToolTip", "Long ToolTip"},
                                                     {"ShortToolTip", "Short ToolTip"},
                                                     {"IconFile", "Picture"},
                                                     {"Wav File", "Sound"}});
constexpr auto kToolBarWords = InWords(kToolBarPageFields, {{"Cut", "Cut", Meaning::kButton},
                                                            {"Copy", "Copy", Meaning::kButton},
                                                            {"Paste", "Paste", Meaning::kButton},
                                                            {"Delete", "Delete", Meaning::kButton},
                                                            {"New", "New", Meaning::kButton},
                                                            {"Rename", "Rename", Meaning::kButton},
                                                            {"Undo", "Undo", Meaning::kButton},
                                                            {"Print", "Print", Meaning::kButton},
                                                            {"Icon", "Icon Size", Meaning::kButton},
                                                            {"Back", "Back", Meaning::kButton},
                                                            {"Forward", "Forward", Meaning::kButton},
                                                            {"Up", "Up", Meaning::kButton},
                                                            {"Refresh", "Refresh", Meaning::kButton},
                                                            {"View", "View", Meaning::kButton},
                                                            {"Side", "Side", Meaning::kButton},
                                                            {"Help", "Help", Meaning::kButton}});

constexpr std::pair<std::string_view, const char*> kViews[] = {{"tree1", "One Pane Tree"},
                                                               {"tree2", "Two Pane Tree"},
                                                               {"icons", "Icon View"},
                                                               {"details", "Details View"}};
constexpr const char* kFirstTabs[] = {"Programs", "My Files", "Links"};

std::string Word(std::uint32_t number, bool isFirst, const char* first, const char* second) {
  const std::string word = isFirst ? first : second;
  return number <= 1 ? word : word + " (" + std::to_string(number) + ")";
}

std::string ValueInWords(Meaning kind, std::uint32_t number) {
  switch (kind) {
    case Meaning::kTab:
      return number != 0 ? "On" : "Off";
    case Meaning::kButton:
      return Word(number, number != 0, "On", "Off");
    case Meaning::kYesNo:
      return Word(number, number != 0, "Yes", "No");
    case Meaning::kSwitch:
      return Word(number, number == 1, "On", "Off");
    case Meaning::kSilence:
      return Word(number, number == 1, "Silent", "Talking");
    case Meaning::kFirstTab:
      return number - 1 < std::size(kFirstTabs) ? kFirstTabs[number - 1] : std::to_string(number);
    default:
      return std::to_string(number);
  }
}

std::string ValueInWords(Meaning kind, const std::string& text) {
  if (kind == Meaning::kView) {
    for (const auto& [value, words] : kViews) {
      if (text == value) return words;
    }
  }
  return text;
}

// "" for no owner.
template <class Owner>
std::string ValueOf(const Owner* owner, const WordedField<Owner>& field) {
  if (!owner) return {};
  return std::visit([&](const auto member) { return ValueInWords(field.Kind, owner->*member); },
                    field.Row.Member);
}

// Calls `visit` (section, number, name, value here, value in the file) for every setting of the two, which
// may be the same scheme.
template <class Visit>
class Walk {
 public:
  Walk(const SchemeProperties& here, const SchemeProperties& inFile, const Visit& visit)
      : here_(here), inFile_(inFile), visit_(visit) {}

  void Run() const {
    visit_("", 0, "Description", here_.Description, inFile_.Description);
    WalkFields("Tab Selection", 0, &here_.Tabs, &inFile_.Tabs, kTabWords);
    WalkFields("Default Settings", 0, &here_.Defaults, &inFile_.Defaults, kDefaultsWords);
    WalkItems("Folders", "Folder", here_.FolderRoots, inFile_.FolderRoots, kFolderWords);
    WalkItems("Links", "Link", here_.WebLinks, inFile_.WebLinks, kLinkWords);
    for (std::size_t page = 0; page < here_.ToolBars.size(); ++page) {
      WalkFields("Toolbar page", static_cast<int>(page) + 1, &here_.ToolBars[page], &inFile_.ToolBars[page],
                 kToolBarWords);
    }
  }

 private:
  template <class Owner, class Words>
  void WalkFields(const char* section, int number, const Owner* here, const Owner* inFile,
                  const Words& words) const {
    for (const WordedField<Owner>& field : words)
      visit_(section, number, field.Words, ValueOf(here, field), ValueOf(inFile, field));
  }

  template <class Item, class Words>
  void WalkItems(const char* plural, const char* section, const std::vector<Item>& here,
                 const std::vector<Item>& inFile, const Words& words) const {
    visit_("", 0, plural, std::to_string(here.size()), std::to_string(inFile.size()));
    for (std::size_t i = 0; i < std::max(here.size(), inFile.size()); ++i) {
      WalkFields(section, static_cast<int>(i) + 1, i < here.size() ? &here[i] : nullptr,
                 i < inFile.size() ? &inFile[i] : nullptr, words);
    }
  }

  const SchemeProperties& here_;
  const SchemeProperties& inFile_;
  const Visit& visit_;
};

std::string LabelOf(const char* section, int number, const char* name) {
  std::string label = section;
  if (number > 0) label.append(" ").append(std::to_string(number));
  if (!label.empty()) label += ": ";
  return label + name;
}

}  // namespace

std::string Setting::Label() const { return LabelOf(Section, Number, Name); }

std::vector<Setting> DescribeScheme(const SchemeProperties& scheme) {
  std::vector<Setting> settings;
  const auto add = [&settings](const char* section, int number, const char* name, std::string value,
                               const std::string&) {
    settings.push_back({section, number, name, std::move(value)});
  };
  Walk(scheme, scheme, add).Run();
  return settings;
}

std::vector<Difference> CompareScheme(const SchemeProperties& here, const SchemeProperties& inFile) {
  std::vector<Difference> differences;
  if (here == inFile) return differences;
  const auto compare = [&differences](const char* section, int number, const char* name,
                                      const std::string& left, const std::string& right) {
    if (left != right) differences.push_back({LabelOf(section, number, name), left, right});
  };
  Walk(here, inFile, compare).Run();
  return differences;
}
