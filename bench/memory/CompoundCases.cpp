#include "AddMemoryCases.h"
#include "HeapUse.h"

#include "harness/Timing.h"
#include "scene/Sheets.h"

#include "Brisko/AttributeFont.h"
#include "Brisko/CSSBoxModel.h"

#include <QImage>
#include <QTemporaryDir>

namespace Bench {

namespace {

/// A property and two values of it, which the rule of a type and that of a class give.
struct Switch {
    const char* name;
    const char* property;
    const char* first;
    const char* second;
};

// @ is the folder of the images.
const Switch switches[] = {
    {"opacity, for comparison", "opacity", "0.5", "1"},
    {"border", "border", "1px solid #335577", "3px solid #dd8833"},
    {"border, its colour", "border-color", "#335577", "#dd8833"},
    {"font", "font", "12px/14px serif", "italic bold 16px/20px sans-serif"},
    {"font, its size", "font-size", "12px", "16px"},
    {"background, a colour", "background", "#335577", "#dd8833"},
    {"background, two layers without images", "background", "none left top, none #335577",
     "none right 4px bottom 8px / cover no-repeat, none content-box #dd8833"},
    {"background, two layers with images", "background", "url('@/a.png') left top, url('@/b.png') #335577",
     "url('@/b.png') right 4px bottom 8px / cover no-repeat, url('@/a.png') content-box #dd8833"},
};

/// The images that the sheets name.
class Images {
public:
    Images() {
        QImage image(8, 8, QImage::Format_ARGB32);
        image.fill(Qt::darkGreen);
        for (const char* name : {"a.png", "b.png"})
            image.save(m_folder.filePath(name));
    }
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

/// A node that has what the sheets set.
class SwitchNode : public Brisko::CSSBoxModel {
public:
    SwitchNode() : m_opacity(this, "opacity", 1.f), m_font(this, "font") { setCSSType("box"); }
    ~SwitchNode() override { leaveHost(); }

private:
    Ondex::AttributeT<float> m_opacity;
    Brisko::AttributeFont m_font;
};

QByteArray sheetOf(const Switch& values, const QString& folder) {
    const QString sheet = QStringLiteral("box { %1: %2 } .on { %1: %3 }")
                              .arg(values.property, values.first, values.second)
                              .replace("@", folder);
    return sheet.toUtf8();
}

/// The attribute that a program listens to: the compound one of a longhand.
Ondex::Attribute* listened(const Brisko::Styleable& node, const Switch& values) {
    return node.attribute(QByteArray(values.property).split('-').first());
}

/// What one change makes, besides taking time: told once, over a change and the way back.
Figures workOf(SwitchNode& node, const Switch& values) {
    int changes = 0;
    Ondex::Attribute* attribute = listened(node, values);
    const long listener = attribute->addListener([&changes] { ++changes; }, 2);
    const HeapUse use;
    node.toggleCSSClass("on", true);
    node.toggleCSSClass("on", false);
    const double allocations = double(use.allocations());
    attribute->removeListener(listener);
    return {{"allocations/change", allocations / 2}, {"changes sent/change", changes / 2.0}};
}

Figures switchValues(const Switch& values) {
    const Images images;
    SwitchNode node;
    node.setStyle(Brisko::Style(parse(sheetOf(values, images.folder()))));
    Figures figures = workOf(node, values);
    bool on = false;
    const double seconds = secondsPerCall([&] {
        on = !on;
        node.toggleCSSClass("on", on);
    });
    figures.push_back({"us/change", seconds * 1e6});
    return figures;
}

} // namespace

void addCompound(Cases& cases) {
    for (const Switch& values : switches)
        cases.add("change/" + std::string(values.name), [&values] { return switchValues(values); });
}

} // namespace Bench
