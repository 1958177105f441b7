#pragma once

#include "Brisko/AttributeBorder.h"
#include "attributes/ShorthandCase.h"
#include "styling/StylingFixture.h"

namespace Testing {

inline const Texts sideNames = {"border-top", "border-right", "border-bottom", "border-left"};

/// A border as "3 solid rgba(1 0 0 1)".
inline std::string dumpBorder(const Brisko::Border& border) {
    const Gorvel::ColorPMA& color = border.color();
    return QString("%1 %2 rgba(%3 %4 %5 %6)")
        .arg(double(border.width()))
        .arg(border.style() == Brisko::Border::Solid ? "solid" : "none")
        .arg(double(color.red()))
        .arg(double(color.green()))
        .arg(double(color.blue()))
        .arg(double(color.alpha()))
        .toStdString();
}

/// A border of a plain node and a sink for messages.
class BorderOfNode : public testing::Test {
protected:
    TraceGuard trace;
    Ondex::Node node{nullptr, "node"};
    Brisko::AttributeBorder border{&node, "border"};
};

} // namespace Testing
