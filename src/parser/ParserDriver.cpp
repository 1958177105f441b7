#include "parser/ParserDriver.h"

#include "Brisko/StyleSheet.h"
#include "Gorvel/RegularFile_p.h"
#include "Gorvel/Trace.h"
#include "Grammar.h"
#include "parser/Tokens.h"

#include <string>
#include <utility>

namespace Brisko {

using Gorvel::RegularFile;
using Gorvel::Trace;
using Ondex::StyleValue;

namespace {

float defaultDotsPerInch = 40.053f;

// Reads what is there of a sheet that was opened, and reports where that is not all. False for what cannot be a sheet.
bool readSheet(RegularFile& file, const char* name, std::string& text) {
    if (!file.hasHandle()) {
        Trace::error("CSSParser::parseSheet # failed to open file handle '%s'", name);
        return false;
    }
    switch (file.read(text)) {
    case RegularFile::Result::Whole:
        break;
    case RegularFile::Result::Changed:
        Trace::error("CSSParser::parseSheet # '%s' changed while it was read", name);
        break;
    case RegularFile::Result::Failed:
        Trace::error("CSSParser::parseSheet # failed to read '%s' to its end", name);
        break;
    case RegularFile::Result::TooLong:
        Trace::error("CSSParser::parseSheet # '%s' is longer than 2 GiB", name);
        return false;
    }
    return true;
}

QString textFileName() {
    return QStringLiteral("string");
}

} // namespace

ParserDriver::ParserDriver() : m_grammar(grammarparse) {}

ParserDriver::~ParserDriver() = default;

float ParserDriver::dpi() const {
    return m_dpi > 0 ? m_dpi : defaultDotsPerInch;
}

void ParserDriver::setDefaultDpi(float dpi) {
    defaultDotsPerInch = dpi;
}

float ParserDriver::defaultDpi() {
    return defaultDotsPerInch;
}

CSSParser::ParseError ParserDriver::parseSheet(StyleSheet& sheet, const QString& path, QStringList* fileList,
                                               SimpleSelector::Origin origin) {
    const QByteArray name = path.toUtf8();
    Trace::debug("CSSParser::parseSheet # (%p, %s)", static_cast<void*>(&sheet), name.constData());
    RegularFile file(path);
    if (!file.isOpen()) {
        Trace::error("CSSParser::parseSheet # failed to open '%s'", name.constData());
        return CSSParser::OpenError;
    }
    std::string text;
    if (!readSheet(file, name.constData(), text))
        return CSSParser::OpenError;
    reset(&sheet, fileList, path, origin);
    m_canonicalPath = canonicalPath(path);
    if (fileList)
        fileList->append(path);
    return runSheet(std::move(text)) ? CSSParser::NoError : CSSParser::SyntaxError;
}

bool ParserDriver::parseString(StyleSheet& sheet, const QByteArray& text, QStringList* fileList,
                               SimpleSelector::Origin origin) {
    reset(&sheet, fileList, QString(), origin);
    return runSheet(text);
}

QList<Selector> ParserDriver::selectors(const QString& text) {
    reset(nullptr, nullptr, textFileName(), SimpleSelector::AuthorOrigin);
    const QByteArray bytes = text.toUtf8();
    if (!run(SELECTOR_PARSER, bytes))
        Trace::error("CSS Selector parse error (%s)", bytes.constData());
    return QList<Selector>(m_rules.selectors().begin(), m_rules.selectors().end());
}

StyleValue ParserDriver::expr(const QByteArray& text) {
    if (!runExpr(text))
        Trace::error("CSSParser # expr parser error (%s)", text.constData());
    return m_expr;
}

StyleValue ParserDriver::wholeExpr(const QByteArray& text) {
    return runExpr(text) && !m_tokens.exprError() ? m_expr : StyleValue();
}

bool ParserDriver::runExpr(const QByteArray& text) {
    reset(nullptr, nullptr, textFileName(), SimpleSelector::AuthorOrigin);
    m_expr = StyleValue();
    return run(EXPR_PARSER, text);
}

void ParserDriver::startTokens(int startToken, const QByteArray& text) {
    m_tokens.start(startToken, text, dpi());
}

void ParserDriver::startTokensByRules(int startToken, const QByteArray& text) {
    startTokens(startToken, text);
    m_tokens.readByRulesOnly();
}

void ParserDriver::stopTokens() {
    m_tokens.stop();
}

void ParserDriver::error(const QByteArray& message) {
    QByteArray whole = message;
    whole.replace('\0', "\\x00"); // which would end it
    Trace::error("%s:%d: error: %s", m_fileName.toUtf8().constData(), currentLine(), whole.constData());
}

void ParserDriver::reset(StyleSheet* sheet, QStringList* fileList, const QString& fileName,
                         SimpleSelector::Origin origin) {
    m_sheet = sheet;
    m_fileList = fileList;
    m_fileName = fileName;
    m_canonicalPath.clear();
    m_importCount = 0;
    m_origin = origin;
    m_rules.clear();
}

// What was read before the grammar gave up counts.
template <typename Source>
bool ParserDriver::runSheet(Source&& source) {
    if (run(CSS_PARSER, std::forward<Source>(source)))
        return true;
    Trace::error("CSS Parse Error: On line %d", currentLine());
    closeBrokenRule();
    return false;
}

template <typename Source>
bool ParserDriver::run(int startToken, Source&& source) {
    m_tokens.start(startToken, std::forward<Source>(source), dpi());
    const int result = m_grammar(*this);
    m_tokens.stop();
    m_names.clear();
    return result == 0;
}

} // namespace Brisko
