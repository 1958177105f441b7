#include "Brisko/CSSParser.h"

#include "parser/ParserDriver.h"

#include <utility>

namespace Brisko {

using Ondex::StyleValue;

CSSParser::CSSParser() : m_driver(std::make_unique<ParserDriver>()) {}

CSSParser::~CSSParser() = default;

void CSSParser::setDpi(float dpi) {
    m_driver->setDpi(dpi);
}

float CSSParser::dpi() const {
    return m_driver->dpi();
}

void CSSParser::setDefaultDpi(float dpi) {
    ParserDriver::setDefaultDpi(dpi);
}

float CSSParser::defaultDpi() {
    return ParserDriver::defaultDpi();
}

void CSSParser::setMedia(const QString& media) {
    m_driver->setMedia(media);
}

const QString& CSSParser::media() const {
    return m_driver->media();
}

void CSSParser::setImportFilter(ImportFilter filter) {
    m_driver->setImportFilter(std::move(filter));
}

CSSParser::ParseError CSSParser::parseSheet(StyleSheet& sheet, const QString& path, QStringList* fileList,
                                            SimpleSelector::Origin origin) {
    return m_driver->parseSheet(sheet, path, fileList, origin);
}

bool CSSParser::parseString(StyleSheet& sheet, const QByteArray& text, QStringList* fileList,
                            SimpleSelector::Origin origin) {
    return m_driver->parseString(sheet, text, fileList, origin);
}

QList<Selector> CSSParser::selectors(const QString& text) {
    return m_driver->selectors(text);
}

StyleValue CSSParser::expr(const QByteArray& text) {
    return m_driver->expr(text);
}

QList<Selector> CSSParser::parseSelectors(const QString& text) {
    return CSSParser().selectors(text);
}

SimpleSelector CSSParser::parseSimpleSelector(const QString& text) {
    const QList<Selector> selectors = parseSelectors(text);
    if (selectors.isEmpty() || selectors.first().size() == 0)
        return SimpleSelector(SimpleSelector::AuthorOrigin, QByteArray(), QString());
    SimpleSelector compound = *selectors.first().front();
    compound.detach();
    return compound;
}

StyleValue CSSParser::parseValue(const QByteArray& text) {
    return text.isEmpty() ? StyleValue() : CSSParser().expr(text);
}

} // namespace Brisko
