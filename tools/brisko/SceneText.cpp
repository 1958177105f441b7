#include "SceneText.h"

#include "Brisko/CSSBoxModel.h"
#include "Gorvel/StringUtils.h"
#include "Ondex/AttributeTuple.h"
#include "SceneWalk.h"

#include <ostream>

namespace Command {

using Brisko::Styleable;
using Gorvel::StringUtils;
using Ondex::Attribute;

namespace {

/// Escape sequences of terminals; all empty where there are no colours.
struct Paint {
    const char* path = "";
    const char* source = "";
    const char* plain = "";
};

/// The word for the layer that wins; empty for the usual one.
const char* layerWord(const Attribute& attribute) {
    if (attribute.isValueDefinedOnLayer(Attribute::AnimationLayer))
        return " (transition)";
    if (attribute.isValueDefinedOnLayer(Attribute::ImportantStyleLayer))
        return " !important";
    if (attribute.isValueDefinedOnLayer(Attribute::UserLayer))
        return " (scene)";
    return attribute.isValueDefinedOnLayer(Attribute::StyleLayer) ? "" : " (default)";
}

void writeAttribute(std::ostream& out, const Styleable& node, const Attribute& attribute, const Paint& paint) {
    const QByteArray left = "    " + StringUtils::printable(attribute.name()) + ": " + effectiveText(attribute);
    const QByteArray source = StringUtils::printable(node.attributeSource(attribute.name()).toUtf8());
    if (source.isEmpty()) {
        out << left.constData() << '\n';
        return;
    }
    out << left.leftJustified(47).constData() << ' ' << paint.source << source.constData() << paint.plain << '\n';
}

/// Id and classes from the scene stand in the line of the node already.
bool standsInIdentity(const Styleable& node, const Attribute& attribute) {
    return (attribute.name() == "css-id" || attribute.name() == "css-class") &&
           node.attributeSource(attribute.name()).isEmpty();
}

/// The sides as CSS writes them: no more than are needed.
QByteArray frameText(const Pemmit::Frame4f& frame) {
    QList<QByteArray> sides = {shortestNumber(frame.top), shortestNumber(frame.right), shortestNumber(frame.bottom),
                               shortestNumber(frame.left)};
    if (frame.left == frame.right)
        sides.removeLast();
    if (sides.size() == 3 && frame.bottom == frame.top)
        sides.removeLast();
    if (sides.size() == 2 && frame.right == frame.top)
        sides.removeLast();
    return sides.join(' ');
}

/// Place and size of the content, the frames round it that are not zero, and the size of it all.
void writeBoxes(std::ostream& out, const Styleable& node) {
    const auto* box = dynamic_cast<const Brisko::CSSBoxModel*>(&node);
    if (!box)
        return;
    const auto sizeText = [](const Brisko::CSSBoxModel::Size& size) {
        return shortestNumber(size.width()) + " x " + shortestNumber(size.height());
    };
    QByteArray line = "    [ " + sizeText(box->size());
    line += " at " + shortestNumber(box->x()) + ", " + shortestNumber(box->y());
    bool isFramed = false;
    const auto addFrame = [&](const char* name, const Pemmit::Frame4f& frame) {
        if (frame == Pemmit::Frame4f())
            return;
        line += name + frameText(frame);
        isFramed = true;
    };
    addFrame("; padding ", box->padding());
    addFrame("; border ", box->borderFrame());
    addFrame("; margin ", box->margin());
    if (isFramed)
        line += "; in all " + sizeText(box->boxSize());
    out << line.constData() << " ]\n";
}

/// The line of boxes shows tuples already, and their components have lines of their own.
bool standsInBoxes(const Attribute& attribute) {
    return dynamic_cast<const Ondex::AttributeTuple*>(&attribute) != nullptr;
}

void writeArmed(std::ostream& out, const Attribute& attribute) {
    out << "    ~ " << StringUtils::printable(attribute.name()).constData() << " runs "
        << shortestNumber(attribute.transitionDuration()).constData() << "s after "
        << shortestNumber(attribute.transitionDelay()).constData() << "s\n";
}

} // namespace

QByteArray effectiveText(const Attribute& attribute) {
    const QString text = attribute.asString(nullptr, Attribute::EffectiveLayer);
    return StringUtils::printable(text.toUtf8()) + layerWord(attribute);
}

void writeSceneText(std::ostream& out, Styleable& root, Listed listed, bool colors) {
    const Paint paint = colors ? Paint{"\x1b[1m", "\x1b[36m", "\x1b[0m"} : Paint{};
    for (SceneWalk walk(root); walk.isValid(); walk.next()) {
        const Styleable& node = walk.node();
        out << paint.path << StringUtils::printable(walk.path()).constData() << paint.plain << "  "
            << StringUtils::printable(node.simpleSelector(true).toUtf8()).constData() << '\n';
        writeBoxes(out, node);
        for (const Attribute* attribute : listedAttributes(node, listed)) {
            if (listed == Listed::All || !(standsInIdentity(node, *attribute) || standsInBoxes(*attribute)))
                writeAttribute(out, node, *attribute, paint);
        }
        for (const Attribute* attribute : listedAttributes(node, Listed::All)) {
            if (attribute->isTransitionArmed())
                writeArmed(out, *attribute);
        }
    }
}

} // namespace Command
