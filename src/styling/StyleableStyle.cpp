#include "Brisko/Styleable.h"

#include "Brisko/LazyAttributeManager.h"
#include "Gorvel/Name.h"
#include "Gorvel/Trace.h"
#include "Ondex/ArchiveElement.h"
#include "Ondex/AttributeWatch_p.h"
#include "styling/AppliedProperties.h"
#include "styling/ChildWalk.h"
#include "styling/PseudoClasses.h"
#include "styling/StylePass.h"
#include "styling/StyleableWatch.h"

#include <typeinfo>

namespace Brisko {

using Ondex::Attribute;
using Ondex::StyleValue;

bool Styleable::setStyle(const Style& style) {
    if (isStylingSuppressed())
        return false;
    if (isPassRunning()) {
        askAgain(style);
        return false;
    }
    if (!applyStyle(style, PassKind::First))
        return false;
    styleChildren();
    return true;
}

/// Runs the pass with a new child style and keeps that.
/// @return whether it differs from the one before; false where a listener deleted this node
bool Styleable::applyStyle(const Style& style, PassKind kind) {
    const bool isRecalled = StylePass::prepare(*this, style);
    if (m_pseudoClasses && !isRecalled)
        m_pseudoClasses->clearUses();
    m_style = style;
    Style childStyle;
    const PassEnd end = runPass(&childStyle, kind);
    if (end == PassEnd::AskedAgain)
        return applyStyle(*std::exchange(m_askedStyle, nullptr), PassKind::Repeated);
    if (end == PassEnd::NodeDeleted)
        return false;
    if (childStyle == m_childStyle) {
        StylePass::keptChildStyle(*this, childStyle);
        return false;
    }
    m_childStyle = std::move(childStyle);
    return true;
}

/// Runs the pass for what a change reaches that no selector carries on to the children.
void Styleable::applyStyleAlone() {
    if (isPassRunning())
        askAgain(m_style);
    else if (runPass(nullptr, PassKind::First) == PassEnd::AskedAgain &&
             applyStyle(*std::exchange(m_askedStyle, nullptr), PassKind::Repeated))
        styleChildren();
}

/// Asked again, the node has to be styled once more, with m_askedStyle.
Styleable::PassEnd Styleable::runPass(Style* childStyle, PassKind kind) {
    StylePass pass(*this);
    if (!pass.run())
        return PassEnd::NodeDeleted;
    if (childStyle)
        *childStyle = pass.childStyle();
    if (!m_askedStyle)
        return PassEnd::Done;
    if (kind == PassKind::First)
        return PassEnd::AskedAgain;
    m_askedStyle.reset();
    Gorvel::Trace::error("Styleable::setStyle # %s # Styling changes what it depends on; the last change is ignored",
                         simpleSelector(true).toUtf8().constData());
    return PassEnd::Done;
}

void Styleable::askAgain(const Style& style) {
    m_askedStyle = std::make_unique<Style>(style);
}

const Style& Styleable::incomingStyle() const {
    const auto* parent = dynamic_cast<const Styleable*>(host());
    return parent ? parent->m_childStyle : m_style;
}

void Styleable::updateStyle() {
    if (!isStylingSuppressed())
        setStyle(incomingStyle());
}

void Styleable::styleChildren() {
    ChildWalk* walk = ChildWalk::current;
    if (!walk) {
        ChildWalk::runFrom(*this);
    } else if (walk->depth == ChildWalk::deepest) {
        ChildWalk::putOff(*this);
    } else {
        ++walk->depth;
        visitChildren();
        --walk->depth;
    }
}

void Styleable::visitChildren() {
    const Watch watch(*this);
    ++m_visits; // keeps the list from being closed up
    for (std::size_t i = 0; watch.isAlive() && i < m_children.size(); ++i) {
        if (m_children[i])
            m_children[i]->setStyle(m_childStyle);
    }
    if (watch.isAlive())
        --m_visits;
}

namespace {

template <typename Vector>
Vector vectorOf(const StyleValue& value) {
    Vector vector;
    for (int i = 0; i < value.size(); ++i)
        vector[i] = value.asFloat(i);
    return vector;
}

bool setSingle(Attribute& attribute, const StyleValue& value, Attribute::Layer layer) {
    const StyleValue::Component& single = value[0];
    switch (single.type()) {
    case StyleValue::TYPE_INT:
        return attribute.set(single.asInt(), layer, single.unit());
    case StyleValue::TYPE_FLOAT:
        return attribute.set(single.asFloat(), layer, single.unit());
    case StyleValue::TYPE_STRING:
        return attribute.set(single.asString(), layer, Attribute::VU_UNKNOWN);
    case StyleValue::TYPE_EXPR: {
        const Ondex::SimpleExpression expression = single.asExpr();
        return expression.isConstant() && attribute.set(expression.evaluate(nullptr, 0), layer, Attribute::VU_UNKNOWN);
    }
    default:
        return false;
    }
}

/// Writes the value through the setter of its type; false where it has none, or that setter refuses it.
bool setTyped(Attribute& attribute, const StyleValue& value, Attribute::Layer layer) {
    if (value.size() == 1)
        return setSingle(attribute, value, layer);
    if (value.size() < 2 || value.size() > 4 || !value.isUniform() || !value.isNumber(0))
        return false;
    switch (value.size()) {
    case 2:
        return attribute.set(vectorOf<Pemmit::Vector2T<float>>(value), layer, value.units());
    case 3:
        return attribute.set(vectorOf<Pemmit::Vector3T<float>>(value), layer, value.units());
    default:
        return attribute.set(vectorOf<Pemmit::Vector4T<float>>(value), layer, value.units());
    }
}

} // namespace

bool Styleable::setAttributeValue(Attribute& attribute, const StyleValue& value, Layer layer) {
    if (setTyped(attribute, value, layer) || attribute.set(value, layer))
        return true;
    Gorvel::Trace::error("Styleable::setAttributeValue(%s) # Failed to set property '%s' to [%s]", typeid(*this).name(),
                         attribute.name().constData(), value.stringify().toUtf8().constData());
    attribute.set(value, layer); // again on purpose: an attribute may take at the second try what the message told it
    return false;
}

/// Clears what passes wrote to the property at place @p index of those applied.
void Styleable::clearProperty(int index) {
    AppliedProperties::Property& property = (*m_applied)[index];
    property.declaration = -1;
    if (Attribute* held = attribute(property.name))
        held->clearValue(property.isImportant() ? ImportantStyleLayer : StyleLayer); // may delete this node
}

QString Styleable::attributeSource(const QByteArray& name) const {
    const int index = m_applied ? m_applied->indexOf(Gorvel::interned(name)) : -1;
    return index >= 0 && m_style.isValid() ? m_style.styleSheet()->source((*m_applied)[index].declaration) : QString();
}

bool Styleable::readElement(const Ondex::ArchiveElement& element) {
    const QByteArray name = element.name().toUtf8();
    const Watch watch(*this);
    Attribute* made = LazyAttributeManager::create(this, name);
    if (!watch.isAlive())
        return false;
    if (!made)
        return Ondex::Node::readElement(element);
    const Ondex::AttributeWatch madeWatch(*made);
    if (made->deserialize(element))
        return true;
    if (!watch.isAlive() || !madeWatch.isAlive())
        return false;
    Gorvel::Trace::error("Styleable::readElement(%s) # Failed to deserialize element '%s'", typeid(*this).name(),
                         name.constData());
    // A factory may answer a longhand: the shorthand that it made owns that.
    while (Attribute* owner = made->ownerShorthand())
        made = owner;
    delete made;
    return false;
}

} // namespace Brisko
