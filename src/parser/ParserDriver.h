#pragma once

#include "Brisko/CSSParser.h"
#include "Ondex/SimpleExpression.h"
#include "parser/ObjectPool.h"
#include "parser/ParsedNames.h"
#include "parser/PlainRules.h"
#include "parser/RuleAssembly.h"
#include "parser/SemanticValue.h"
#include "parser/TokenFilter.h"

namespace Brisko {

/// State of a parser and everything that the actions of the grammar call. One parse at a time; every parse begins with
/// a reset.
///
/// The functions called by the grammar own the pointers they are given, and give away those they return; release() is
/// for those that the grammar has no use for.
/// Exported for the tests of the grammar only; not installed.
class BRISKO_EXPORT ParserDriver {
public:
    /// A parser made from a grammar file; 0 where it read the text to its end.
    using Grammar = int (*)(ParserDriver&);
    /// A compound that is being built.
    using Compound = std::shared_ptr<SimpleSelector>;

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
    void setImportFilter(CSSParser::ImportFilter filter);
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
    /// The same with all tokens read by the rules of Scanner.l.
    void startTokensByRules(int startToken, const QByteArray& text);
    void stopTokens();
    int currentLine() { return m_tokens.currentLine(); }

    // Called by the grammar: tokens and messages.
    int lex(SemanticValue* value) { return m_tokens.lex(value); }
    /// Reports a mistake with the file and the current line.
    void error(const QByteArray& message);

    /// The way past the grammar for what is plain.
    PlainRules& plainRules() { return m_plainRules; }

    // Called by the grammar: what became of a symbol that was dropped.
    void release(Selector* selector) { m_selectors.release(selector); }
    void release(Compound* compound) { m_compounds.release(compound); }
    void release(Ondex::StyleValue* value) { m_values.release(value); }
    void release(Ondex::SimpleExpression* expression);

    // Called by the grammar: sheets.
    void checkCharset(const TokenText& charset);
    void ignoreRule(const TokenText& name);
    void ignorePage();
    bool matchesMedium(const TokenText& medium) const;
    void importString(const TokenText& path, bool mediaMatch);
    void importURI(const TokenText& uri, bool mediaMatch);
    void parseRule();
    void commit();
    void closeBrokenRule();
    void closeMedia(bool mediaMatch);
    void closeBrokenMedia(bool mediaMatch);

    // Called by the grammar: selectors.
    void add(Selector* selector);
    Selector* selector();
    Selector* chain(Compound* compound, SimpleSelector::Combinator combinator, Selector* right);
    Selector* dropSibling(Compound* compound, Selector* right);
    Compound* compound();
    Compound* withType(Compound* compound, const TokenText& type);
    Compound* withId(Compound* compound, const TokenText& id);
    Compound* withClass(Compound* compound, const TokenText& name);
    Compound* withPseudoClass(Compound* compound, const TokenText& name);
    void ignoreAttribute();
    TokenText ignoreParameter(const TokenText& function);

    // Called by the grammar: declarations and values.
    void setExprError(bool error) { m_tokens.setExprError(error); }
    void declare(const TokenText& property, Ondex::StyleValue* value, bool important);
    void setExpr(Ondex::StyleValue* value);
    Ondex::StyleValue* append(Ondex::StyleValue* left, Ondex::StyleValue::Separator separator,
                              Ondex::StyleValue* right);
    Ondex::StyleValue* value(int number) { return m_values.make(number); }
    Ondex::StyleValue* value(float number, Ondex::Attribute::ValueUnit unit) { return m_values.make(number, unit); }
    Ondex::StyleValue* textValue(const TokenText& text);
    Ondex::StyleValue* keywordValue(const TokenText& name);
    Ondex::StyleValue* calcValue(Ondex::SimpleExpression* expression);
    Ondex::StyleValue* colorValue(const TokenText& hex);
    Ondex::StyleValue* call(const TokenText& function, Ondex::StyleValue* arguments);
    /// Whether there are arguments for which call() does something.
    static bool knowsFunction(const TokenText& function);
    Ondex::SimpleExpression* combine(Ondex::SimpleExpression* left, Ondex::SimpleExpression::Tag tag,
                                     Ondex::SimpleExpression* right) const;
    Ondex::SimpleExpression* fractionOfReference(float fraction) const;

private:
    void reset(StyleSheet* sheet, QStringList* fileList, const QString& fileName, SimpleSelector::Origin origin);
    template <typename Source>
    bool runSheet(Source&& source);
    bool runExpr(const QByteArray& text);
    template <typename Source>
    bool run(int startToken, Source&& source);

    static QString canonicalPath(const QString& path);
    bool allowsImport(const QString& path) const;
    ParserDriver* outermost();
    const char* faultOfImport(const QString& path);
    void import(const QString& path);

    Ondex::StyleValue* parseFunction(const QString& name, Ondex::StyleValue* arguments);

    TokenFilter m_tokens;
    PlainRules m_plainRules{*this, m_tokens};
    RuleAssembly m_rules;
    ParsedNames m_names;
    ObjectPool<Ondex::StyleValue> m_values;
    ObjectPool<Compound> m_compounds;
    ObjectPool<Selector> m_selectors;
    Grammar m_grammar;
    SimpleSelector::Origin m_origin = SimpleSelector::AuthorOrigin;
    Ondex::StyleValue m_expr;
    float m_dpi = 0;
    QString m_media = QStringLiteral("screen");
    std::shared_ptr<const CSSParser::ImportFilter> m_importFilter; // shared with the parsers of imports; null for none
    QString m_fileName;
    QStringList* m_fileList = nullptr;
    StyleSheet* m_sheet = nullptr;
    ParserDriver* m_importer = nullptr;
    int m_importCount = 0;   // on all levels, where this is the outermost parser
    QString m_canonicalPath; // of the file being parsed, otherwise empty
};

} // namespace Brisko
