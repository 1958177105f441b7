#include "attributes/FontKeywords.h"

namespace Brisko::FontKeywords {

const QStringList& genericFamilies() {
    static const QStringList families = {"serif", "sans-serif", "cursive", "fantasy", "monospace"};
    return families;
}

const QByteArrayList& systemFonts() {
    static const QByteArrayList fonts = {"caption", "icon", "menu", "message-box", "small-caption", "status-bar"};
    return fonts;
}

} // namespace Brisko::FontKeywords
