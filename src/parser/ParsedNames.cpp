#include "parser/ParsedNames.h"

#include "Gorvel/Name.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Brisko {

namespace {

constexpr std::size_t firstSize = 64;
constexpr quint64 spread = 0x9e3779b97f4a7c15; // odd, with bits all over it
constexpr quint64 highBits = 0x8080808080808080;

template <typename Number>
quint64 load(const char* bytes) {
    Number number;
    std::memcpy(&number, bytes, sizeof number);
    return number;
}

// The last bytes of a name, of which there are up to 8, as one number.
quint64 loadTail(const char* bytes, int size) {
    if (size >= 4)
        return load<quint32>(bytes) | load<quint32>(bytes + size - 4) << 32;
    if (size == 0)
        return 0;
    return load<quint8>(bytes) | load<quint8>(bytes + size / 2) << 8 | load<quint8>(bytes + size - 1) << 16;
}

quint32 hashOf(const char* bytes, int size) {
    quint64 hash = quint64(size) * spread;
    for (; size > 8; bytes += 8, size -= 8) {
        hash = (hash ^ load<quint64>(bytes)) * spread;
        hash ^= hash >> 32;
    }
    hash = (hash ^ loadTail(bytes, size)) * spread;
    return quint32(hash >> 32) | 1;
}

bool isAscii(const char* bytes, int size) {
    for (; size > 8; bytes += 8, size -= 8) {
        if (load<quint64>(bytes) & highBits)
            return false;
    }
    return !(loadTail(bytes, size) & highBits);
}

} // namespace

const QByteArray& ParsedNames::name(const TokenText& text) {
    return find(text).name;
}

const QByteArray& ParsedNames::internedName(const TokenText& text) {
    Slot& slot = find(text);
    if (!slot.isInterned) {
        slot.name = Gorvel::interned(slot.name);
        slot.isInterned = true;
    }
    return slot.name;
}

const QByteArray& ParsedNames::lowerName(const TokenText& text) {
    const QByteArray& given = name(text);
    const QByteArray lower = given.toLower();
    return lower.constData() == given.constData() ? given : find(lower).name;
}

std::size_t ParsedNames::longestSearch() const {
    std::size_t longest = 0;
    for (std::size_t at = 0; at < m_slots.size(); ++at) {
        if (!m_slots[at].isFree())
            longest = std::max(longest, (at - placeOf(m_slots[at].hash)) & (m_slots.size() - 1));
    }
    return longest;
}

void ParsedNames::clear() {
    m_slots = {};
    m_count = 0;
}

ParsedNames::Slot& ParsedNames::find(const TokenText& text) {
    return isAscii(text.begin(), text.size()) ? find(text.begin(), text.size()) : find(text.toUtf8());
}

ParsedNames::Slot& ParsedNames::find(const char* bytes, int size) {
    if (2 * m_count >= m_slots.size())
        grow();
    const quint32 hash = hashOf(bytes, size);
    Slot& slot = slotOf(hash, bytes, size);
    if (slot.isFree()) {
        slot = {hash, false, QByteArray(bytes, size)};
        ++m_count;
    }
    return slot;
}

// The upper bits choose the place: only they depend on all bytes of a name.
std::size_t ParsedNames::placeOf(quint32 hash) const {
    return std::size_t(quint64(hash) * m_slots.size() >> 32);
}

ParsedNames::Slot& ParsedNames::slotOf(quint32 hash, const char* bytes, int size) {
    const std::size_t mask = m_slots.size() - 1;
    for (std::size_t at = placeOf(hash);; at = (at + 1) & mask) {
        Slot& slot = m_slots[at];
        if (slot.isFree() || (slot.hash == hash && slot.name.size() == size &&
                              std::memcmp(slot.name.constData(), bytes, std::size_t(size)) == 0))
            return slot;
    }
}

void ParsedNames::grow() {
    std::vector<Slot> old(std::max(firstSize, 2 * m_slots.size()));
    old.swap(m_slots);
    for (Slot& slot : old) {
        if (!slot.isFree())
            slotOf(slot.hash, slot.name.constData(), slot.name.size()) = std::move(slot);
    }
}

} // namespace Brisko
