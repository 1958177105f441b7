#include "InspectorTables.h"

#include "Ondex/AttributeTuple.h"
#include "Ondex/Node.h"

namespace Command {

using Brisko::Explanation;
using Brisko::Styleable;
using Ondex::Attribute;

namespace {

bool isAboveDefault(const Attribute& attribute) {
    for (Attribute::Layer layer = Attribute::StyleLayer; layer <= Attribute::AnimationLayer; ++layer) {
        if (attribute.isValueDefinedOnLayer(layer))
            return true;
    }
    return false;
}

/// Whether it is a value of its own: a node has children besides, and what is made of parts is shown by its parts.
bool isValue(const Attribute& attribute) {
    return !attribute.isNode() && !dynamic_cast<const Ondex::AttributeTuple*>(&attribute) &&
           (attribute.isValueDefinedOnLayer(Attribute::DefaultLayer) || isAboveDefault(attribute));
}

template <typename Items, typename WriteItem>
void writeTable(JsonWriter& json, const char* key, const Items& items, WriteItem writeItem) {
    json.key(key);
    json.beginArray();
    for (const auto* item : items)
        writeItem(*item);
    json.endArray();
}

/// A place in the form "file:line", cut at its last colon.
struct Place {
    QString file;
    int line = 0;

    explicit Place(const QString& source) {
        const int colon = source.lastIndexOf(QLatin1Char(':'));
        bool isLine = false;
        line = source.midRef(colon + 1).toInt(&isLine);
        file = isLine && colon >= 0 ? source.left(colon) : source;
    }
};

} // namespace

int InspectorTables::setAttributes(const Styleable& node) {
    Numbers list;
    for (const Attribute* attribute : node.attributes()) {
        if (!isValue(*attribute) || !isAboveDefault(*attribute))
            continue;
        Numbers row = {number(attribute->name()), number(attribute->asString(nullptr, Attribute::EffectiveLayer))};
        for (Attribute::Layer layer = Attribute::DefaultLayer; layer <= Attribute::AnimationLayer; ++layer) {
            if (!attribute->isValueDefinedOnLayer(layer))
                continue;
            row.push_back(layer);
            row.push_back(number(attribute->asString(nullptr, layer)));
        }
        list.push_back(m_attributes.numberOf(row));
    }
    return m_lists.numberOf(list);
}

int InspectorTables::defaultAttributes(const Styleable& node) {
    Numbers list;
    for (const Attribute* attribute : node.attributes()) {
        if (!isValue(*attribute) || isAboveDefault(*attribute))
            continue;
        const int text = number(attribute->asString(nullptr, Attribute::EffectiveLayer));
        list.push_back(m_attributes.numberOf({number(attribute->name()), text, Attribute::DefaultLayer, text}));
    }
    return m_lists.numberOf(list);
}

int InspectorTables::declaration(const Explanation::Candidate& candidate) {
    const Brisko::Declaration& declared = candidate.declaration;
    const auto known = m_declarationsById.constFind(declared.id());
    if (known != m_declarationsById.constEnd())
        return *known;
    const Place place(candidate.source);
    const int made = m_declarations.numberOf({number(declared.property()), number(declared.value().stringify()),
                                              int(declared.important()), number(place.file), place.line});
    m_declarationsById.insert(declared.id(), made);
    return made;
}

int InspectorTables::selector(const Explanation::Candidate& candidate) {
    if (candidate.selector.size() == 0)
        return 0;
    const Brisko::SimpleSelector* front = candidate.selector.front().get();
    const auto known = m_selectors.constFind(front);
    if (known != m_selectors.constEnd())
        return *known;
    return *m_selectors.insert(front, number(candidate.selectorText()));
}

int InspectorTables::candidate(const Explanation::Candidate& candidate) {
    const int declared = declaration(candidate);
    const int value = candidate.via.isEmpty() ? m_declarations.items()[std::size_t(declared)]->at(1)
                                              : number(candidate.value.stringify());
    return m_candidates.numberOf({declared, selector(candidate), candidate.origin(), candidate.idCount(),
                                  candidate.classCount(), candidate.typeCount(), number(candidate.via), value});
}

int InspectorTables::chain(const std::vector<Explanation::Candidate>& candidates) {
    int chain = noChain;
    for (auto weakest = candidates.rbegin(); weakest != candidates.rend(); ++weakest)
        chain = m_chains.numberOf({candidate(*weakest), int(weakest->outcome), chain});
    return chain;
}

int InspectorTables::contests(const Styleable& node) {
    const Explanation explanation(node);
    Numbers list;
    for (const QByteArray& property : explanation.properties())
        list.push_back(m_contests.numberOf({number(property), chain(explanation.candidates(property))}));
    return m_lists.numberOf(list);
}

void InspectorTables::addSources(SourceExcerpts& excerpts) const {
    constexpr std::size_t file = 3;
    constexpr std::size_t line = 4;
    for (const Numbers* row : m_declarations.items())
        excerpts.add(*m_texts.items()[std::size_t((*row)[file])], (*row)[line]);
}

void InspectorTables::write(JsonWriter& json) const {
    writeTable(json, "texts", m_texts.items(), [&json](const QString& text) { json.value(text); });
    const auto writeNumbers = [&json](const Numbers& numbers) {
        json.beginArray();
        for (const int number : numbers)
            json.value(number);
        json.endArray();
    };
    writeTable(json, "attributes", m_attributes.items(), writeNumbers);
    writeTable(json, "declarations", m_declarations.items(), writeNumbers);
    writeTable(json, "candidates", m_candidates.items(), writeNumbers);
    writeTable(json, "chains", m_chains.items(), writeNumbers);
    writeTable(json, "contests", m_contests.items(), writeNumbers);
    writeTable(json, "lists", m_lists.items(), writeNumbers);
}

} // namespace Command
