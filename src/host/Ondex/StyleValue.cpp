#include "Ondex/StyleValueList_p.h"

#include <atomic>
#include <utility>

namespace Ondex {

int StyleValue::listSize() const {
    return static_cast<int>(m_content.m_content.list->components.size());
}

const StyleValue::Component& StyleValue::listed(int i) const {
    static const Component unknown;
    return isList() && i >= 0 && i < listSize() ? m_content.m_content.list->components[static_cast<std::size_t>(i)]
                                                : unknown;
}

StyleValue::List& StyleValue::ownList() {
    if (isList() && m_content.m_content.list->ref.loadAcquire() == 1)
        return *m_content.m_content.list;
    auto* const list = isList() ? new List(*m_content.m_content.list) : new List;
    if (!isList() && !isEmpty())
        list->components.push_back(std::move(m_content));
    m_content = Component(list);
    return *list;
}

QByteArray StyleValue::asKeyword(int i) const {
    return (*this)[i].asKeyword();
}

QString StyleValue::asString(int i) const {
    return (*this)[i].asString();
}

SimpleExpression StyleValue::asExpr(int i) const {
    return (*this)[i].asExpr();
}

Gorvel::ColorPMA StyleValue::asColorPMA(int i) const {
    return (*this)[i].asColorPMA();
}

QList<Attribute::ValueUnit> StyleValue::units() const {
    QList<Attribute::ValueUnit> result;
    for (int i = 0; i < size(); ++i)
        result.append(unit(i));
    return result;
}

bool StyleValue::isUniform() const {
    for (int i = 1; i < size(); ++i) {
        if (type(i) != type(0))
            return false;
    }
    return true;
}

void StyleValue::append(const Component& component, Separator separator) {
    const Component copy = component; // it may lie in the list that is about to grow
    appendRange(&copy, copy.type() == TYPE_UNKNOWN ? 0 : 1, separator);
}

void StyleValue::append(const StyleValue& value, Separator separator) {
    const StyleValue copy = value; // it may be this value
    appendRange(&copy[0], copy.size(), separator);
}

void StyleValue::appendRange(const Component* first, int count, Separator separator) {
    const int oldSize = size();
    if (count == 0)
        return;
    if (oldSize == 0 && count == 1) {
        *this = StyleValue(*first);
        return;
    }
    std::vector<Component>& components = ownList().components;
    components.insert(components.end(), first, first + count);
    components[static_cast<std::size_t>(oldSize)].m_separator = oldSize > 0 ? separator : SEPARATOR_WHITE_SPACE;
}

QList<StyleValue> StyleValue::split(Separator separator) const {
    QList<StyleValue> pieces;
    for (int first = 0; first < size();) {
        int end = first + 1;
        while (end < size() && (*this)[end].separator() != separator)
            ++end;
        StyleValue piece;
        piece.appendRange(&(*this)[first], end - first, SEPARATOR_WHITE_SPACE);
        pieces.append(piece);
        first = end;
    }
    return pieces;
}

bool operator==(const StyleValue& a, const StyleValue& b) {
    if (a.isList() && b.isList() && a.m_content.m_content.list == b.m_content.m_content.list)
        return true;
    if (a.size() != b.size())
        return false;
    for (int i = 0; i < a.size(); ++i) {
        if (a[i] != b[i] || a[i].separator() != b[i].separator())
            return false;
    }
    return true;
}

static std::atomic<StyleValue::TextReader> textReader{nullptr};

void StyleValue::setTextReader(TextReader reader) {
    textReader = reader;
}

StyleValue StyleValue::fromText(const QByteArray& text) {
    const TextReader reader = textReader;
    return reader ? reader(text) : StyleValue();
}

} // namespace Ondex
