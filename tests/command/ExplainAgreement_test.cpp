#include "command/CommandRun.h"
#include "support/Dice.h"

namespace {

using Testing::childOf;
using Testing::CommandTest;
using Testing::Dice;

constexpr unsigned firstSeed = 20220301;
constexpr int pairs = 60;
constexpr const char* properties[] = {"width",   "height",   "x", "padding-left", "border-top-width",
                                      "opacity", "font-size"};

template <std::size_t count>
std::string oneOf(Dice& dice, const char* const (&texts)[count]) {
    return texts[dice.roll(int(count))];
}

std::string number(Dice& dice) {
    return std::to_string(1 + dice.roll(90));
}

std::string randomElement(Dice& dice, int depth) {
    static constexpr const char* types[] = {"a", "b", "c"};
    static constexpr const char* attributes[] = {" id='i'",         " class='k'",      " class='K l'",
                                                 " pseudo='hover'", " width='3px'",    " padding='4px 5px'",
                                                 " x='6'",          " opacity='0.25'", " border='7px solid blue'",
                                                 " font-size='8px'"};
    const std::string type = oneOf(dice, types);
    std::string text = "<" + type;
    for (const char* attribute : attributes)
        text += dice.chance(15) && (attribute != std::string(" class='K l'") || text.find("class") == std::string::npos)
                    ? attribute
                    : "";
    text += ">";
    for (int children = depth < 3 ? dice.roll(3) : 0; children > 0; --children)
        text += randomElement(dice, depth + 1);
    return text + "</" + type + ">";
}

std::string randomDeclaration(Dice& dice) {
    static constexpr const char* lengths[] = {
        "width",   "height", "size",       "x",         "y",      "location",     "padding-left",
        "padding", "border", "border-top", "font-size", "margin", "border-width", "border-top-width"};
    static constexpr const char* others[] = {"opacity: 0.5",
                                             "opacity: 1",
                                             "width: foo",
                                             "border: 9 none red",
                                             "padding: 1 2 3 4 5",
                                             "font: 12px/2 Foo",
                                             "font: Foo",
                                             "css-class: m",
                                             "bogus: 1",
                                             "size: 20px 30px",
                                             "padding: 1px 2px 3px 4px",
                                             "border-top-width: bar"};
    std::string text = dice.chance(60) ? oneOf(dice, lengths) + ": " + number(dice) + "px" : oneOf(dice, others);
    // An important class would take away what its own rule asks for, and the two would never agree.
    return text + (text != "css-class: m" && dice.chance(15) ? " !important; " : "; ");
}

std::string randomRule(Dice& dice) {
    static constexpr const char* compounds[] = {"a", "b", "c", "*", ".k", ".l", ".m", "#i", ":hover", "a.k", "b:hover"};
    static constexpr const char* combinators[] = {" ", " > ", ", "};
    std::string text = oneOf(dice, compounds);
    while (dice.chance(30))
        text += oneOf(dice, combinators) + oneOf(dice, compounds);
    text += " { ";
    do {
        text += randomDeclaration(dice);
    } while (dice.chance(60));
    return text + "}\n";
}

class ExplainAgreement : public CommandTest {
protected:
    void collect(const QJsonObject& node) {
        m_styled.insert(node["path"].toString(), node["attributes"].toObject());
        for (int i = 0; i < node["children"].toArray().size(); ++i)
            collect(childOf(node, i));
    }

    /// What `explain` says of one property of one node, against what `style` says of it.
    void compare(const QJsonObject& explained) {
        const QJsonObject styled = m_styled[explained["path"].toString()][explained["property"].toString()].toObject();
        if (styled.contains("value")) {
            EXPECT_EQ(explained["value"], styled["value"]);
            EXPECT_EQ(explained["layers"], styled["layers"]);
        }
        QJsonValue winner(QJsonValue::Undefined);
        QJsonValue holder(QJsonValue::Undefined); // the winner, or what would be without the scene
        for (const QJsonValue& candidate : explained["candidates"].toArray()) {
            if (candidate["wins"].toBool())
                winner = candidate;
            if (candidate["wins"].toBool() || candidate["lostBy"] == "user layer")
                holder = candidate;
        }
        EXPECT_EQ(holder["source"].toString(), styled["source"].toString());
        const QString layer = holder["important"].toBool() ? "3" : "1";
        EXPECT_EQ(styled["layers"][layer].isUndefined(), holder.isUndefined());
        EXPECT_EQ(styled["layers"][layer] == styled["value"], !winner.isUndefined() || sceneSetsTheSame(styled, layer));
        EXPECT_TRUE(styled["layers"][layer == "3" ? "1" : "3"].isUndefined());
        m_explained += !winner.isUndefined();
        m_overridden += winner.isUndefined() && !holder.isUndefined();
    }

    static bool sceneSetsTheSame(const QJsonObject& styled, const QString& layer) {
        return styled["layers"]["2"] == styled["layers"][layer];
    }

    QMap<QString, QJsonObject> m_styled;
    int m_explained = 0;
    int m_overridden = 0;
};

TEST_F(ExplainAgreement, WinnersAreWhatStylePrintsInRandomScenes) {
    for (unsigned pair = 0; pair < pairs; ++pair) {
        Dice dice(firstSeed + pair);
        const std::string scene = randomElement(dice, 0);
        std::string sheet;
        for (int rules = 12; rules > 0; --rules)
            sheet += randomRule(dice);
        m_styled.clear();
        collect(styledRoot(scene, sheet));
        for (const char* property : properties) {
            const auto result =
                run({"explain", path("scene.xml"), "-s", path("sheet.css"), "*", property, "--format", "json"});
            const QJsonArray nodes = result.json()["nodes"].toArray();
            EXPECT_EQ(nodes.size(), m_styled.size());
            for (const QJsonValue& node : nodes)
                compare(node.toObject());
        }
        ASSERT_FALSE(HasFailure()) << "seed " << firstSeed + pair << "\n" << scene << "\n" << sheet;
    }
    EXPECT_GT(m_explained, 10 * pairs);
    EXPECT_GT(m_overridden, pairs);
}

} // namespace
