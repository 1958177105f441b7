#include "fuzz/support/Import.h"

namespace Fuzz {

bool isImportAllowed(const QString& path) {
    const QString inFolder = QStringLiteral("./");
    return path.startsWith(inFolder) && path.lastIndexOf('/') == inFolder.size() - 1;
}

} // namespace Fuzz
