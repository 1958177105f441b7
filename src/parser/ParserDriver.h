#pragma once

#include "Brisko/CSSParser.h"
#include "Ondex/SimpleExpression.h"
#include "parser/RuleAssembly.h"
#include "parser/SemanticValue.h"
#include "parser/TokenFilter.h"

namespace Brisko {

/// State of a parser and everything that the actions of the grammar call. One parse at a time; every parse begins with
/// a reset.
///
/// The functions called by the grammar own the pointers they are given, and give away those they return.
/// Exported for the tests of the grammar only; not installed.
class BRISKO_EXPORT ParserDriver {
public:
    /// A parser made from a grammar file; 0 where it read the text to its end.
    using Grammar = int (*)(ParserDriver&);

    ParserDriver();
    ~ParserDriver();
    ParserDriver(const ParserDriver&) = delete;
    ParserDriver& operator=(const ParserDriver&) = delete;

    void setDpi(float dpi) { m_dpi = dpi; }
    float dpi() const;
    static void setDefaultDpi(float dpi);
    static float defaultDpi();
    void setMedia(const QString& media) { m_media = media; }
    const QString& media() const { return m_media; }
    /// Replaces the grammar that the library uses.
    void setGrammar(Grammar grammar) { m_grammar = grammar; }

    // The modes of CSSParser.
    CSSParser::ParseError parseSheet(StyleSheet& sheet, const QString& path, QStringList* fileList,
                                     SimpleSelector::Origin origin);
    bool parseString(StyleSheet& sheet, const QByteArray& text, QStringList* fileList, SimpleSelector::Origin origin);
    QList<Selector> selectors(const QString& text);
    Ondex::StyleValue expr(const QByteArray& text);
    /// The value that the whole text is; an empty one where any of it is none.
    Ondex::StyleValue wholeExpr(const QByteArray& text);

    /// Starts on a text without a grammar: the tokens are the caller's to read with lex(), up to stopTokens().
    void startTokens(int startToken, const QByteArray& text);
    void stopTokens();
    int currentLine() const { return m_tokens.currentLine(); }

    // Called by the grammar: tokens and messages.
    int lex(SemanticValue* value, TokenLocation* location);
    /// Reports a mistake with the file and the current line.
    void error(const QByteArray& message);

    // Called by the grammar: sheets.
    void checkCharset(QString* charset);
    void ignoreRule(QString* name);
    void ignorePage();
    bool matchesMedium(QString* medium);
    void importString(QString* path, bool mediaMatch);
    void importURI(QString* uri, bool mediaMatch);
    void parseRule();
    void commit();
    void closeBrokenRule();
    void closeMedia(bool mediaMatch);
    void closeBrokenMedia(bool mediaMatch);

    // Called by the grammar: selectors.
    void add(Selector* selector);
    Selector* chain(SimpleSelector* compound, SimpleSelector::Combinator combinator, Selector* right);
    Selector* dropSibling(SimpleSelector* compound, Selector* right);
    SimpleSelector* compound() const;
    SimpleSelector* withType(SimpleSelector* compound, QString* type) const;
    SimpleSelector* withId(SimpleSelector* compound, QString* id) const;
    SimpleSelector* withClass(SimpleSelector* compound, QString* name) const;
    SimpleSelector* withPseudoClass(SimpleSelector* compound, QString* name) const;
    void ignoreAttribute(QString* name);
    QString* ignoreParameter(QString* function, QString* parameter);

    // Called by the grammar: declarations and values.
    void setExprError(bool error) { m_tokens.setExprError(error); }
    void declare(QString* property, Ondex::StyleValue* value, bool important);
    void setExpr(Ondex::StyleValue* value);
    Ondex::StyleValue* append(Ondex::StyleValue* left, Ondex::StyleValue::Separator separator,
                              Ondex::StyleValue* right);
    Ondex::StyleValue* textValue(QString* text) const;
    Ondex::StyleValue* keywordValue(QString* name) const;
    Ondex::StyleValue* calcValue(Ondex::SimpleExpression* expression) const;
    Ondex::StyleValue* colorValue(QString* hex) const;
    Ondex::StyleValue* call(QString* function, Ondex::StyleValue* arguments);
    Ondex::SimpleExpression* combine(Ondex::SimpleExpression* left, Ondex::SimpleExpression::Tag tag,
                                     Ondex::SimpleExpression* right) const;
    Ondex::SimpleExpression* fractionOfReference(float fraction) const;

private:
    void reset(StyleSheet* sheet, QStringList* fileList, const QString& fileName, SimpleSelector::Origin origin);
    template <typename Source>
    bool runSheet(const Source& source);
    bool runExpr(const QByteArray& text);
    template <typename Source>
    bool run(int startToken, const Source& source);

    static QString canonicalPath(const QString& path);
    bool mayOpen(const QString& path) const;
    void import(const QString& path);

    Ondex::StyleValue* parseFunction(const QString& name, std::unique_ptr<Ondex::StyleValue> arguments);
    QString source();

    TokenFilter m_tokens;
    RuleAssembly m_rules;
    Grammar m_grammar;
    SimpleSelector::Origin m_origin = SimpleSelector::AuthorOrigin;
    Ondex::StyleValue m_expr;
    float m_dpi = 0;
    QString m_media = QStringLiteral("screen");
    QString m_fileName;
    QStringList* m_fileList = nullptr;
    StyleSheet* m_sheet = nullptr;
    QString m_source;      // "file:line" of m_sourceLine
    int m_sourceLine = -1; // -1: m_source is not set
    const ParserDriver* m_importer = nullptr;
    QString m_canonicalPath; // of the file being parsed, otherwise empty
};

} // namespace Brisko
