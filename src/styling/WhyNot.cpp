#include "Brisko/Explain.h"
#include "Brisko/Styleable.h"
#include "model/SelectorText.h"

namespace Brisko {

namespace {

const Styleable* parentOf(const Styleable* node) {
    return dynamic_cast<const Styleable*>(node->host());
}

std::vector<Mismatch::Unmet> unmet(const Styleable& node, const SimpleSelector& compound) {
    using Condition = Mismatch::Condition;
    std::vector<Mismatch::Unmet> missing;
    if (!compound.cssType().isEmpty() && compound.cssType() != node.cssType())
        missing.push_back({Condition::Type, compound.cssType()});
    if (!compound.cssId().isEmpty() && compound.cssId() != node.cssId())
        missing.push_back({Condition::Id, compound.cssId().toUtf8()});
    for (const QByteArray& name : compound.cssClasses()) {
        if (!node.cssClasses().contains(name))
            missing.push_back({Condition::Class, name});
    }
    for (const QByteArray& name : compound.pseudoClasses()) {
        if (!node.pseudoClass(name))
            missing.push_back({Condition::PseudoClass, name});
    }
    return missing;
}

/// The nodes that the compound on the left of @p combinator may be for, where the one on its right is for one of
/// @p nodes. Both from the deepest up.
std::vector<const Styleable*> onTheLeft(const std::vector<const Styleable*>& nodes,
                                        SimpleSelector::Combinator combinator) {
    std::vector<const Styleable*> left;
    if (combinator == SimpleSelector::Descendant) {
        for (const Styleable* node = parentOf(nodes.front()); node; node = parentOf(node))
            left.push_back(node);
        return left;
    }
    for (const Styleable* node : nodes) {
        if (const Styleable* parent = parentOf(node))
            left.push_back(parent);
    }
    return left;
}

} // namespace

std::optional<Mismatch> whyNot(const Styleable& node, const Selector& selector) {
    std::vector<const SimpleSelector*> compounds;
    for (const SimpleSelector* compound = selector.size() > 0 ? selector.front().get() : nullptr; compound;
         compound = compound->next())
        compounds.push_back(compound);
    if (compounds.empty())
        return Mismatch{-1, {}, {}};

    std::vector<const Styleable*> nodes{&node};
    for (std::size_t place = compounds.size(); place-- > 0;) {
        const SimpleSelector& compound = *compounds[place];
        Mismatch mismatch{int(place), textOf(compound), {}};
        std::vector<const Styleable*> fitting;
        for (const Styleable* candidate : nodes) {
            std::vector<Mismatch::Unmet> missing = unmet(*candidate, compound);
            if (missing.empty())
                fitting.push_back(candidate);
            else
                mismatch.attempts.push_back({candidate, std::move(missing)});
        }
        if (fitting.empty())
            return mismatch;
        if (place > 0)
            nodes = onTheLeft(fitting, compound.combinator());
    }
    return {};
}

} // namespace Brisko
