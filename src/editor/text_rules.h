// What may be typed into the fields of the scheme editor.
//
// Texts that a teacher types become registry keys and values, paths and web addresses that the shell reads.
// Each field refuses some characters and is limited in length; typed or pasted text is corrected at once, one
// correction at a time, and the user is told of each. Nothing here knows of Windows: text_entry.h binds these
// rules to edit controls.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Refused characters, in the order in which they are looked for. The order decides which one goes first, and
// with it the order of the messages.
inline constexpr std::string_view kNameCharacters = "<>?\\/*\"|:";
inline constexpr std::string_view kPathCharacters = "<>?/*\"|";
inline constexpr std::string_view kUrlCharacters = "<>\\ *\"|";

// Whether the user is told of a refused character while it still stands in the field or after the corrected
// text was put back. Of a text too long the user is always told first.
enum TellingOrder { kPutBackFirst, kTellFirst };

// The rule of one field.
struct TextRule {
  std::size_t Limit;                   // in characters
  std::string_view RefusedCharacters;  // empty: every character is welcome
  std::string_view RefusedMessage;
  TellingOrder Order;
};

// The messages list the same characters in different orders; the URL's shows the blank as it is.
inline constexpr std::string_view kSheetNameMessage =
    "The following characters are not allowed:\n\n< > ? / \\ : * \" |";
inline constexpr std::string_view kDialogNameMessage =
    "The following characters are not allowed:\n\n< > ? \\ / * \" | :";
inline constexpr std::string_view kPathMessage =
    "The following characters are not allowed:\n\n< > ? / * \" |";
inline constexpr std::string_view kUrlMessage =
    "The following characters are not allowed:\n\n< > \\   * \" |";

// The fields of the editor, one row a field.
inline constexpr TextRule kSchemeNameRule{50, kNameCharacters, kSheetNameMessage, kPutBackFirst};
inline constexpr TextRule kSchemeDescriptionRule{50, kNameCharacters, kSheetNameMessage, kPutBackFirst};
inline constexpr TextRule kNewSchemeNameRule{50, kNameCharacters, kDialogNameMessage, kPutBackFirst};
inline constexpr TextRule kRootNameRule{50, kNameCharacters, kDialogNameMessage, kPutBackFirst};
inline constexpr TextRule kRootPathRule{255, kPathCharacters, kPathMessage, kPutBackFirst};
inline constexpr TextRule kLinkNameRule{50, kNameCharacters, kSheetNameMessage, kTellFirst};
inline constexpr TextRule kLinkUrlRule{255, kUrlCharacters, kUrlMessage, kTellFirst};
inline constexpr TextRule kLongToolTipRule{100, {}, {}, kTellFirst};
inline constexpr TextRule kShortToolTipRule{50, {}, {}, kTellFirst};

// The position of the character to remove: of the first of `characters` that occurs anywhere in `text`, its
// first occurrence. -1 when none occurs.
std::ptrdiff_t FindIllegalCharacter(std::string_view text, std::string_view characters);

enum class TextProblem { kNone, kRefusedCharacter, kTooLong };

// A field's text with the caret in it, as the number of characters before the caret.
struct TypedText {
  std::string Text;
  std::size_t Caret = 0;

  bool operator==(const TypedText&) const = default;
};

// Makes one correction, if one is needed, and returns what was wrong: takes out one refused character, or, in
// a text without any, everything beyond the limit. The caret stays where the user was typing.
TextProblem CorrectText(const TextRule& rule, TypedText& typed);

// The message that tells the user of a problem of a field.
std::string ProblemMessage(const TextRule& rule, TextProblem problem);
// Its caption.
const char* ProblemCaption(TextProblem problem);

enum class UrlProblem { kNone, kInvalidCharacters, kSpace };

// What keeps a URL from being accepted. Asked when the user confirms; stricter than the rule of the field.
UrlProblem FindUrlProblem(std::string_view url);
