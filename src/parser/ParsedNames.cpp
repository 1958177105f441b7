#include "parser/ParsedNames.h"

#include "Gorvel/Name.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace Brisko {

using Gorvel::ByteHash;

namespace {

constexpr std::size_t firstSize = 64;
constexpr quint64 highBits = 0x8080808080808080;

bool isAscii(const char* bytes, int size) {
    for (; size > 8; bytes += 8, size -= 8) {
        if (ByteHash::load<quint64>(bytes) & highBits)
            return false;
    }
    return !(ByteHash::loadTail(bytes, size) & highBits);
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
    const quint32 hash = quint32(m_hash(bytes, size) >> 32) | 1;
    Slot& slot = slotOf(hash, bytes, size);
    if (slot.isFree()) {
        slot = {hash, false, QByteArray(bytes, size)};
        ++m_count;
    }
    return slot;
}

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
