#include "docs/DocExamples.h"
#include "docs/ExampleTree.h"

#include "Brisko/CSSParser.h"
#include "support/SheetDump.h"
#include "support/TraceGuard.h"

#include <QDir>
#include <QTemporaryDir>

#include <fstream>
#include <ostream>
#include <sstream>

namespace Testing {

void PrintTo(const DocExample& example, std::ostream* out) {
    *out << example.name;
}

} // namespace Testing

namespace {

using Brisko::CSSParser;
using Brisko::SimpleSelector;
using Brisko::StyleSheet;
using Testing::DocBlock;
using Testing::DocExample;

const std::string document = BRISKO_TEST_DIR "/../../docs/deviations.md";

/// Goes through the blocks of one example in the order of the document.
class ExampleRun {
public:
    explicit ExampleRun(const DocExample& example) {
        QDir::setCurrent(m_folder.path());
        for (const DocBlock& block : example.blocks)
            take(block);
    }
    ~ExampleRun() { QDir::setCurrent(m_home); }

    /// Messages, then what the example is about, a line each.
    std::string output() {
        std::string text = m_comparison;
        if (!m_tree.empty()) {
            Testing::ExampleTree tree(m_tree, *m_sheet);
            tree.setStyle(Brisko::Style(m_sheet));
            text += tree.dump();
        } else {
            for (const Brisko::Rule& rule : m_sheet->rules()) {
                StyleSheet one;
                one.declare(rule.selector(), rule.declarations());
                text += Testing::dumpSheet(one) + '\n';
            }
        }
        std::string messages;
        for (const std::string& message : m_trace.takeAll())
            messages += message + '\n';
        return messages + text;
    }

private:
    void take(const DocBlock& block) {
        if (block.language == "settings")
            takeSettings(block.text);
        else if (block.language == "tree")
            m_tree = block.text;
        else if (block.language == "selectors")
            compare(block.text);
        else if (block.language != "css")
            ADD_FAILURE() << "nobody knows what to do with a block of " << block.language;
        else if (!block.file.empty())
            std::ofstream(block.file) << block.text;
        else
            m_parser.parseString(*m_sheet, QByteArray::fromStdString(block.text), nullptr, m_origin);
    }

    void takeSettings(const std::string& text) {
        std::istringstream words(text);
        std::string name;
        float value = 0.f;
        while (words >> name >> value) {
            if (name == "dpi")
                m_parser.setDpi(value);
            else if (name == "origin")
                m_origin = SimpleSelector::Origin(int(value));
            else
                ADD_FAILURE() << "no setting is called " << name;
        }
    }

    void compare(const std::string& text) {
        const auto selectors = CSSParser::parseSelectors(QString::fromStdString(text).trimmed());
        ASSERT_EQ(selectors.size(), 2);
        m_comparison = selectors[0] == selectors[1] ? "equal\n" : "different\n";
    }

    Testing::TraceGuard m_trace;
    QTemporaryDir m_folder;
    QString m_home = QDir::currentPath();
    CSSParser m_parser;
    SimpleSelector::Origin m_origin = SimpleSelector::AuthorOrigin;
    std::shared_ptr<StyleSheet> m_sheet = std::make_shared<StyleSheet>();
    std::string m_tree;
    std::string m_comparison;
};

class Deviation : public testing::TestWithParam<DocExample> {};

TEST_P(Deviation, ComesOutAsTheDocumentSays) {
    EXPECT_EQ(ExampleRun(GetParam()).output(), GetParam().result);
}

INSTANTIATE_TEST_SUITE_P(, Deviation, testing::ValuesIn(Testing::readDocExamples(document)),
                         [](const auto& example) { return example.param.name; });

TEST(Deviations, EverySectionHasAnExample) {
    EXPECT_EQ(Testing::sectionsWithoutExample(document), std::vector<std::string>());
    EXPECT_GE(Testing::readDocExamples(document).size(), 30u);
}

} // namespace
