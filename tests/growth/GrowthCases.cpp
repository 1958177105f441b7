#include "growth/GrowthCases.h"

#include "Brisko/AttributeBackground.h"
#include "Brisko/CSSParser.h"
#include "Brisko/Styleable.h"

#include <memory>
#include <utility>

namespace Testing {

namespace {

using Brisko::CSSParser;
using Brisko::SimpleSelector;
using Brisko::Style;
using Brisko::Styleable;
using Brisko::StyleSheet;
using Work = std::function<void()>;

QByteArray number(int i) {
    return QByteArray::number(i);
}

/// @p text once for every number below @p count, with the number in place of "%".
QByteArray numbered(const char* text, int count) {
    const QByteArray pattern(text);
    QByteArray all;
    for (int i = 0; i < count; ++i)
        all += QByteArray(pattern).replace("%", number(i));
    return all;
}

QByteArray times(const char* text, int count) {
    return QByteArray(text).repeated(count);
}

std::shared_ptr<StyleSheet> sheetOf(const QByteArray& text) {
    auto sheet = std::make_shared<StyleSheet>();
    CSSParser().parseString(*sheet, text, nullptr, SimpleSelector::AuthorOrigin);
    return sheet;
}

Work parsing(const QByteArray& text) {
    return [text, sheet = std::make_shared<StyleSheet>()] {
        CSSParser().parseString(*sheet, text, nullptr, SimpleSelector::AuthorOrigin);
    };
}

/// Reading a value, writing it to an attribute and turning it into text again.
Work usingValue(const QByteArray& text) {
    return [text, node = std::make_shared<Ondex::Node>(nullptr, "node")] {
        auto* attribute = new Ondex::AttributeT<Ondex::StyleValue>(node.get(), "value");
        attribute->set(CSSParser::parseValue(text), Ondex::Attribute::StyleLayer);
        attribute->asString(nullptr, Ondex::Attribute::EffectiveLayer);
    };
}

Styleable* addTo(Styleable& host, const char* type) {
    auto* child = new Styleable(type);
    host.addAttribute(child); // which owns it
    return child;
}

/// Adding children one by one to a node that is styled.
Work addingChildren(int count) {
    auto root = std::make_shared<Styleable>("panel");
    root->setStyle(
        Style(sheetOf("panel item { css-id: a } item { transition-delay: 2s } panel > item * { css-id: b }")));
    return [root, count] {
        for (int i = 0; i < count; ++i)
            addTo(*root, "item");
    };
}

std::shared_ptr<Styleable> chain(int levels) {
    auto root = std::make_shared<Styleable>("level");
    Styleable* last = root.get();
    for (int i = 1; i < levels; ++i)
        last = addTo(*last, "level");
    return root;
}

Work styling(std::shared_ptr<Styleable> root, const QByteArray& css) {
    return [root = std::move(root), style = Style(sheetOf(css))] { root->setStyle(style); };
}

constexpr char waitingRules[] = "* * * { css-id: a } * * * * { css-class: b } * > * * { transition-delay: 1s }";

Work stylingClasses(int count) {
    auto node = std::make_shared<Styleable>("node");
    node->setStyle(Style(sheetOf(numbered(".c% { transition-delay: %s } .c%.c0 .x { css-id: y }", 20))));
    const QString classes = QString::fromLatin1(numbered("c% ", count));
    return [node, classes] { node->setCSSClasses(classes); };
}

Work layering(int count) {
    auto node = std::make_shared<Ondex::Node>(nullptr, "node");
    auto* background = new Brisko::AttributeBackground(node.get(), "background"); // the node owns it
    QStringList images;
    for (int i = 0; i < count; ++i)
        images << QStringLiteral("none");
    const QByteArray sizes = "1px" + times(", 2px 3px", count / 2);
    const QByteArray positions = "left" + times(", right top", count / 3);
    return [=, owner = node] {
        background->setImages(images);
        background->setSize(CSSParser::parseValue(sizes));
        background->setPosition(CSSParser::parseValue(positions));
    };
}

} // namespace

const std::vector<GrowthCase>& growthCases() {
    static const std::vector<GrowthCase> cases = {
        {"Rules", 500, [](int n) { return parsing(numbered("type% .class% { width: %px }\n", n)); }},
        {"SelectorsOfARule", 500, [](int n) { return parsing(numbered("a%,", n) + "b { width: 1px }"); }},
        {"CompoundsOfASelector", 250, [](int n) { return parsing(times("a > b ", n) + "{ width: 1px }"); }},
        {"ClassesOfACompound", 500, [](int n) { return parsing(numbered(".c%", n) + "{ width: 1px }"); }},
        {"DeclarationsOfARule", 500, [](int n) { return parsing("a {" + numbered("p%: %px;", n) + '}'); }},
        {"TermsOfADeclaration", 500, [](int n) { return parsing("a { p:" + numbered(" %px", n) + '}'); }},
        {"NestedBlocks", 500, [](int n) { return parsing("@x " + times("{", n) + times("}", n) + "a { p: 1 }"); }},
        {"NestedBrackets", 500, [](int n) { return parsing("a { p: " + times("(", n) + times(")", n) + " }"); }},
        {"NestedSums", 250,
         [](int n) { return parsing("a { p: calc(" + times("(1 + ", n) + '1' + times(")", n) + ") }"); }},
        {"MediaBlocks", 500, [](int n) { return parsing(numbered("@media screen { a { width: %px } }", n)); }},
        {"UnclosedStrings", 500, [](int n) { return parsing(times("a { p: \"text\n", n)); }},
        {"UnclosedStringsOfOneLine", 500, [](int n) { return parsing(times("a { p: 'x\" ", n)); }},
        {"UnclosedComments", 500, [](int n) { return parsing(times("/* ", n)); }},
        {"UnclosedUrls", 500, [](int n) { return parsing(times("a { p: url(x ", n)); }},
        {"UnclosedUrlsOfOneWord", 500, [](int n) { return parsing("a { p: " + times("url(", n)); }},
        {"UnclosedUrlsOfStrings", 500, [](int n) { return parsing("a { p: " + times("url('x' ", n)); }},
        {"UnclosedBlocks", 500, [](int n) { return parsing(times("a {", n)); }},
        {"UnclosedMediaBlocks", 500, [](int n) { return parsing(times("@media x {", n)); }},
        {"UnclosedBrackets", 500, [](int n) { return parsing("a { p: " + times("(", n)); }},
        {"Backslashes", 500, [](int n) { return parsing(times("\\", 2 * n + 1)); }},
        {"Errors", 500, [](int n) { return parsing(times("a { : 1; p 1 } } ! {}\n", n)); }},
        {"ErrorsOfARule", 500, [](int n) { return parsing("a { " + times("p: ; : 1; ", n) + '}'); }},
        {"LongWord", 5000,
         [](int n) { return parsing(times("a", n) + " { " + times("p", n) + ": " + times("v", n) + '}'); }},
        {"LongString", 5000, [](int n) { return parsing("a { p: \"" + times("\\61 ", n) + "\" }"); }},
        {"LongNumber", 5000, [](int n) { return parsing("a { p: " + times("1", n) + '.' + times("2", n) + "px }"); }},
        {"TermsOfAValue", 500, [](int n) { return usingValue(numbered("%px ", n)); }},
        {"ListsOfAValue", 500, [](int n) { return usingValue("a" + numbered(", b %", n)); }},
        {"ChildrenOneByOne", 250, addingChildren},
        {"LevelsThatWait", 250, [](int n) { return styling(chain(n), waitingRules); }},
        {"RulesThatWait", 100, [](int n) { return styling(chain(10), numbered("* * * { p%: 1 }", n) + waitingRules); }},
        {"RulesThatMatch", 250, [](int n) { return styling(chain(2), numbered("* { css-id: a% }", n)); }},
        {"ClassesOfANode", 250, stylingClasses},
        {"LayersOfABackground", 250, layering},
    };
    return cases;
}

} // namespace Testing
