#pragma once

#include "Gorvel/HostExport.h"

#include <QImage>
#include <QString>
#include <QStringList>

#include <memory>

namespace Hexley {

/// An image that everybody who asks for the same file shares.
///
///     Hexley::Mipmap::setSearchPaths({"/usr/share/app/images"});
///     if (auto wood = Hexley::Mipmap::acquire("wood.png", false))
///         painter.drawImage(0, 0, wood->image());
///
/// An image lives as long as somebody holds it. What Qt's image readers know can be read. Safe to use from any thread.
class BRISKO_HOST_EXPORT Mipmap {
public:
    /// Largest image that is read, in bytes of its pixels, four to the pixel; also the largest file.
    static constexpr qint64 largestImage = qint64(256) << 20;

    /// Reads an image, or shares the one that was read before.
    /// @param path    absolute, or relative to a search path or the working directory; a "data:" URL; either may still
    ///                have the blanks and the bracket that end a url()
    /// @param smooth  whether to keep it in a form that scales down smoothly
    /// @return        empty where there is none, it is broken or too large, which is reported once for each path
    static std::shared_ptr<Mipmap> acquire(const QString& path, bool smooth);
    /// Directories that are tried in order for a relative path, before the working directory.
    static void setSearchPaths(const QStringList& directories);

    const QImage& image() const { return m_image; }
    /// Whether it was asked for in a form that scales down smoothly.
    bool isSmooth() const { return m_isSmooth; }

private:
    class Store;
    Mipmap(const QImage& image, bool smooth) : m_image(image), m_isSmooth(smooth) {}

    QImage m_image;
    bool m_isSmooth;
};

} // namespace Hexley
