#include "Hexley/Mipmap.h"

#include "Gorvel/RegularFile_p.h"
#include "Gorvel/Trace.h"
#include "Hexley/IconSize_p.h"
#include "Hexley/ImageEnd_p.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QImageReader>
#include <QSet>

#include <mutex>
#include <string>

namespace Hexley {

using Gorvel::RegularFile;

namespace {

/// An image, or why there is none.
struct Loaded {
    QImage image;
    QString fault;
};

Loaded fault(const QString& text) {
    return {QImage(), text};
}

bool isTooLarge(const QSize& size) {
    return size.isValid() && qint64(size.width()) * size.height() > Mipmap::largestImage / 4;
}

Loaded tooLarge(const QSize& size) {
    return fault(QStringLiteral("%1 x %2 pixels are too many").arg(size.width()).arg(size.height()));
}

Loaded read(QByteArray bytes) {
    if (!hasImageEnd(bytes))
        return fault(QStringLiteral("The file ends too early"));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    // The size is asked for first: a header that announces too much is refused before any memory is taken.
    for (const QSize& announced : {reader.size(), largestIconPicture(bytes)}) {
        if (isTooLarge(announced))
            return tooLarge(announced);
    }
    const QImage image = reader.read();
    if (image.isNull())
        return fault(reader.errorString().isEmpty() ? QStringLiteral("Unknown error") : reader.errorString());
    if (isTooLarge(image.size())) // by a format that announces nothing
        return tooLarge(image.size());
    return {image.convertToFormat(QImage::Format_ARGB32_Premultiplied), QString()};
}

Loaded readFile(const QString& name) {
    if (!QFileInfo(name).isFile())
        return fault(QStringLiteral("File not found"));
    RegularFile file(name);
    if (!file.isOpen())
        return fault(QStringLiteral("The file cannot be opened"));
    if (file.size() > Mipmap::largestImage)
        return fault(QStringLiteral("The file is too large"));
    std::string bytes;
    switch (file.read(bytes)) {
    case RegularFile::Result::Whole:
        return read(QByteArray::fromRawData(bytes.data(), int(bytes.size())));
    case RegularFile::Result::Changed:
        return fault(QStringLiteral("The file changed while it was read"));
    default:
        return fault(QStringLiteral("The file cannot be read"));
    }
}

/// The bytes of a "data:" URL (RFC 2397).
QByteArray dataOf(const QString& url) {
    const int comma = url.indexOf(QLatin1Char(','));
    const QByteArray content = QByteArray::fromPercentEncoding(url.mid(comma + 1).toUtf8());
    return url.leftRef(comma).endsWith(QLatin1String(";base64")) ? QByteArray::fromBase64(content) : content;
}

bool isData(const QString& path) {
    return path.startsWith(QLatin1String("data:"));
}

/// The path without what an unquoted url() leaves at its end.
QString withoutBracket(QString path) {
    if (path.endsWith(QLatin1Char(')')))
        path.chop(1);
    while (!path.isEmpty() && path.back().isSpace())
        path.chop(1);
    return path;
}

/// The path as messages show it: "data:" URLs cut off, as they hold a whole image.
QByteArray shownName(const QString& path) {
    constexpr int longest = 40;
    const QString bare = withoutBracket(path);
    return isData(bare) && bare.size() > longest ? bare.left(longest).toUtf8() + "..." : bare.toUtf8();
}

} // namespace

/// The images that are held somewhere, the faults that were reported, and where to look.
class Mipmap::Store {
public:
    static Store& instance() {
        static Store store;
        return store;
    }

    /// The image, or an empty handle and why; an empty fault where that was said before.
    std::shared_ptr<Mipmap> acquire(const QString& path, bool smooth, QString& fault) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const QString name = locate(path);
        const Key key(name, smooth);
        if (std::shared_ptr<Mipmap> held = m_images.value(key).lock())
            return held;
        const Loaded loaded = isData(name) ? read(dataOf(name)) : readFile(name);
        if (loaded.image.isNull()) {
            if (!m_reported.contains(path))
                fault = loaded.fault;
            m_reported.insert(path);
            return nullptr;
        }
        m_reported.remove(path);
        const std::shared_ptr<Mipmap> image(new Mipmap(loaded.image, smooth));
        keep(key, image);
        return image;
    }

    void setSearchPaths(const QStringList& directories) {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_directories = directories;
        m_reported.clear();
    }

private:
    using Key = QPair<QString, bool>;

    /// The file of a path: the first that exists, as given or without the end of a url(); else the path without it.
    QString locate(const QString& path) const {
        const QString bare = withoutBracket(path);
        if (isData(path))
            return bare;
        for (const QString& name : {path, bare}) {
            const QString file = find(name);
            if (!file.isEmpty())
                return file;
        }
        return bare;
    }

    /// The file called @p name in a search path or the working directory; empty where there is none.
    QString find(const QString& name) const {
        QStringList candidates;
        if (QDir::isRelativePath(name)) {
            for (const QString& directory : m_directories)
                candidates.append(QDir(directory).filePath(name));
        }
        candidates.append(name);
        for (const QString& candidate : candidates) {
            if (QFileInfo(candidate).isFile())
                return QFileInfo(candidate).canonicalFilePath();
        }
        return QString();
    }

    /// Remembers an image, and forgets those that nobody holds once they may be half of all.
    void keep(const Key& key, const std::shared_ptr<Mipmap>& image) {
        m_images.insert(key, image);
        if (m_images.size() < m_nextSweep)
            return;
        for (auto held = m_images.begin(); held != m_images.end();)
            held = held->expired() ? m_images.erase(held) : std::next(held);
        m_nextSweep = 2 * m_images.size() + firstSweep;
    }

    static constexpr int firstSweep = 64;

    std::mutex m_mutex;
    QHash<Key, std::weak_ptr<Mipmap>> m_images;
    int m_nextSweep = firstSweep;
    QSet<QString> m_reported;
    QStringList m_directories;
};

std::shared_ptr<Mipmap> Mipmap::acquire(const QString& path, bool smooth) {
    QString fault;
    std::shared_ptr<Mipmap> image = Store::instance().acquire(path, smooth, fault);
    if (!fault.isEmpty())
        Gorvel::Trace::warning("Mipmap::acquire # Cannot read image '%s': %s", shownName(path).constData(),
                               fault.toUtf8().constData());
    return image;
}

void Mipmap::setSearchPaths(const QStringList& directories) {
    Store::instance().setSearchPaths(directories);
}

} // namespace Hexley
