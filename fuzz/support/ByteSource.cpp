#include "fuzz/support/ByteSource.h"

#include <algorithm>

namespace Fuzz {

ByteSource::ByteSource(const QByteArray& bytes) : m_bytes(bytes), m_state(14695981039346656037u) {
    for (const char byte : bytes)
        m_state = (m_state ^ static_cast<unsigned char>(byte)) * 1099511628211u; // FNV-1a
}

ByteSource ByteSource::part(int records) {
    const int size = std::min(records * RecordSize, m_bytes.size() - m_place);
    m_place += size;
    return ByteSource(m_bytes.mid(m_place - size, size));
}

int ByteSource::roll(int sides) {
    unsigned number = nextByte();
    if (sides > 256)
        number = number << 8 | nextByte();
    return int(number % unsigned(sides));
}

unsigned ByteSource::nextByte() {
    if (!isAtEnd())
        return static_cast<unsigned char>(m_bytes[m_place++]);
    m_state = m_state * 6364136223846793005u + 1442695040888963407u; // the multiplier and step of PCG
    return unsigned(m_state >> 56);
}

} // namespace Fuzz
