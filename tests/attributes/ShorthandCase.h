#pragma once

#include "Brisko/CSSParser.h"
#include "Ondex/Node.h"
#include "support/SheetDump.h"
#include "support/TraceGuard.h"

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace Testing {

using Texts = std::vector<std::string>;
using Parts = Gorvel::ArrayMap<Ondex::Attribute*, Ondex::StyleValue>;

/// The parts of a shorthand in their order: `font-size: 12px; font-family: Arial`.
inline std::string dumpParts(const Parts& parts) {
    std::string text;
    for (const auto& [longhand, part] : parts)
        text += (text.empty() ? "" : "; ") + longhand->name().toStdString() + ": " + dumpValue(part);
    return text;
}

/// A value for a shorthand, whether it is taken, the parts, and the messages on the way.
struct ShorthandCase {
    const char* name;
    QByteArray value;
    bool isTaken;
    std::string parts;
    Texts messages;
};

inline void PrintTo(const ShorthandCase& row, std::ostream* out) {
    *out << row.name;
}

/// Gives a row of a table of cases its name, as googletest asks for it.
struct NameOfRow {
    template <typename Row>
    std::string operator()(const testing::TestParamInfo<Row>& info) const {
        return info.param.name;
    }
};
constexpr NameOfRow nameOfRow;

/// Reads the value with the shorthand and compares all that comes of it with the row.
inline void expectCase(Ondex::Attribute& shorthand, const ShorthandCase& row) {
    TraceGuard trace;
    Parts parts;
    EXPECT_EQ(shorthand.handleShorthand(Brisko::CSSParser::parseValue(row.value), parts), row.isTaken)
        << row.value.constData();
    EXPECT_EQ(dumpParts(parts), row.parts) << row.value.constData();
    EXPECT_EQ(trace.takeAll(), row.messages) << row.value.constData();
}

/// Sets an attribute of the node from the text of a value.
inline void setValue(Ondex::Node& node, const char* name, const QByteArray& value,
                     int layer = Ondex::Attribute::UserLayer) {
    ASSERT_NE(node.attribute(name), nullptr) << name;
    ASSERT_TRUE(node.attribute(name)->set(Brisko::CSSParser::parseValue(value), layer))
        << name << ": " << value.constData();
}

/// Sets the longhands of a shorthand from the text of a value.
inline void setShorthand(Ondex::Attribute& shorthand, const QByteArray& value,
                         int layer = Ondex::Attribute::UserLayer) {
    Parts parts;
    ASSERT_TRUE(shorthand.handleShorthand(Brisko::CSSParser::parseValue(value), parts)) << value.constData();
    for (const auto& [longhand, part] : parts)
        ASSERT_TRUE(longhand->set(part, layer)) << longhand->name().constData();
}

/// The names of the attributes of a node, in their order.
inline Texts namesOf(const Ondex::Node& node) {
    Texts names;
    for (const Ondex::Attribute* attribute : node.attributes())
        names.push_back(attribute->name().toStdString());
    return names;
}

/// Counts the changes of an attribute from here on; has to live as long as the attribute.
class ChangeCount {
public:
    explicit ChangeCount(Ondex::Attribute& attribute) {
        attribute.addListener([this] { ++m_count; }, 5);
    }
    ChangeCount(const ChangeCount&) = delete;
    ChangeCount& operator=(const ChangeCount&) = delete;

    /// The changes since the last call.
    int take() { return std::exchange(m_count, 0); }

private:
    int m_count = 0;
};

} // namespace Testing
