#pragma once

#include <QByteArray>

namespace Brisko {

/// One row of a keyword table.
template <typename Value>
struct Keyword {
    const char* word;
    Value value;
};

/// The row of @p word, compared byte by byte; null where the table has none.
template <typename Value, std::size_t count>
const Keyword<Value>* findKeyword(const Keyword<Value> (&table)[count], const QByteArray& word) {
    for (const Keyword<Value>& row : table) {
        if (word == row.word)
            return &row;
    }
    return nullptr;
}

/// The value of @p word; 0 where the table has no such row.
template <typename Value, std::size_t count>
Value keywordValue(const Keyword<Value> (&table)[count], const QByteArray& word) {
    const Keyword<Value>* row = findKeyword(table, word);
    return row ? row->value : Value(0);
}

/// The word of a value, the first where there are several; null where there is none.
template <typename Value, std::size_t count>
const char* wordOf(const Keyword<Value> (&table)[count], Value value) {
    for (const Keyword<Value>& row : table) {
        if (row.value == value)
            return row.word;
    }
    return nullptr;
}

} // namespace Brisko
