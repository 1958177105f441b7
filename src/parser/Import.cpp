#include "Gorvel/Trace.h"
#include "parser/ParserDriver.h"

#include <QFileInfo>

namespace Brisko {

using Gorvel::Trace;

namespace {

constexpr int maximumImportDepth = 16;

QString directoryOf(const QString& fileName) {
    return fileName.isEmpty() ? QStringLiteral(".") : QFileInfo(fileName).path();
}

} // namespace

QString ParserDriver::canonicalPath(const QString& path) {
    return QFileInfo(path).canonicalFilePath();
}

// Only regular files are opened, so that a pipe or a terminal never holds a parse up.
bool ParserDriver::mayOpen(const QString& path) const {
    if (path.contains(QChar::Null) || !QFileInfo(path).isFile())
        return false;
    const QString canonical = m_importer ? canonicalPath(path) : QString();
    int depth = 0;
    for (const ParserDriver* importer = m_importer; importer; importer = importer->m_importer) {
        if (++depth > maximumImportDepth || importer->m_canonicalPath == canonical)
            return false;
    }
    return true;
}

void ParserDriver::import(const QString& path) {
    const QString resolved = QFileInfo(path).isRelative() ? directoryOf(m_fileName) + '/' + path : path;
    ParserDriver nested;
    nested.m_media = m_media;
    nested.m_grammar = m_grammar;
    nested.m_importer = this;
    if (nested.parseSheet(*m_sheet, resolved, m_fileList, m_origin) == CSSParser::OpenError)
        Trace::error("CSSParser::import # Failed @import %s", path.toUtf8().constData());
}

void ParserDriver::importString(const TokenText& path, bool mediaMatch) {
    if (mediaMatch)
        import(path.toString());
}

void ParserDriver::importURI(const TokenText& uri, bool mediaMatch) {
    if (!mediaMatch)
        return;
    Trace::error("CSSParser::importURI # URI import is not fully implemented");
    import(uri.toString());
}

} // namespace Brisko
