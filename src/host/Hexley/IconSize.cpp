#include "Hexley/IconSize_p.h"

#include <QtEndian>

#include <cstdlib>

namespace Hexley {

namespace {

constexpr int directoryStart = 6;
constexpr int entrySize = 16;
constexpr int offsetInEntry = 12;
constexpr int headerSize = 24; // as much as is read of a picture

bool isIcon(const QByteArray& bytes) {
    const char* data = bytes.constData();
    return bytes.size() >= directoryStart && qFromLittleEndian<quint16>(data) == 0 &&
           (qFromLittleEndian<quint16>(data + 2) == 1 || qFromLittleEndian<quint16>(data + 2) == 2);
}

int limited(qint64 side) {
    return int(qBound<qint64>(0, side, 0x7fffffff));
}

QSize announced(const char* picture) {
    if (QByteArray::fromRawData(picture, 4) == "\x89PNG")
        return {limited(qFromBigEndian<quint32>(picture + 16)), limited(qFromBigEndian<quint32>(picture + 20))};
    return {limited(std::llabs(qFromLittleEndian<qint32>(picture + 4))),
            limited(std::llabs(qFromLittleEndian<qint32>(picture + 8)))};
}

qint64 area(const QSize& size) {
    return qint64(size.width()) * size.height();
}

} // namespace

QSize largestIconPicture(const QByteArray& bytes) {
    QSize largest(0, 0);
    if (!isIcon(bytes))
        return largest;
    const int count = qFromLittleEndian<quint16>(bytes.constData() + 4);
    for (int i = 0; i < count && directoryStart + (i + 1) * entrySize <= bytes.size(); ++i) {
        const char* entry = bytes.constData() + directoryStart + i * entrySize;
        const qint64 offset = qFromLittleEndian<quint32>(entry + offsetInEntry);
        if (offset + headerSize > bytes.size())
            continue;
        const QSize size = announced(bytes.constData() + offset);
        if (area(size) > area(largest))
            largest = size;
    }
    return largest;
}

} // namespace Hexley
