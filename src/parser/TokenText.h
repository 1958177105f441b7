#pragma once

#include <QByteArray>
#include <QString>

namespace Brisko {

/// The text of a token: a place in the text being parsed, valid as long as that is. Nothing is converted before
/// somebody asks for it.
class TokenText {
public:
    /// How the bytes are to be read.
    enum Encoding {
        Latin1,
        Escaped, ///< Latin-1 with escapes that are to be replaced
        Utf8
    };

    // No constructors: the grammar's values are plain data.
    static TokenText make(const char* begin, const char* end, Encoding encoding) {
        TokenText text;
        text.m_begin = begin;
        text.m_extent = (end - begin) * encodings + encoding;
        return text;
    }

    const char* begin() const { return m_begin; }
    int size() const { return int(m_extent / encodings); }

    QString toString() const;
    /// The characters in UTF-8.
    QByteArray toUtf8() const { return toString().toUtf8(); }

private:
    static constexpr quint64 encodings = 4;

    Encoding encoding() const { return Encoding(m_extent % encodings); }

    const char* m_begin;
    quint64 m_extent; // the size and the encoding; one number, see SemanticValue
};

} // namespace Brisko
