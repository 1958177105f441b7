#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <cstring>

namespace Gorvel {

/// Hashes texts that strangers wrote. Nobody who does not know the seed can choose texts that share a place in a table;
/// seeds of qHash() leave those together that its checksum does not tell apart.
///
///     std::unordered_set<QByteArray, Gorvel::ByteHash> names;
class ByteHash {
public:
    /// With the seed of all hashes of the process, see qGlobalQHashSeed().
    ByteHash() : ByteHash(quint64(qGlobalQHashSeed())) {}
    explicit ByteHash(quint64 seed) : m_factor(mixed((seed + 1) * spread) | 1) {}

    /// The upper half depends on all bytes.
    quint64 operator()(const char* bytes, int size) const {
        quint64 hash = quint64(size) * spread;
        for (; size > 8; bytes += 8, size -= 8) {
            hash = (hash ^ load<quint64>(bytes)) * m_factor;
            hash ^= hash >> 32;
        }
        return mixed((hash ^ loadTail(bytes, size)) * m_factor);
    }
    std::size_t operator()(const QByteArray& bytes) const { return (*this)(bytes.constData(), bytes.size()); }
    std::size_t operator()(const QString& text) const {
        return (*this)(reinterpret_cast<const char*>(text.constData()), text.size() * int(sizeof(QChar)));
    }

    /// The last bytes of a text, of which there are up to 8, as one number.
    static quint64 loadTail(const char* bytes, int size) {
        if (size >= 4)
            return load<quint32>(bytes) | load<quint32>(bytes + size - 4) << 32;
        if (size == 0)
            return 0;
        return load<quint8>(bytes) | load<quint8>(bytes + size / 2) << 8 | load<quint8>(bytes + size - 1) << 16;
    }
    template <typename Number>
    static quint64 load(const char* bytes) {
        Number number;
        std::memcpy(&number, bytes, sizeof number);
        return number;
    }

private:
    static constexpr quint64 spread = 0x9e3779b97f4a7c15; // odd, with bits all over it

    static constexpr quint64 mixed(quint64 hash) { return (hash ^ hash >> 32) * spread; }

    quint64 m_factor; // odd, so that no two words become the same
};

} // namespace Gorvel
