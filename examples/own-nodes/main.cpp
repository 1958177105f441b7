// A program with a class of nodes of its own, its own loop and its own place for messages.
#include <Brisko/Brisko.h>
#include <Gorvel/StringUtils.h>
#include <Gorvel/Trace.h>
#include <Ondex/AttributeT.h>
#include <Ondex/TransitionManager.h>

#include <cstdio>

namespace {

using Ondex::AttributeT;

/// A bar whose length is its level, 0 to 1. What sheets may set are its attributes; the rest is plain C++.
class Gauge : public Brisko::Styleable {
public:
    Gauge() : Styleable("gauge"), m_level(this, "level", 0.f), m_sign(this, "sign", "?") {
        m_level.addListener([this] { levelChanged(); }, 0);
        m_sign.addListener([this] { m_isDirty = true; }, 0);
    }

    /// The program's value: stronger than normal declarations, weaker than important ones.
    void setLevel(float level) { m_level = level; }

    void paintIfChanged() {
        if (!m_isDirty)
            return;
        m_isDirty = false;
        const int length = int(m_level.value() * 20.f + 0.5f);
        std::printf("[%-20s] %.2f\n", qPrintable(m_sign.value().repeated(length)), double(m_level.value()));
    }

private:
    void levelChanged() {
        m_isDirty = true;
        setPseudoClass("peak", m_level.value() > 0.8f); // restyles only where that is another state
    }

    AttributeT<float> m_level;
    AttributeT<QString> m_sign;
    bool m_isDirty = true;
};

void report(Gorvel::Trace::Level, const QByteArray& message) {
    std::printf("message: %s\n", Gorvel::StringUtils::printable(message).constData());
}

} // namespace

int main() {
    Gorvel::Trace::setSink(report);
    auto sheet = std::make_shared<Brisko::StyleSheet>();
    Brisko::CSSParser().parseSheet(*sheet, "gauge.css", nullptr, Brisko::SimpleSelector::AuthorOrigin);

    Brisko::Styleable board("board");
    auto* gauge = new Gauge;
    board.addAttribute(gauge); // the board deletes it
    board.setStyle(Brisko::Style(sheet));

    gauge->setLevel(1.f);
    for (int frame = 0; frame < 8; ++frame) {
        if (frame == 5)
            board.addCSSClass("quiet");
        gauge->paintIfChanged();
        Ondex::TransitionManager::advance(0.125f); // the time since the last frame, in seconds
    }
    return 0;
}
