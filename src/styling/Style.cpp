#include "Brisko/Style.h"

#include "styling/WaitingRules.h"

#include <algorithm>

namespace Brisko {

Style::Style(std::shared_ptr<StyleSheet> sheet) : m_sheet(std::move(sheet)) {}
Style::Style(std::shared_ptr<StyleSheet> sheet, Waiting waiting)
    : m_waiting(std::move(waiting)), m_sheet(std::move(sheet)) {}
Style::Style(const Style& other) = default;
Style::Style(Style&& other) noexcept = default;
Style::~Style() = default;

Style& Style::operator=(const Style& other) {
    m_waiting = other.m_waiting;
    if (m_sheet != other.m_sheet)
        m_sheet = other.m_sheet;
    return *this;
}

Style& Style::operator=(Style&& other) noexcept {
    Style(std::move(other)).swap(*this);
    return *this;
}

void Style::swap(Style& other) noexcept {
    m_waiting.swap(other.m_waiting);
    m_sheet.swap(other.m_sheet);
}

void Style::add(const std::vector<Declaration>* declarations, const SimpleSelector* selector, int specificity) {
    if (!m_waiting || m_waiting->ref.loadRelaxed() != 1 || !m_waiting->isMadeByHand()) {
        const Waiting before = m_waiting;
        m_waiting = new WaitingRules;
        if (before)
            std::for_each(before->states().begin(), before->states().end(),
                          [this](const MatchState& state) { m_waiting->add(state); });
    }
    m_waiting->add({declarations, selector, specificity});
}

void Style::clear() {
    m_waiting.reset();
}

const std::vector<Style::MatchState>& Style::state() const {
    static const std::vector<MatchState> none;
    return m_waiting ? m_waiting->states() : none;
}

bool Style::operator==(const Style& other) const {
    return m_sheet == other.m_sheet && WaitingRules::equal(m_waiting.data(), other.m_waiting.data());
}

} // namespace Brisko
