#include "Foundation/Text.h"

#include <unicode/brkiter.h>
#include <unicode/bytestream.h>
#include <unicode/casemap.h>
#include <unicode/normalizer2.h>
#include <unicode/stringpiece.h>
#include <unicode/uchar.h>
#include <unicode/utext.h>

#include <algorithm>
#include <cstring>
#include <limits>
#include <memory>

namespace orvelle::Text {

namespace {

using Predicate = bool (*)(UChar32);

bool isASCII(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

char loweredASCII(char letter) {
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool isBlank(UChar32 character) {
    return character == '\t' || u_charType(character) == U_SPACE_SEPARATOR;
}

bool isBlankOrNewline(UChar32 character) {
    constexpr UChar32 nextLine = 0x85;
    return isBlank(character) || (character >= '\n' && character <= '\r') ||
           character == nextLine || u_charType(character) == U_LINE_SEPARATOR ||
           u_charType(character) == U_PARAGRAPH_SEPARATOR;
}

/// ICU counts in 32 bits; nothing that the program trims or shows is longer.
std::int32_t length(std::string_view text) {
    constexpr auto limit = static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max());
    return static_cast<std::int32_t>(std::min(text.size(), limit));
}

/// A text that ICU walks over in place; positions are bytes.
class Walk {
public:
    explicit Walk(std::string_view text) {
        UErrorCode status = U_ZERO_ERROR;
        utext_openUTF8(&text_, text.data(), length(text), &status);
    }
    Walk(const Walk&) = delete;
    Walk& operator=(const Walk&) = delete;
    ~Walk() { utext_close(&text_); }

    UText* get() { return &text_; }

private:
    UText text_ = UTEXT_INITIALIZER;
};

std::string_view trimming(std::string_view text, Predicate isTrimmed) {
    Walk walk(text);
    std::int64_t begin = 0;
    for (auto character = utext_next32From(walk.get(), 0);
         character != U_SENTINEL && isTrimmed(character); character = utext_next32(walk.get()))
        begin = utext_getNativeIndex(walk.get());
    std::int64_t end = length(text);
    for (auto character = utext_previous32From(walk.get(), end);
         end > begin && isTrimmed(character); character = utext_previous32(walk.get()))
        end = utext_getNativeIndex(walk.get());
    return text.substr(static_cast<std::size_t>(begin), static_cast<std::size_t>(end - begin));
}

/// Making one costs more than using it. Main thread only.
icu::BreakIterator* characterBoundaries() {
    static const auto iterator = [] {
        UErrorCode status = U_ZERO_ERROR;
        return std::unique_ptr<icu::BreakIterator>(
            icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    }();
    return iterator.get();
}

icu::StringPiece piece(std::string_view text) {
    return {text.data(), length(text)};
}

} // namespace

std::string_view trimmingBlanks(std::string_view text) {
    return trimming(text, isBlank);
}

std::string_view trimmingBlanksAndNewlines(std::string_view text) {
    return trimming(text, isBlankOrNewline);
}

bool contains(std::string_view text, std::string_view part) {
    if (part.empty())
        return true;
    // The last byte is what tells letters beyond ASCII apart. Looking for one byte is many times as
    // fast as looking for several, as long as it is rare.
    constexpr std::size_t patience = 64;
    const auto distance = part.size() - 1;
    std::size_t from = 0;
    for (std::size_t tries = 0; text.size() >= from + part.size(); ++tries) {
        const auto* begin = text.data() + from;
        const auto rest = text.size() - from;
        if (tries == patience)
            return memmem(begin, rest, part.data(), part.size()) != nullptr;
        const auto* last =
            static_cast<const char*>(std::memchr(begin + distance, part.back(), rest - distance));
        if (!last)
            return false;
        if (std::memcmp(last - distance, part.data(), distance) == 0)
            return true;
        from = static_cast<std::size_t>(last - text.data()) - distance + 1;
    }
    return false;
}

std::string inOneLine(std::string_view text) {
    constexpr std::string_view ends[] = {"\r\n", "\n",     "\v",     "\f",
                                         "\r",   "\u0085", "\u2028", "\u2029"};
    std::string line;
    line.reserve(text.size());
    while (!text.empty()) {
        const auto* end = std::ranges::find_if(
            ends, [&](std::string_view each) { return text.starts_with(each); });
        const bool isEnd = end != std::end(ends);
        line += isEnd ? ' ' : text.front();
        text.remove_prefix(isEnd ? end->size() : 1);
    }
    return line;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    auto* boundaries = characterBoundaries();
    if (!boundaries)
        return text;
    Walk walk(text);
    UErrorCode status = U_ZERO_ERROR;
    boundaries->setText(walk.get(), status);
    std::int32_t end = U_SUCCESS(status) ? boundaries->first() : 0;
    for (std::size_t passed = 0; passed < count; ++passed) {
        const auto next = boundaries->next();
        if (next == icu::BreakIterator::DONE)
            break;
        end = next;
    }
    return text.substr(0, static_cast<std::size_t>(end));
}

std::string_view displayable(std::string_view text) {
    constexpr std::size_t mostBytes = 1000;
    if (text.size() <= mostBytes)
        return text;
    std::size_t end = mostBytes;
    constexpr std::size_t longestSequence = 4;
    while (end > mostBytes - longestSequence && (text[end] & 0xC0) == 0x80)
        --end;
    return text.substr(0, end);
}

std::string folded(std::string_view text, std::string_view locale) {
    const bool hasDotlessI = locale.starts_with("tr") || locale.starts_with("az");
    if (!hasDotlessI && std::ranges::all_of(text, isASCII)) {
        std::string result(text);
        std::ranges::transform(result, result.begin(), loweredASCII);
        return result;
    }
    UErrorCode status = U_ZERO_ERROR;
    std::string cases;
    icu::StringByteSink<std::string> caseSink(&cases);
    icu::CaseMap::utf8Fold(hasDotlessI ? U_FOLD_CASE_EXCLUDE_SPECIAL_I : U_FOLD_CASE_DEFAULT,
                           piece(text), caseSink, nullptr, status);
    // Two ways to write an accented letter are the same letter.
    std::string result;
    icu::StringByteSink<std::string> resultSink(&result);
    if (const auto* normalizer = icu::Normalizer2::getNFCInstance(status))
        normalizer->normalizeUTF8(0, piece(cases), resultSink, nullptr, status);
    return U_SUCCESS(status) ? result : std::string(text);
}

std::string capitals(std::string_view text) {
    UErrorCode status = U_ZERO_ERROR;
    std::string result;
    icu::StringByteSink<std::string> sink(&result);
    icu::CaseMap::utf8ToUpper("", 0, piece(text), sink, nullptr, status);
    return U_SUCCESS(status) ? result : std::string(text);
}

} // namespace orvelle::Text
