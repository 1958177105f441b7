#include "Ondex/AttributeTuple.h"

#include <memory>
#include <new>

namespace Ondex {

/// Holds back the changes of the components while several are set; the outermost one reports at most one at its end.
class AttributeTuple::Update {
public:
    explicit Update(AttributeTuple& tuple) : m_tuple(&tuple), m_outermost(tuple.m_update ? tuple.m_update : this) {
        tuple.m_update = m_outermost;
    }
    ~Update() {
        if (m_outermost != this || !m_tuple)
            return;
        m_tuple->m_update = nullptr;
        if (m_isPending)
            m_tuple->emitChange();
    }
    Update(const Update&) = delete;
    Update& operator=(const Update&) = delete;

    void notePending() { m_isPending = true; }
    void noteDeletion() { m_tuple = nullptr; }
    /// Whether no listener of a component has deleted the tuple so far.
    bool isAlive() const { return m_outermost->m_tuple; }

private:
    AttributeTuple* m_tuple;
    Update* m_outermost;
    bool m_isPending = false;
};

AttributeTuple::AttributeTuple(Node* host, const QByteArray& name, const QList<QByteArray>& componentNames,
                               const float* defaultValues, bool isFrame)
    : Attribute(host, name),
      m_components(std::allocator<Component>().allocate(static_cast<size_t>(componentNames.size()))),
      m_isFrame(isFrame) {
    setSerializable(false);
    for (const QByteArray& componentName : componentNames) {
        const int i = m_componentCount++;
        new (&m_components[i]) Component(host, componentName, defaultValues[i]);
        m_components[i].setCompound(*this);
    }
}

AttributeTuple::~AttributeTuple() {
    if (m_update)
        m_update->noteDeletion();
    std::destroy_n(m_components, m_componentCount);
    std::allocator<Component>().deallocate(m_components, static_cast<size_t>(m_componentCount));
}

void AttributeTuple::longhandChanged(Attribute&) {
    if (m_update) {
        m_update->notePending();
    } else {
        emitChange();
    }
}

/// Calls @p change with every component; listeners see one change of the tuple.
template <typename Change>
void AttributeTuple::changeComponents(Change change) {
    const Update update(*this);
    for (int i = 0; update.isAlive() && i < componentCount(); ++i)
        change(component(i), i);
}

bool AttributeTuple::setNumbers(const float* numbers, int count, Layer layer, const QList<ValueUnit>& units) {
    if (tupleSource(count, 0) < 0 || layer < DefaultLayer || layer > AnimationLayer)
        return false;
    changeComponents([&](AttributeT<float>& target, int i) {
        const int source = tupleSource(count, i);
        target.set(numbers[source], layer, units.value(source, VU_UNKNOWN));
    });
    return true;
}

int AttributeTuple::tupleSource(int given, int i) const {
    return Conversion::tupleSource(given, i, componentCount(), m_isFrame);
}

bool AttributeTuple::setComponent(int i, float value, ValueUnit unit) {
    if (i < 0 || i >= componentCount())
        return false;
    const Update update(*this);
    return component(i).set(value, UserLayer, unit);
}

float AttributeTuple::number(int i, Layer layer) const {
    if (layer == EffectiveLayer)
        return component(i).value();
    for (Layer lower = layer; lower > DefaultLayer; --lower) {
        if (const float* value = component(i).valueOnLayer(lower))
            return *value;
    }
    return component(i).defaultValue();
}

QString AttributeTuple::asString(bool* ok, Layer layer) const {
    const bool isDefined = isValueDefinedOnLayer(layer);
    if (ok)
        *ok = isDefined;
    QString text;
    for (int i = 0; isDefined && i < componentCount(); ++i) {
        if (i > 0)
            text += QLatin1Char(' ');
        text += Conversion::toText(number(i, layer));
    }
    return text;
}

bool AttributeTuple::set(const StyleValue& value, Layer layer) {
    const std::vector<float> numbers = Conversion::numbers(value);
    return setNumbers(numbers.data(), static_cast<int>(numbers.size()), layer, value.units());
}

bool AttributeTuple::set(const Pemmit::Vector4T<float>& value, Layer layer, QList<ValueUnit> units) {
    const float numbers[] = {value.x, value.y, value.z, value.w};
    return setNumbers(numbers, 4, layer, units);
}

bool AttributeTuple::set(const Pemmit::Vector3T<float>& value, Layer layer, QList<ValueUnit> units) {
    const float numbers[] = {value.x, value.y, value.z};
    return setNumbers(numbers, 3, layer, units);
}

bool AttributeTuple::set(const Pemmit::Vector2T<float>& value, Layer layer, QList<ValueUnit> units) {
    const float numbers[] = {value.x, value.y};
    return setNumbers(numbers, 2, layer, units);
}

bool AttributeTuple::set(const QString& value, Layer layer, ValueUnit) {
    const std::vector<float> numbers = Conversion::numbers(value);
    return setNumbers(numbers.data(), static_cast<int>(numbers.size()), layer, {});
}

bool AttributeTuple::set(int value, Layer layer, ValueUnit unit) {
    return set(static_cast<float>(value), layer, unit);
}

bool AttributeTuple::set(float value, Layer layer, ValueUnit unit) {
    return setNumbers(&value, 1, layer, {unit});
}

void AttributeTuple::copyValueFromLayer(Layer from, Layer to) {
    changeComponents([=](AttributeT<float>& target, int) { target.copyValueFromLayer(from, to); });
}

bool AttributeTuple::isChanged() const {
    for (int i = 0; i < componentCount(); ++i) {
        if (component(i).isChanged())
            return true;
    }
    return false;
}

void AttributeTuple::clearValue(Layer layer) {
    changeComponents([=](AttributeT<float>& target, int) { target.clearValue(layer); });
}

bool AttributeTuple::handleShorthand(const StyleValue& value, Gorvel::ArrayMap<Attribute*, StyleValue>& parts) {
    const int given = static_cast<int>(Conversion::numbers(value).size());
    if (tupleSource(given, 0) < 0)
        return false;
    for (int i = 0; i < componentCount(); ++i)
        parts.insert(&component(i), StyleValue(value[tupleSource(given, i)]));
    return true;
}

bool AttributeTuple::isValueDefinedOnLayer(Layer layer) const {
    for (int i = 0; i < componentCount(); ++i) {
        if (component(i).isValueDefinedOnLayer(layer))
            return true;
    }
    return false;
}

void AttributeTuple::setAsDefaults() {
    changeComponents([](AttributeT<float>& target, int) { target.setAsDefaults(); });
}

void AttributeTuple::setTransitionAnim(float duration, float delay) {
    Attribute::setTransitionAnim(duration, delay);
    for (int i = 0; i < componentCount(); ++i)
        component(i).setTransitionAnim(duration, delay);
}

} // namespace Ondex
