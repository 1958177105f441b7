#include "FocusOrder.h"

#include "SceneWalk.h"
#include "Shown.h"

#include <algorithm>

namespace Command {

using Brisko::SimpleSelector;
using Brisko::Styleable;

namespace {

SimpleSelector withoutPseudoClasses(const SimpleSelector& compound) {
    SimpleSelector bare(compound.origin(), compound.cssType(), compound.cssId());
    for (const QByteArray& name : compound.cssClasses())
        bare.addClass(name);
    return bare;
}

bool hasFocus(const SimpleSelector& compound) {
    const std::vector<QByteArray> names = compound.pseudoClasses();
    return std::find(names.begin(), names.end(), "focus") != names.end();
}

} // namespace

FocusOrder::FocusOrder(const Brisko::StyleSheet* sheet) {
    if (!sheet)
        return;
    for (const Brisko::Rule& rule : sheet->rules()) {
        for (const SimpleSelector* compound = rule.selector().front().get(); compound; compound = compound->next()) {
            if (hasFocus(*compound))
                m_compounds.push_back(withoutPseudoClasses(*compound));
        }
    }
}

bool FocusOrder::canBeFocused(const Styleable& node) const {
    return m_compounds.empty() || std::any_of(m_compounds.begin(), m_compounds.end(), [&](const SimpleSelector& bare) {
               return bare.isEmpty() || node.match(bare, nullptr);
           });
}

std::vector<Styleable*> FocusOrder::nodes(Styleable& root) const {
    std::vector<Styleable*> nodes;
    std::vector<bool> isTransparent; // of the path to the current node
    for (SceneWalk walk(root); walk.isValid(); walk.next()) {
        isTransparent.resize(std::size_t(walk.depth()));
        isTransparent.push_back((!isTransparent.empty() && isTransparent.back()) || opacityOf(walk.node()) <= 0.f);
        if (!isTransparent.back() && isVisible(walk.node()) && canBeFocused(walk.node()))
            nodes.push_back(&walk.node());
    }
    return nodes;
}

Styleable* FocusOrder::next(Styleable& root, Styleable* current, int step) const {
    const std::vector<Styleable*> all = nodes(root);
    if (all.empty())
        return nullptr;
    const auto found = std::find(all.begin(), all.end(), current);
    if (found == all.end())
        return step < 0 ? all.back() : all.front();
    const std::ptrdiff_t count = std::ptrdiff_t(all.size());
    return all[std::size_t((found - all.begin() + step + count) % count)];
}

Styleable* FocusOrder::nearest(Styleable* node) const {
    while (node && !canBeFocused(*node))
        node = dynamic_cast<Styleable*>(node->host());
    return node;
}

} // namespace Command
