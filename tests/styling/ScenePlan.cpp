#include "styling/ScenePlan.h"

namespace Testing {

using Ondex::StyleValue;

AttributePlan AttributePlan::of(const QByteArray& name) {
    if (name == "pair" || name == "lazy-pair" || name == "quad-x" || name == "quad-y")
        return {true, false, {name + "-a", name + "-b"}};
    if (name == "quad")
        return {true, false, {"quad-x", "quad-y"}};
    if (name == "any")
        return {false, true, {}};
    if (name == "stubborn")
        return {false, false, {}};
    return {true, false, {}};
}

const std::vector<QByteArray>& firstAttributes() {
    static const std::vector<QByteArray> names{"p", "q", "r", "any", "stubborn", "pair", "quad"};
    return names;
}

const std::vector<QByteArray>& wholeAttributes() {
    static const std::vector<QByteArray> names{"whole-a", "whole-b", "whole-c", "whole-d"};
    return names;
}

const std::vector<QByteArray>& lazyAttributes() {
    static const std::vector<QByteArray> names{"lazy", "lazy-pair"};
    return names;
}

const std::vector<QByteArray>& declaredProperties() {
    static const std::vector<QByteArray> names{"p",
                                               "q",
                                               "r",
                                               "p",
                                               "q",
                                               "r",
                                               "any",
                                               "stubborn",
                                               "pair",
                                               "quad",
                                               "pair-a",
                                               "pair-b",
                                               "quad-x",
                                               "lazy",
                                               "lazy-pair",
                                               "lazy-pair-a",
                                               "quad-y-b",
                                               "none",
                                               "pair",
                                               "quad-x-a",
                                               "transition-delay",
                                               "transition-duration",
                                               "whole-a",
                                               "whole-b",
                                               "whole-c",
                                               "whole-d"};
    return names;
}

int numberCount(const QByteArray& property) {
    int count = 0;
    for (const QByteArray& longhand : AttributePlan::of(property).longhands)
        count += numberCount(longhand);
    return count == 0 ? 1 : count;
}

std::vector<StyleValue> partsFor(const AttributePlan& plan, const StyleValue& value) {
    int numbers = 0;
    for (int i = 0; i < value.size(); ++i)
        numbers += value.isNumber(i);
    int wanted = 0;
    for (const QByteArray& longhand : plan.longhands)
        wanted += numberCount(longhand);
    if (plan.longhands.empty() || numbers != value.size() || numbers != wanted)
        return {};
    std::vector<StyleValue> parts;
    int next = 0;
    for (const QByteArray& longhand : plan.longhands) {
        StyleValue& part = parts.emplace_back();
        for (int i = numberCount(longhand); i > 0; --i)
            part.append(value[next++]);
    }
    return parts;
}

void Journal::note(const QByteArray& node, const std::string& what) {
    m_lines.push_back(node.toStdString() + ": " + what);
}

void Journal::noteValue(const QByteArray& node, const std::string& what, const QByteArray& attribute,
                        const StyleValue& value, int layer) {
    std::string text = what + " " + attribute.toStdString() + " [" + value.stringify().toStdString() + "]";
    if (layer >= 0)
        text += " on " + std::to_string(layer);
    note(node, text);
}

} // namespace Testing
