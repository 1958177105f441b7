#include "Hexley/ImageEnd_p.h"

#include <QtEndian>

namespace Hexley {

namespace {

const QByteArray pngSignature("\x89PNG\r\n\x1a\n", 8);
const QByteArray jpegSignature("\xff\xd8\xff", 3);

/// Walks the chunks: length, type, content, check sum.
bool hasPngEnd(const QByteArray& bytes) {
    constexpr qint64 frame = 12;
    qint64 at = pngSignature.size();
    while (at + frame <= bytes.size()) {
        const qint64 length = qFromBigEndian<quint32>(bytes.constData() + at);
        if (length > bytes.size() - at - frame)
            return false;
        if (bytes.mid(int(at) + 4, 4) == "IEND")
            return true;
        at += frame + length;
    }
    return false;
}

/// Whether the segment of a marker has a length: not in fill bytes, stuffed ones, restarts and the start of the image.
bool hasLength(quint8 marker) {
    return marker >= 0xc0 && marker != 0xff && (marker < 0xd0 || marker > 0xd8);
}

/// Walks from marker to marker, through the coded data between them too.
bool hasJpegEnd(const QByteArray& bytes) {
    constexpr quint8 endOfImage = 0xd9;
    qint64 at = 2;
    while (at < bytes.size() && (at = bytes.indexOf('\xff', int(at))) >= 0 && at + 1 < bytes.size()) {
        const quint8 marker = quint8(bytes[int(at) + 1]);
        if (marker == endOfImage)
            return true;
        if (!hasLength(marker))
            at += marker == 0xff ? 1 : 2;
        else if (at + 4 <= bytes.size())
            at += 2 + qFromBigEndian<quint16>(bytes.constData() + at + 2);
        else
            return false;
    }
    return false;
}

} // namespace

bool hasImageEnd(const QByteArray& bytes) {
    if (bytes.startsWith(pngSignature))
        return hasPngEnd(bytes);
    return !bytes.startsWith(jpegSignature) || hasJpegEnd(bytes);
}

} // namespace Hexley
