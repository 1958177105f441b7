#include "Gorvel/Trace.h"
#include "parser/ParserDriver.h"

#include <QFileInfo>

#include <utility>

namespace Brisko {

using Gorvel::Trace;

namespace {

constexpr int maximumImportDepth = 16;
constexpr int maximumImports = 1000; // files that import each other several times would be read in powers of that

QString directoryOf(const QString& fileName) {
    return fileName.isEmpty() ? QStringLiteral(".") : QFileInfo(fileName).path();
}

} // namespace

// Empty for a name with a zero in it, which no file has: QFileInfo would print that it is broken.
QString ParserDriver::canonicalPath(const QString& path) {
    return path.contains(QChar::Null) ? QString() : QFileInfo(path).canonicalFilePath();
}

void ParserDriver::setImportFilter(CSSParser::ImportFilter filter) {
    m_importFilter = filter ? std::make_shared<const CSSParser::ImportFilter>(std::move(filter)) : nullptr;
}

bool ParserDriver::allowsImport(const QString& path) const {
    const auto filter = m_importFilter; // kept should the filter replace itself
    try {
        return !filter || (*filter)(path);
    } catch (...) {
        return false;
    }
}

// The parser of the sheet that all these imports are for.
ParserDriver* ParserDriver::outermost() {
    ParserDriver* parser = this;
    while (parser->m_importer)
        parser = parser->m_importer;
    return parser;
}

// What is wrong with importing a file from here; null where nothing is.
const char* ParserDriver::faultOfImport(const QString& path) {
    const QString canonical = canonicalPath(path);
    int depth = 0;
    if (outermost()->m_importCount >= maximumImports)
        return "comes after 1000 others";
    for (const ParserDriver* importer = this; importer; importer = importer->m_importer) {
        if (++depth > maximumImportDepth)
            return "is nested deeper than 16 levels";
        if (!canonical.isEmpty() && importer->m_canonicalPath == canonical)
            return "leads back to a file that is being read";
    }
    return nullptr;
}

void ParserDriver::import(const QString& path) {
    const QString resolved = QFileInfo(path).isRelative() ? directoryOf(m_fileName) + '/' + path : path;
    const QByteArray name = path.toUtf8();
    if (!allowsImport(resolved)) {
        error("@import of '" + name + "' is refused");
        return;
    }
    bool isRead = false;
    if (const char* fault = faultOfImport(resolved)) {
        error("@import of '" + name + "' " + fault);
    } else {
        ++outermost()->m_importCount;
        ParserDriver nested;
        nested.m_media = m_media;
        nested.m_importFilter = m_importFilter;
        nested.m_grammar = m_grammar;
        nested.m_importer = this;
        isRead = nested.parseSheet(*m_sheet, resolved, m_fileList, m_origin) != CSSParser::OpenError;
    }
    if (!isRead)
        Trace::error("CSSParser::import # Failed @import %s", name.constData());
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
