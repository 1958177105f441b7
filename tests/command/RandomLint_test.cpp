#include "Brisko/CSSParser.h"
#include "Brisko/Explain.h"
#include "Gorvel/Trace.h"
#include "brisko/SceneReader.h"
#include "command/CommandRun.h"
#include "support/Dice.h"

#include <QFile>

#include <set>

namespace {

using Brisko::Explanation;
using Brisko::Styleable;
using Testing::Dice;

const std::vector<std::string> types = {"a", "b"};
const std::vector<std::string> classes = {".c", ".d"};
const std::vector<std::string> states = {":p", ":q"};

std::string pick(Dice& dice, const std::vector<std::string>& from) {
    return from[std::size_t(dice.roll(int(from.size())))];
}

std::string compound(Dice& dice) {
    std::string text = dice.roll(3) == 0 ? "*" : pick(dice, types);
    if (dice.roll(2) == 0)
        text += pick(dice, classes);
    for (const std::string& state : states)
        text += dice.roll(4) == 0 ? state : "";
    return text;
}

std::string declaration(Dice& dice) {
    static const std::vector<std::string> properties = {"width", "padding", "padding-top", "opacity"};
    const std::string property = pick(dice, properties);
    return property + (dice.roll(8) == 0 ? ": 1 !important" : ": 1");
}

/// A rule a line, with one declaration.
std::string randomSheet(Dice& dice) {
    std::string sheet;
    for (int i = 0; i < 8; ++i) {
        sheet += compound(dice);
        for (int compounds = dice.roll(3); compounds > 0; --compounds) {
            sheet += dice.roll(2) == 0 ? " > " : " ";
            sheet += compound(dice);
        }
        sheet += " { ";
        sheet += declaration(dice);
        sheet += " }\n";
    }
    return sheet;
}

std::string startOf(Dice& dice, const std::string& type) {
    std::string tag = "<" + type + " class='";
    tag += pick(dice, {"c", "d", "c d", ""});
    tag += dice.roll(6) == 0 ? "' width='3'>" : "'>";
    return tag;
}

/// Four nodes below each other, or the last one beside the others; some of them with a value of the scene.
std::string randomScene(Dice& dice) {
    const bool isDeep = dice.roll(2) == 0;
    std::string start;
    std::string end;
    for (int i = 0; i < 4; ++i) {
        const std::string type = i == 0 ? "a" : pick(dice, types);
        if (i == 3 && !isDeep) {
            start += end.substr(0, end.size() - 4); // all but the root are closed
            end = "</a>";
        }
        start += startOf(dice, type);
        end = "</" + type + ">" + end;
    }
    return start + end;
}

void collect(Styleable& node, std::vector<Styleable*>& nodes) {
    nodes.push_back(&node);
    for (Styleable* child : node.children())
        collect(*child, nodes);
}

/// The lines of a sheet.
struct Lines {
    std::set<int> reaching; ///< with a declaration that reaches a node
    std::set<int> winning;  ///< with one that wins somewhere

    /// Adds what the nodes say in the state that they are in.
    void add(const std::vector<Styleable*>& nodes) {
        for (const Styleable* node : nodes) {
            const Explanation explanation(*node);
            for (const QByteArray& property : explanation.properties()) {
                for (const Explanation::Candidate& candidate : explanation.candidates(property))
                    add(property, candidate);
            }
        }
    }

private:
    void add(const QByteArray& property, const Explanation::Candidate& candidate) {
        const int line = candidate.source.section(':', -1).toInt();
        reaching.insert(line);
        if (candidate.outcome == Explanation::Outcome::Wins && property != "padding") // it is its longhands that win
            winning.insert(line);
    }
};

class RandomLint : public Testing::CommandTest {
protected:
    /// Tries every combination of pseudo-classes at every node.
    Lines trueLines(const std::string& scene, const std::string& sheetPath) {
        const Gorvel::Trace::Muted muted;
        const Command::Properties properties;
        const std::unique_ptr<Styleable> root =
            Command::SceneReader(QByteArray::fromStdString(scene), properties).read();
        auto sheet = std::make_shared<Brisko::StyleSheet>();
        Brisko::CSSParser().parseSheet(*sheet, QString::fromStdString(sheetPath), nullptr,
                                       Brisko::SimpleSelector::AuthorOrigin);
        root->setStyle(Brisko::Style(sheet));
        std::vector<Styleable*> nodes;
        collect(*root, nodes);
        Lines lines;
        for (unsigned mask = 0; mask < 1u << (2 * nodes.size()); ++mask) {
            for (std::size_t i = 0; i < nodes.size(); ++i) {
                nodes[i]->setPseudoClass("p", mask >> (2 * i) & 1);
                nodes[i]->setPseudoClass("q", mask >> (2 * i) & 2);
            }
            lines.add(nodes);
        }
        return lines;
    }

    /// The lines that the command names for that rule.
    std::set<int> foundLines(const std::string& scene, const std::string& sheet, const QString& rule) {
        std::set<int> lines;
        const auto findings = run({"check", sheet, "--scene", scene, "--format", "json"}).json()["findings"].toArray();
        for (const QJsonValue& finding : findings) {
            if (finding["rule"].toString() == rule)
                lines.insert(finding["line"].toInt());
        }
        return lines;
    }
};

TEST_F(RandomLint, AgreesWithATrialOfAllStates) {
    for (unsigned seed = 1; seed <= 40; ++seed) {
        Dice dice(seed);
        const std::string sheetText = randomSheet(dice);
        const std::string sceneText = randomScene(dice);
        const std::string sheet = write("a.css", sheetText);
        const std::string scene = write("a.xml", sceneText);
        SCOPED_TRACE("seed " + std::to_string(seed) + "\n" + sceneText + "\n" + sheetText);
        const Lines lines = trueLines(scene, sheet);
        std::set<int> overridden;
        std::set<int> unmatched;
        for (int line = 1; line <= 8; ++line) {
            if (lines.reaching.count(line) == 0)
                unmatched.insert(line);
            else if (lines.winning.count(line) == 0)
                overridden.insert(line);
        }
        EXPECT_EQ(foundLines(scene, sheet, "unmatched-rule"), unmatched);
        EXPECT_EQ(foundLines(scene, sheet, "overridden-declaration"), overridden);
    }
}

} // namespace
