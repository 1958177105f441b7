#include "ViewState.h"

#include "Gorvel/StringUtils.h"
#include "HitTest.h"
#include "StatusText.h"

namespace Command {

using Brisko::Styleable;

ViewState::ViewState(LiveScene& scene) : m_scene(scene), m_focusOrder(scene.sheet()), m_cost(scene.cost()) {}

/// Does what may restyle nodes, and keeps what that took, if it did.
template <typename Work>
void ViewState::measured(Work work) {
    const CostMeter meter;
    work();
    const RestyleCost cost = meter.cost();
    if (cost.passes > 0)
        m_cost = cost;
}

void ViewState::movePointer(std::optional<QPointF> point) {
    m_pointer = point;
    Styleable* node = point ? nodeAt(m_scene.root(), *point) : nullptr;
    measured([&] { m_interaction.hover(node); });
}

void ViewState::press() {
    measured([this] {
        m_interaction.activate(m_interaction.hovered());
        m_interaction.focus(m_focusOrder.nearest(m_interaction.hovered()));
    });
}

void ViewState::release() {
    measured([this] { m_interaction.activate(nullptr); });
}

void ViewState::moveFocus(int step) {
    Styleable* node = m_focusOrder.next(m_scene.root(), m_interaction.focused(), step);
    measured([&] { m_interaction.focus(node); });
}

void ViewState::pressFocused() {
    measured([this] { m_interaction.activate(m_interaction.focused()); });
}

void ViewState::sceneChanged(bool isOtherScene) {
    m_cost = m_scene.cost();
    m_focusOrder = FocusOrder(m_scene.sheet());
    if (isOtherScene)
        m_interaction = Interaction();
    Styleable* node = m_pointer ? nodeAt(m_scene.root(), *m_pointer) : nullptr;
    m_interaction.hover(node); // nodes may have moved
}

const Styleable& ViewState::subject() const {
    if (m_interaction.hovered())
        return *m_interaction.hovered();
    return m_interaction.focused() ? *m_interaction.focused() : m_scene.root();
}

QStringList ViewState::lines() const {
    QStringList lines;
    if (m_showsHelp)
        lines += helpTextOfView();
    if (m_showsStatus)
        lines += statusText(&subject(), m_cost);
    const QByteArray fault = m_scene.fault();
    if (!fault.isEmpty())
        lines += "not shown: " + QString::fromUtf8(Gorvel::StringUtils::printable(fault));
    return lines;
}

} // namespace Command
