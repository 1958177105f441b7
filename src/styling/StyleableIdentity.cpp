#include "Brisko/Styleable.h"

#include "Gorvel/BinaryData.h"
#include "Gorvel/Name.h"
#include "styling/AppliedProperties.h"
#include "styling/ChildWalk.h"
#include "styling/PseudoClasses.h"
#include "styling/StylePass.h"
#include "styling/StyleableWatch.h"

#include <utility>

namespace Brisko {

namespace {

const QByteArray pseudoClassChanged = QByteArrayLiteral("pseudo-class-changed");

QByteArray lowerCased(const QString& name) {
    return name.toUtf8().toLower();
}

} // namespace

Styleable::Styleable(const QByteArray& type)
    : Ondex::Node(nullptr, type), m_cssType(Gorvel::interned(type)), m_cssClass(this, "css-class"),
      m_cssId(this, "css-id"), m_transition(this, "transition") {
    m_cssId.setWatcher(*this);
    m_cssClass.setWatcher(*this);
    eventAddOut(pseudoClassChanged);
}

Styleable::~Styleable() {
    Watch::abandon(m_watch);
    if (m_putOff >= 0)
        ChildWalk::forget(*this);
    if (m_pass)
        std::exchange(m_pass, nullptr)->nodeGoes(std::move(m_style));
    leaveHost();
}

void Styleable::setCSSType(const QByteArray& type) {
    m_cssType = Gorvel::interned(type);
    StylePass::forgetMatches(*this);
    updateStyle();
}

void Styleable::setCSSId(const QString& id) {
    m_cssId = id;
}

void Styleable::setCSSClasses(const QString& classes) {
    m_cssClass = classes;
}

void Styleable::addCSSClass(const QString& name) {
    if (name.isEmpty())
        return;
    const Watch watch(*this);
    if (cssClassStr().isEmpty())
        m_cssClass = name;
    if (watch.isAlive() && !m_classes.contains(lowerCased(name)))
        m_cssClass = cssClassStr() + QLatin1Char(' ') + name;
}

void Styleable::addCSSClasses(const QStringList& names) {
    const Watch watch(*this);
    for (int i = 0; watch.isAlive() && i < names.size(); ++i)
        addCSSClass(names[i]);
}

void Styleable::removeCSSClass(const QString& name) {
    if (name.isEmpty())
        return;
    QStringList names = cssClassStr().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (names.removeAll(name) > 0)
        m_cssClass = names.join(QLatin1Char(' '));
}

void Styleable::removeCSSClasses(const QStringList& names) {
    const Watch watch(*this);
    for (int i = 0; watch.isAlive() && i < names.size(); ++i)
        removeCSSClass(names[i]);
}

void Styleable::toggleCSSClass(const QByteArray& name, bool on) {
    if (on)
        addCSSClass(QString::fromUtf8(name));
    else
        removeCSSClass(QString::fromUtf8(name));
}

bool Styleable::hasCSSClass(const QByteArray& name) const {
    return m_classes.contains(name.toLower());
}

/// Restyles for another id or other classes.
void Styleable::watchedChanged(Ondex::Attribute& identity) {
    StylePass::forgetMatches(*this);
    if (&identity == &m_cssClass)
        classesChanged();
    else
        updateStyle();
}

void Styleable::classesChanged() {
    QList<QByteArray> names = lowerCased(cssClassStr()).split(' ');
    names.removeAll(QByteArray());
    for (QByteArray& name : names)
        name = Gorvel::interned(name);
    m_classes.clear();
    m_classes.insertAll(names);
    updateStyle();
}

void Styleable::setPseudoClass(const QByteArray& name, bool on) {
    if (pseudoClass(name) == on)
        return;
    pseudoClassesForWriting().set(name, on);
    StylePass::forgetMatches(*this);
    const Watch watch(*this);
    if (!isStylingSuppressed()) {
        switch (m_pseudoClasses->use(name)) {
        case PseudoClasses::GoesOnBelow:
            setStyle(m_style);
            break;
        case PseudoClasses::EndsHere:
            applyStyleAlone();
            break;
        case PseudoClasses::Unused:
            break;
        }
    }
    if (!watch.isAlive())
        return;
    Gorvel::BinaryData data;
    data << name << qint32(on);
    eventSend(pseudoClassChanged, data);
}

bool Styleable::pseudoClass(const QByteArray& name) const {
    return m_pseudoClasses && m_pseudoClasses->isOn(name);
}

QList<QByteArray> Styleable::pseudoClasses() const {
    QList<QByteArray> names;
    if (m_pseudoClasses) {
        for (const auto& [name, on] : m_pseudoClasses->states())
            names.append(name);
    }
    return names;
}

Styleable::PseudoClasses& Styleable::pseudoClassesForWriting() {
    if (!m_pseudoClasses)
        m_pseudoClasses = std::make_unique<PseudoClasses>();
    return *m_pseudoClasses;
}

QString Styleable::simpleSelector(bool withPseudoClasses) const {
    QString text = QString::fromUtf8(m_cssType);
    if (!cssId().isEmpty())
        text += QLatin1Char('#') + cssId();
    for (const QByteArray& name : m_classes)
        text += QLatin1Char('.') + QString::fromUtf8(name);
    if (withPseudoClasses && m_pseudoClasses) {
        for (const auto& [name, on] : m_pseudoClasses->states()) {
            if (on)
                text += QLatin1Char(':') + QString::fromUtf8(name);
        }
    }
    return text;
}

} // namespace Brisko
