#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// Texts are UTF-8. Bytes that are not are left as they stand and count as characters of their own.
namespace orvelle::Text {

/// Without the blanks at both ends: tabs and every kind of space, but no line ends.
std::string_view trimmingBlanks(std::string_view text);
/// Without the blanks and line ends at both ends.
std::string_view trimmingBlanksAndNewlines(std::string_view text);

/// Whether `part` stands in the text. Takes about a millisecond for a megabyte.
bool contains(std::string_view text, std::string_view part);

/// With a blank for each line end, and all else as it stands.
std::string inOneLine(std::string_view text);

/// The longest beginning of at most `count` characters, as a reader counts them: a letter and its
/// accents are one, and so is an emoji of several parts.
std::string_view firstCharacters(std::string_view text, std::size_t count);

/// As much of a text as any view has room for: its layout takes the more time the longer it is,
/// and other programs' texts are of any length. Ends between two code points.
std::string_view displayable(std::string_view text);

/// For comparisons without regard to case: texts that differ in nothing else give the same.
/// `locale` is the user's ("tr_TR" tells a dotted i from a dotless one); empty for none.
std::string folded(std::string_view text, std::string_view locale = {});

/// In capitals by the rules of no language; one letter may become two ("ß").
std::string capitals(std::string_view text);

} // namespace orvelle::Text
