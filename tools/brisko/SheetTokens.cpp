#include "SheetTokens.h"

#include <algorithm>

namespace Command {

namespace {

constexpr const char byteOrderMark[] = "\xef\xbb\xbf";

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f';
}

bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool isNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

bool isLineEnd(char c) {
    return c == '\n' || c == '\r' || c == '\f';
}

} // namespace

SheetTokens::SheetTokens(const std::string& text) : m_text(text) {
    if (text.compare(0, 3, byteOrderMark) == 0)
        m_place = 3;
}

SheetToken SheetTokens::next() {
    while (skipComment()) {
    }
    const std::size_t begin = m_place;
    const int line = m_line;
    const char c = at(begin);
    if (begin >= m_text.size())
        return {SheetToken::End, {}, {}, line};
    if (isBlank(c)) {
        std::size_t end = begin;
        while (end < m_text.size() && isBlank(m_text[end]))
            ++end;
        advanceTo(end);
        return token(SheetToken::Blank, begin, line);
    }
    if (c == '"' || c == '\'')
        return readText();
    if (const std::size_t end = numberEnd(begin); end > begin)
        return readNumber(end);
    const bool isMarked = c == '@' || c == '#';
    if (c == '#' && nameEnd(begin + 1) > begin + 1) {
        advanceTo(nameEnd(begin + 1));
        return token(SheetToken::Hash, begin, line);
    }
    if (c == '@' && startsName(begin + 1)) {
        advanceTo(nameEnd(begin + 1));
        return token(SheetToken::AtWord, begin + 1, line);
    }
    if (!isMarked && startsName(begin))
        return readName();
    advanceTo(begin + 1);
    return token(SheetToken::Character, begin, line);
}

SheetToken SheetTokens::token(SheetToken::Kind kind, std::size_t begin, int line) const {
    return {kind, QByteArray(m_text.data() + begin, int(m_place - begin)), {}, line};
}

/// Whether an identifier begins here, one with two hyphens included.
bool SheetTokens::startsName(std::size_t place) const {
    if (at(place) == '-')
        ++place;
    if (at(place) == '-')
        return nameEnd(place + 1) > place + 1 && at(place + 1) != '>';
    return isNameStart(at(place)) || (at(place) == '\\' && place + 1 < m_text.size() && !isLineEnd(at(place + 1)));
}

std::size_t SheetTokens::nameEnd(std::size_t place) const {
    for (;;) {
        if (at(place) == '\\' && place + 1 < m_text.size() && !isLineEnd(at(place + 1)))
            place += 2;
        else if (isNameStart(at(place)) || isDigit(at(place)) || at(place) == '-')
            ++place;
        else
            return std::min(place, m_text.size());
    }
}

/// Where the number ends that begins here; @p place where none does.
std::size_t SheetTokens::numberEnd(std::size_t place) const {
    const std::size_t digits = place + (at(place) == '+' || at(place) == '-');
    std::size_t end = digits;
    while (isDigit(at(end)))
        ++end;
    if (at(end) == '.' && isDigit(at(end + 1))) {
        ++end;
        while (isDigit(at(end)))
            ++end;
    }
    return end > digits ? end : place;
}

bool SheetTokens::skipComment() {
    if (at(m_place) != '/' || at(m_place + 1) != '*')
        return false;
    const std::size_t end = m_text.find("*/", m_place + 2);
    advanceTo(end == std::string::npos ? m_text.size() : end + 2);
    return true;
}

void SheetTokens::advanceTo(std::size_t place) {
    const auto begin = m_text.begin() + std::ptrdiff_t(m_place);
    m_line += int(std::count(begin, m_text.begin() + std::ptrdiff_t(place), '\n'));
    m_place = place;
}

/// A text up to its closing quote, or to the end of the line where there is none.
SheetToken SheetTokens::readText() {
    const std::size_t begin = m_place;
    const int line = m_line;
    std::size_t end = begin + 1;
    while (end < m_text.size() && m_text[end] != m_text[begin] && !isLineEnd(m_text[end]))
        end += m_text[end] == '\\' ? 2 : 1;
    end = std::min(end, m_text.size());
    advanceTo(end < m_text.size() && m_text[end] == m_text[begin] ? end + 1 : end);
    return token(SheetToken::Text, begin, line);
}

SheetToken SheetTokens::readNumber(std::size_t end) {
    const std::size_t begin = m_place;
    const int line = m_line;
    std::size_t unitEnd = end;
    if (at(end) == '%')
        unitEnd = end + 1;
    else if (startsName(end) && !(at(end) == '-' && at(end + 1) == '-'))
        unitEnd = nameEnd(end);
    advanceTo(unitEnd);
    SheetToken number = token(SheetToken::Number, begin, line);
    number.unit = number.text.mid(int(end - begin)).toLower();
    return number;
}

SheetToken SheetTokens::readName() {
    const std::size_t begin = m_place;
    const int line = m_line;
    const bool isCustom = at(begin) == '-' && at(begin + 1) == '-';
    advanceTo(nameEnd(begin));
    SheetToken name = token(isCustom ? SheetToken::Custom : SheetToken::Name, begin, line);
    if (at(m_place) != '(' || isCustom)
        return name;
    advanceTo(m_place + 1);
    if (name.text.toLower() == "url")
        return readUrl(begin, line);
    name.kind = SheetToken::Function;
    return name;
}

SheetToken SheetTokens::readUrl(std::size_t begin, int line) {
    while (isBlank(at(m_place)))
        advanceTo(m_place + 1);
    if (at(m_place) == '"' || at(m_place) == '\'')
        readText();
    std::size_t end = m_place;
    while (end < m_text.size() && m_text[end] != ')' && !isLineEnd(m_text[end]))
        ++end;
    advanceTo(std::min(end + 1, m_text.size()));
    return token(SheetToken::Url, begin, line);
}

} // namespace Command
