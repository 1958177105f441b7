#include "parser/ParserDriver.h"

#include "Brisko/StyleSheet.h"
#include "Gorvel/Trace.h"
#include "Grammar.h"
#include "parser/Tokens.h"

#include <QFile>

#include <unistd.h>

namespace Brisko {

using Gorvel::Trace;
using Ondex::StyleValue;

namespace {

float defaultDotsPerInch = 40.053f;

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, CloseStream>;

// A stream of its own on an open file.
Stream duplicate(int handle) {
    const int copy = handle < 0 ? -1 : ::dup(handle);
    if (copy < 0)
        return nullptr;
    Stream stream(::fdopen(copy, "r"));
    if (!stream)
        ::close(copy);
    return stream;
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
    QFile file(path);
    if (!mayOpen(path) || !file.open(QIODevice::ReadOnly)) {
        Trace::error("CSSParser::parseSheet # failed to open '%s'", name.constData());
        return CSSParser::OpenError;
    }
    const Stream stream = duplicate(file.handle());
    if (!stream) {
        Trace::error("CSSParser::parseSheet # failed to open file handle '%s'", name.constData());
        return CSSParser::OpenError;
    }
    reset(&sheet, fileList, path, origin);
    m_canonicalPath = canonicalPath(path);
    if (fileList)
        fileList->append(path);
    return runSheet(stream.get()) ? CSSParser::NoError : CSSParser::SyntaxError;
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
    Trace::error("%s:%d: error: %s", m_fileName.toUtf8().constData(), currentLine(), message.constData());
}

void ParserDriver::reset(StyleSheet* sheet, QStringList* fileList, const QString& fileName,
                         SimpleSelector::Origin origin) {
    m_sheet = sheet;
    m_fileList = fileList;
    m_fileName = fileName;
    m_canonicalPath.clear();
    m_origin = origin;
    m_rules.clear();
}

// What was read before the grammar gave up counts.
template <typename Source>
bool ParserDriver::runSheet(const Source& source) {
    if (run(CSS_PARSER, source))
        return true;
    Trace::error("CSS Parse Error: On line %d", currentLine());
    closeBrokenRule();
    return false;
}

template <typename Source>
bool ParserDriver::run(int startToken, const Source& source) {
    m_tokens.start(startToken, source, dpi());
    const int result = m_grammar(*this);
    m_tokens.stop();
    m_names.clear();
    return result == 0;
}

} // namespace Brisko
