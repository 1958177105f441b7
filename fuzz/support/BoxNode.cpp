#include "fuzz/support/BoxNode.h"

#include "Brisko/AttributeFont.h"
#include "Ondex/AttributeT.h"
#include "Ondex/TransitionManager.h"
#include "fuzz/support/ValueText.h"

#include <gtest/gtest.h>

namespace Fuzz {

using Brisko::AttributeFont;
using Brisko::CSSBoxModel;
using Ondex::Attribute;
using Ondex::StyleValue;

namespace {

void wake(Ondex::Node& node, const char* prefix, const StyleValue& value) {
    for (const QByteArray& name : longhandNames()) {
        Attribute* longhand = name.startsWith(prefix) ? node.attribute(name) : nullptr;
        if (longhand && longhand->set(value, Attribute::UserLayer))
            longhand->clearValue(Attribute::UserLayer);
    }
}

void expectSameBorder(const Brisko::AttributeBorder& changed, const Brisko::AttributeBorder& fresh) {
    EXPECT_TRUE(changed.borders() == fresh.borders());
    EXPECT_EQ(changed.isUniform(), fresh.isUniform());
    EXPECT_TRUE(changed.frame() == fresh.frame());
}

void expectSameBackground(const Brisko::AttributeBackground& changed, const Brisko::AttributeBackground& fresh) {
    EXPECT_TRUE(changed.color() == fresh.color());
    EXPECT_EQ(changed.bgImages().size(), fresh.bgImages().size());
    EXPECT_TRUE(changed.bgImages() == fresh.bgImages());
    EXPECT_EQ(changed.backgroundColorClip(), fresh.backgroundColorClip());
}

void expectSameFont(const AttributeFont& changed, const AttributeFont& fresh) {
    EXPECT_EQ(changed.toQFont().toString(), fresh.toQFont().toString());
    EXPECT_TRUE(changed.toQFont() == fresh.toQFont());
    EXPECT_EQ(changed.fontWeight(), fresh.fontWeight());
    EXPECT_EQ(changed.fontSizePixels(), fresh.fontSizePixels());
    EXPECT_EQ(changed.asString(nullptr, Attribute::EffectiveLayer), fresh.asString(nullptr, Attribute::EffectiveLayer));
}

const AttributeFont* fontOf(const CSSBoxModel& box) {
    return dynamic_cast<const AttributeFont*>(box.attribute("font"));
}

/// An attribute that was made after the list had named it is armed by the next change of the list only.
void expectSameTransitions(const CSSBoxModel& changed, const CSSBoxModel& fresh) {
    static const CSSBoxModel plain;
    for (const Attribute* attribute : plain.attributes()) {
        const Attribute* one = changed.attribute(attribute->name());
        const Attribute* other = fresh.attribute(attribute->name());
        EXPECT_EQ(one->transitionDuration(), other->transitionDuration()) << attribute->name().constData();
        EXPECT_EQ(one->transitionDelay(), other->transitionDelay()) << attribute->name().constData();
    }
}

} // namespace

void wakeBox(CSSBoxModel& box) {
    wake(box, "border-", StyleValue(1));
    wake(box, "border-", StyleValue(QByteArray("red")));
    wake(box, "background-", StyleValue(QByteArray("red")));
}

void wakeFont(Ondex::Node& host) {
    wake(host, "font-", StyleValue(QByteArray("small-caps")));
    wake(host, "font-", StyleValue(QByteArray("italic")));
    wake(host, "font-", StyleValue(QByteArray("none")));
    wake(host, "font-", StyleValue(QByteArray("condensed")));
}

void expectSameDerived(const CSSBoxModel& changed, const CSSBoxModel& fresh) {
    expectSameBorder(changed.border(), fresh.border());
    expectSameBackground(changed.background(), fresh.background());
    if (fontOf(changed) && fontOf(fresh))
        expectSameFont(*fontOf(changed), *fontOf(fresh));
    expectSameTransitions(changed, fresh);
    EXPECT_TRUE(changed.marginBox() == fresh.marginBox());
    EXPECT_TRUE(changed.backgroundBox() == fresh.backgroundBox());
}

void endTransitions() {
    Ondex::TransitionManager::advance(1e30f);
}

BoxProperties::BoxProperties() {
    // Any of the names makes the whole font, and is answered by the attribute of that name.
    const auto makeFont = [](Ondex::Node* host, const QByteArray& name) -> Attribute* {
        if (host->attribute("font"))
            return nullptr;
        new AttributeFont(host, "font"); // the node owns it
        wakeFont(*host);
        return host->attribute(name);
    };
    const auto makeNumber = [](Ondex::Node* host, const QByteArray& name) -> Attribute* {
        return new Ondex::AttributeT<float>(host, name, 1.f);
    };
    for (const QByteArray& name : names()) {
        if (name.startsWith("font") || name == "line-height")
            m_registrants.emplace_back(name, makeFont);
        else
            m_registrants.emplace_back(name, makeNumber);
    }
}

const std::vector<QByteArray>& BoxProperties::names() {
    static const std::vector<QByteArray> all{"font",        "font-family",  "font-style", "font-variant",
                                             "font-weight", "font-kerning", "font-size",  "font-stretch",
                                             "line-height", "opacity",      "z-index"};
    return all;
}

} // namespace Fuzz
