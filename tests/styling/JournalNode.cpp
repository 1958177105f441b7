#include "styling/JournalNode.h"

#include "Ondex/AttributeT.h"

#include <gtest/gtest.h>

namespace Testing {

using Ondex::Attribute;
using Ondex::StyleValue;

JournalNode::JournalNode(const QByteArray& label, const QByteArray& type, Journal& journal)
    : Styleable(type), m_label(label), m_journal(journal) {
    for (const QByteArray& name : firstAttributes())
        new JournalAttribute(this, name); // the node owns it
    for (const QByteArray& name : wholeAttributes())
        new Ondex::AttributeT<StyleValue>(this, name);
    eventAddIn("pseudo-class-changed", [this](const Gorvel::BinaryData&) { m_journal.note(m_label, "event"); });
}

bool JournalNode::setStyle(const Brisko::Style& style) {
    m_journal.note(m_label, "setStyle");
    const bool isChanged = Styleable::setStyle(style);
    m_journal.note(m_label, isChanged ? "setStyle: true" : "setStyle: false");
    return isChanged;
}

bool JournalNode::setAttributeValue(Attribute& attribute, const StyleValue& value, Layer layer) {
    m_journal.noteValue(m_label, "write", attribute.name(), value, layer);
    return Styleable::setAttributeValue(attribute, value, layer);
}

void JournalNode::updateStyle() {
    m_journal.note(m_label, "updateStyle");
    Styleable::updateStyle();
}

JournalAttribute::JournalAttribute(JournalNode* host, const QByteArray& name)
    : Attribute(host, name), m_node(*host), m_plan(AttributePlan::of(name)) {
    for (const QByteArray& longhand : m_plan.longhands) {
        m_longhands.push_back(std::make_unique<JournalAttribute>(host, longhand));
        m_longhands.back()->setOwnerShorthand(this);
    }
}

bool JournalAttribute::handleShorthand(const StyleValue& value, Gorvel::ArrayMap<Attribute*, StyleValue>& parts) {
    m_node.journal().noteValue(m_node.label(), "handleShorthand", name(), value);
    EXPECT_TRUE(parts.isEmpty());
    const std::vector<StyleValue> split = partsFor(m_plan, value);
    for (std::size_t i = 0; i < split.size(); ++i)
        parts.insert(m_longhands[i].get(), split[i]);
    return !split.empty();
}

bool JournalAttribute::note(const char* setter, const StyleValue& value, Layer layer, bool takes) {
    m_node.journal().noteValue(m_node.label(), std::string("set ") + setter, name(), value, layer);
    if (takes)
        m_values[layer] = value.stringify().toStdString();
    return takes;
}

bool JournalAttribute::set(const StyleValue& value, Layer layer) {
    return note("value", value, layer, m_plan.takesValues);
}

bool JournalAttribute::set(int value, Layer layer, ValueUnit) {
    return note("number", StyleValue(value), layer, m_plan.takesNumbers);
}

bool JournalAttribute::set(float value, Layer layer, ValueUnit unit) {
    return note("number", StyleValue(value, unit), layer, m_plan.takesNumbers);
}

namespace {

/// The vector as a list of integers, which is what the sheets hold.
template <typename Vector>
StyleValue listOf(const Vector& vector, int size) {
    StyleValue list;
    for (int i = 0; i < size; ++i)
        list.append(StyleValue::Component(int(vector[i])));
    return list;
}

} // namespace

bool JournalAttribute::set(const Pemmit::Vector4T<float>& value, Layer layer, QList<ValueUnit>) {
    return note("vector", listOf(value, 4), layer, false);
}

bool JournalAttribute::set(const Pemmit::Vector2T<float>& value, Layer layer, QList<ValueUnit>) {
    return note("vector", listOf(value, 2), layer, false);
}

void JournalAttribute::clearValue(Layer layer) {
    m_node.journal().note(m_node.label(), "clear " + name().toStdString() + " on " + std::to_string(layer));
    m_values.erase(layer);
}

JournalSession::JournalSession(Journal& journal) {
    using Registrant = Brisko::LazyAttributeManager::Registrant;
    for (const QByteArray& served : lazyAttributes()) {
        const auto factory = [](Ondex::Node* host, const QByteArray& name) -> Attribute* {
            auto* node = dynamic_cast<JournalNode*>(host);
            node->journal().note(node->label(), "make " + name.toStdString());
            return new JournalAttribute(node, name);
        };
        m_registrants.push_back(std::make_unique<Registrant>(served, factory));
    }
    m_previous = Gorvel::Trace::setSink(
        [&journal](Gorvel::Trace::Level, const QByteArray& message) { journal.message(message.toStdString()); });
}

JournalSession::~JournalSession() {
    Gorvel::Trace::setSink(m_previous);
}

} // namespace Testing
