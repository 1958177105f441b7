#include "StatusText.h"

#include "Gorvel/StringUtils.h"

#include <algorithm>

namespace Command {

using Brisko::Styleable;

namespace {

constexpr int mostSources = 12;

/// 1-based place among the siblings of the same type.
int placeOf(const Styleable& node, const Styleable& parent) {
    int place = 0;
    for (const Styleable* child : parent.children()) {
        place += child->cssType() == node.cssType();
        if (child == &node)
            break;
    }
    return place;
}

/// Puts the lines of each file together: "main.css:12, 20".
QStringList byFile(const QStringList& sources) {
    QStringList files;
    QStringList texts;
    for (const QString& source : sources) {
        const QString file = source.section(':', 0, -2);
        const int known = files.indexOf(file);
        if (known >= 0) {
            texts[known] += ", " + source.section(':', -1);
        } else {
            files.append(file);
            texts.append(source);
        }
    }
    return texts;
}

QString printable(const QByteArray& text) {
    return QString::fromUtf8(Gorvel::StringUtils::printable(text));
}

} // namespace

QByteArray pathOf(const Styleable& node) {
    QByteArray path;
    for (const Styleable* at = &node; at;) {
        const auto* parent = dynamic_cast<const Styleable*>(at->host());
        const QByteArray place = parent ? "[" + QByteArray::number(placeOf(*at, *parent)) + "]" : QByteArray();
        path.prepend("/" + at->cssType() + place);
        at = parent;
    }
    return path;
}

QByteArray sourcesOf(const Styleable& node, int most) {
    QStringList sources;
    for (const Ondex::Attribute* attribute : node.attributes())
        sources.append(attribute->isNode() ? QString() : node.attributeSource(attribute->name()));
    sources.removeAll(QString());
    sources.removeDuplicates();
    const int more = std::max(int(sources.size()) - most, 0);
    const QByteArray text = byFile(sources.mid(0, most)).join("; ").toUtf8();
    return more > 0 ? text + " + " + QByteArray::number(more) : text;
}

QStringList statusText(const Styleable* node, const RestyleCost& cost) {
    QStringList lines;
    if (node) {
        const QByteArray sources = sourcesOf(*node, mostSources);
        lines.append(printable(pathOf(*node) + "   " + node->simpleSelector(true).toUtf8()));
        lines.append(sources.isEmpty() ? QStringLiteral("no declaration") : printable(sources));
    }
    lines.append("last restyle: " + QString::fromLatin1(cost.text()));
    return lines;
}

QStringList helpTextOfView() {
    return {"Tab, Shift+Tab: next, previous node (:focus)", "Space, Enter: hold it down (:active)", "F1, s: status",
            "h: this help", "Escape, q: close"};
}

} // namespace Command
