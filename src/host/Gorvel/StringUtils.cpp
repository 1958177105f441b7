#include "Gorvel/StringUtils.h"

#include <algorithm>
#include <cstdlib>
#include <memory>

#if defined(__GNUC__)
#include <cxxabi.h>
#endif

namespace Gorvel {

namespace {

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

} // namespace

QByteArray StringUtils::demangle(const char* name) {
    if (!name)
        return QByteArray();
#if defined(__GNUC__)
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> text(abi::__cxa_demangle(name, nullptr, nullptr, &status),
                                                           &std::free);
    if (text && status == 0)
        return QByteArray(text.get());
#endif
    return QByteArray(name);
}

bool StringUtils::endsInOpenEscape(const QByteArray& identifier) {
    int digits = 0;
    while (digits < identifier.size() && digits < 6 && isHexDigit(identifier[identifier.size() - 1 - digits]))
        ++digits;
    const int backslash = identifier.size() - 1 - digits;
    if (digits == 0 || backslash < 0 || identifier[backslash] != '\\')
        return false;
    int run = 0; // "\\a" is an escaped backslash and a letter
    while (backslash - run >= 0 && identifier[backslash - run] == '\\')
        ++run;
    return run % 2 == 1;
}

namespace {

/// A character of a text in UTF-8, or a byte that begins none.
struct Sequence {
    char32_t character; // the byte itself where there is no character
    int size;           // in bytes; 0 where there is no character
};

constexpr int longestSequence = 4;

/// The number of bytes that a lead byte announces; 0 where it is none.
int announcedSize(unsigned char lead) {
    if (lead < 0x80)
        return 1;
    if (lead < 0xc2 || lead > 0xf4)
        return 0;
    return lead < 0xe0 ? 2 : lead < 0xf0 ? 3 : longestSequence;
}

/// Reads what begins at a place that is not the end (RFC 3629).
Sequence readSequence(const QByteArray& text, int at) {
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(text[at]);
    const int size = announcedSize(lead);
    if (size <= 1)
        return {lead, size};
    char32_t character = lead & (0x7fu >> size);
    for (int i = 1; i < size; ++i) {
        const auto next = static_cast<unsigned char>(at + i < text.size() ? text[at + i] : 0);
        if ((next & 0xc0) != 0x80)
            return {lead, 0};
        character = character << 6 | (next & 0x3fu);
    }
    const bool isSurrogate = character >= 0xd800 && character <= 0xdfff;
    if (character < smallest[size] || character > 0x10ffff || isSurrogate)
        return {lead, 0};
    return {character, size};
}

QByteArray hexDigits(char32_t number, int count) {
    return QByteArray::number(static_cast<uint>(number), 16).rightJustified(count, '0');
}

QByteArray escape(char32_t character) {
    switch (character) {
    case '\n':
        return "\\n";
    case '\t':
        return "\\t";
    default:
        return character < 0x80 ? "\\x" + hexDigits(character, 2) : "\\u" + hexDigits(character, 4);
    }
}

} // namespace

bool StringUtils::isControl(char32_t character) {
    const auto isWithin = [character](char32_t first, char32_t last) {
        return character >= first && character <= last;
    };
    return isWithin(0, 0x1f) || isWithin(0x7f, 0x9f) || character == 0x61c || isWithin(0x200e, 0x200f) ||
           isWithin(0x2028, 0x202e) || isWithin(0x2066, 0x206f);
}

QByteArray StringUtils::printable(const QByteArray& text) {
    const auto isPlain = [](char c) { return c >= 0x20 && c < 0x7f; };
    if (std::all_of(text.begin(), text.end(), isPlain))
        return text;
    QByteArray result;
    result.reserve(text.size());
    for (int at = 0; at < text.size();) {
        const Sequence sequence = readSequence(text, at);
        if (sequence.size == 0)
            result += "\\x" + hexDigits(sequence.character, 2);
        else if (isControl(sequence.character))
            result += escape(sequence.character);
        else
            result.append(text.constData() + at, sequence.size);
        at += sequence.size == 0 ? 1 : sequence.size;
    }
    return result;
}

} // namespace Gorvel
