#pragma once

#include "Brisko/Export.h"
#include "Gorvel/ByteHash_p.h"
#include "parser/TokenText.h"

#include <QByteArray>

#include <vector>

namespace Brisko {

/// The names of one parse. Equal names share one block of memory, and a name that was met before costs a look-up of its
/// bytes and no allocation. Only the names that are few and used over and over are interned for the whole process: that
/// takes several times as long as all the rest of a class name.
///
/// Exported for the tests only; not installed.
class BRISKO_EXPORT ParsedNames {
public:
    explicit ParsedNames(Gorvel::ByteHash hash = {}) : m_hash(hash) {}

    /// The name of a token, in UTF-8.
    const QByteArray& name(const TokenText& text);
    /// The same, interned.
    const QByteArray& internedName(const TokenText& text);
    /// The same as QByteArray::toLower() makes it.
    const QByteArray& lowerName(const TokenText& text);

    void clear();

    /// The most slots that a look-up of a name in the table passes over.
    std::size_t longestSearch() const;

private:
    struct Slot {
        quint32 hash = 0; // odd; 0 where the slot is free
        bool isInterned = false;
        QByteArray name;

        bool isFree() const { return hash == 0; }
    };

    Slot& find(const TokenText& text);
    Slot& find(const char* bytes, int size);
    Slot& find(const QByteArray& name) { return find(name.constData(), name.size()); }
    std::size_t placeOf(quint32 hash) const;
    Slot& slotOf(quint32 hash, const char* bytes, int size);
    void grow();

    Gorvel::ByteHash m_hash;
    std::vector<Slot> m_slots; // a power of two of them, or none; at most half of them taken
    std::size_t m_count = 0;
};

} // namespace Brisko
