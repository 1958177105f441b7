#pragma once

#include "Gorvel/Color.h"
#include "Gorvel/HostExport.h"
#include "Ondex/Attribute.h"
#include "Ondex/SimpleExpression.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <cstring>
#include <iosfwd>
#include <utility>

class QDebug;

namespace Ondex {

/// A CSS value: a list of typed components, each with the separator that stands before it.
///
///     Ondex::StyleValue value(1.f, Ondex::Attribute::VU_PXS); // 1px solid
///     value.append(Ondex::StyleValue(QByteArray("solid")));
///     value.size();       // 2
///     value.asKeyword(1); // "solid"
///
/// An empty value stands for no value. Copies are cheap: one component is held in place, longer lists are shared until
/// one of the copies changes. An index outside of the list is answered as an unknown component: neutral results.
class BRISKO_HOST_EXPORT StyleValue {
    struct List;

public:
    /// What a component holds; the numeric codes are fixed.
    enum ValueType {
        TYPE_UNKNOWN = 0,   ///< nothing; the answer for an index outside of the list
        TYPE_FLOAT = 1,     ///< a 32-bit float with a unit
        TYPE_INT = 2,       ///< a 32-bit integer without a unit
        TYPE_COLOR = 3,     ///< a colour with straight alpha
        TYPE_COLOR_PMA = 4, ///< a colour with premultiplied alpha
        TYPE_STRING = 5,    ///< a text, quoted or from url()
        TYPE_KEYWORD = 6,   ///< an identifier, UTF-8
        TYPE_EXPR = 7       ///< a calculation
    };

    /// How two neighbours are written; the numeric codes are fixed.
    enum Separator { SEPARATOR_WHITE_SPACE = 0, SEPARATOR_COMMA = 1, SEPARATOR_SLASH = 2 };

    /// One typed part of a value. An unknown one reads as empty, 0 or transparent black.
    class BRISKO_HOST_EXPORT Component {
    public:
        /// Makes an unknown component.
        Component() : Component(TYPE_UNKNOWN) {}
        explicit Component(int value) : Component(TYPE_INT) { m_content.integer = value; }
        explicit Component(float value, Attribute::ValueUnit unit = Attribute::VU_UNKNOWN) : Component(TYPE_FLOAT) {
            m_unit = static_cast<quint8>(unit);
            m_content.number = value;
        }
        explicit Component(const QString& text);
        explicit Component(const QByteArray& keyword);
        explicit Component(const Gorvel::Color& color);
        explicit Component(const Gorvel::ColorPMA& color);
        explicit Component(const SimpleExpression& expression);
        Component(const Component& other);
        Component(Component&& other) noexcept { takeFrom(other); }
        Component& operator=(Component other) noexcept {
            swap(other);
            return *this;
        }
        ~Component() {
            if (m_type >= TYPE_STRING)
                destroyContent();
        }

        ValueType type() const { return static_cast<ValueType>(m_type); }
        /// The unit of a number, VU_UNKNOWN of everything else.
        Attribute::ValueUnit unit() const { return static_cast<Attribute::ValueUnit>(m_unit); }
        /// The separator before this component; white space at the first of a value.
        Separator separator() const { return static_cast<Separator>(m_separator); }

        /// Whether this is a float or an integer.
        bool isNumber() const { return m_type == TYPE_FLOAT || m_type == TYPE_INT; }
        bool isColor() const { return m_type == TYPE_COLOR || m_type == TYPE_COLOR_PMA; }
        /// Whether the reader for that type has more than its neutral result to give: floats and integers read numbers
        /// and constant expressions, colours read colours and colour names, texts read texts and keywords.
        bool canConvert(ValueType type) const;

        /// A number, or a constant expression, as it stands, whatever its unit; else 0.
        float asFloat() const;
        /// The same cut to an integer; saturates at the limits, NaN gives 0.
        int asInt() const;
        /// A keyword, or a text in UTF-8; else empty.
        QByteArray asKeyword() const;
        /// A text or keyword; the shortest text of a number, without its unit; else empty.
        QString asString() const;
        /// An expression; a number as a constant one; else the constant 0.
        SimpleExpression asExpr() const;
        /// A colour, or the colour that a keyword names; else transparent black.
        Gorvel::ColorPMA asColorPMA() const;

        /// Writes the component as CSS text, without its separator.
        QString stringify() const;

        /// Compares type, unit and content, not the separator. NaN equals NaN.
        friend BRISKO_HOST_EXPORT bool operator==(const Component& a, const Component& b);
        friend bool operator!=(const Component& a, const Component& b) { return !(a == b); }
        /// Whether this is the keyword of these bytes; a text of the same characters is not.
        bool operator==(const QByteArray& keyword) const;
        bool operator!=(const QByteArray& keyword) const { return !(*this == keyword); }

    private:
        friend class StyleValue;
        friend BRISKO_HOST_EXPORT bool operator==(const StyleValue& a, const StyleValue& b);

        // Stands in m_type for the list of a whole value.
        static constexpr quint8 listMark = 8;

        // The member that m_type names is the live one. All of them stay valid when their bytes are moved.
        union Content {
            Content() : channels{} {}
            ~Content() {}
            float number;
            int integer;
            float channels[4];
            QString text;
            QByteArray keyword;
            SimpleExpression expression;
            List* list; // of shared ownership
        };
        explicit Component(ValueType type) : m_type(static_cast<quint8>(type)) {}
        explicit Component(List* list);
        void setChannels(const float* channels);
        void destroyContent();
        void copyBytes(const Component& other) {
            std::memcpy(static_cast<void*>(this), static_cast<const void*>(&other), sizeof *this);
        }
        // Takes over the content of another one, which becomes unknown; what was here is not destroyed.
        void takeFrom(Component& other) {
            copyBytes(other);
            other.m_type = TYPE_UNKNOWN;
        }
        void swap(Component& other) {
            Component held(std::move(*this));
            takeFrom(other);
            other.takeFrom(held);
        }

        quint8 m_type;
        quint8 m_unit = Attribute::VU_UNKNOWN;
        quint8 m_separator = SEPARATOR_WHITE_SPACE;
        Content m_content;
    };

    StyleValue() = default;
    StyleValue(int value) : m_content(value) {}
    StyleValue(float value, Attribute::ValueUnit unit = Attribute::VU_UNKNOWN) : m_content(value, unit) {}
    StyleValue(const QString& text) : m_content(text) {}
    StyleValue(const QByteArray& keyword) : m_content(keyword) {}
    StyleValue(const Gorvel::Color& color) : m_content(color) {}
    StyleValue(const Gorvel::ColorPMA& color) : m_content(color) {}
    StyleValue(const SimpleExpression& expression) : m_content(expression) {}
    /// Makes a value of one component; as the first of a value it has no separator any more.
    StyleValue(const Component& component) : m_content(component) { m_content.m_separator = SEPARATOR_WHITE_SPACE; }
    StyleValue(const StyleValue& other) = default;
    StyleValue(StyleValue&& other) noexcept = default;
    StyleValue& operator=(const StyleValue& other) = default;
    StyleValue& operator=(StyleValue&& other) noexcept = default;
    ~StyleValue() = default;

    int size() const { return isList() ? listSize() : int(m_content.m_type != TYPE_UNKNOWN); }
    bool isEmpty() const { return size() == 0; }

    // Readers of component i; see the functions of Component with the same names.
    ValueType type(int i) const { return (*this)[i].type(); }
    Attribute::ValueUnit unit(int i) const { return (*this)[i].unit(); }
    bool isNumber(int i) const { return (*this)[i].isNumber(); }
    float asFloat(int i) const { return (*this)[i].asFloat(); }
    int asInt(int i) const { return (*this)[i].asInt(); }
    QByteArray asKeyword(int i) const;
    QString asString(int i) const;
    SimpleExpression asExpr(int i) const;
    Gorvel::ColorPMA asColorPMA(int i) const;
    /// Component @p i, valid until this value changes.
    const Component& operator[](int i) const { return i == 0 && !isList() ? m_content : listed(i); }

    /// The units of all components, in order.
    QList<Attribute::ValueUnit> units() const;
    /// Whether all components have the same type code (an integer and a float do not); true where there are none.
    bool isUniform() const;

    /// Adds one component, or all those of another value, at the end. @p separator goes before the first one added,
    /// unless that becomes the first of this value.
    void append(const Component& component, Separator separator = SEPARATOR_WHITE_SPACE);
    void append(const StyleValue& value, Separator separator = SEPARATOR_WHITE_SPACE);

    /// The pieces between the separators of that code, in order; none for an empty value.
    QList<StyleValue> split(Separator separator) const;

    /// The value as CSS text that reads back as an equal value, as far as CSS can write it.
    QString stringify() const;

    /// Compares the components: type, unit, content, and the separators between them. An integer never equals a float.
    friend BRISKO_HOST_EXPORT bool operator==(const StyleValue& a, const StyleValue& b);
    friend bool operator!=(const StyleValue& a, const StyleValue& b) { return !(a == b); }

    /// Turns the text of a value into the value; empty where the text is none.
    using TextReader = StyleValue (*)(const QByteArray& text);
    /// Sets what fromText() uses; the library that has the parser does this when it is loaded.
    static void setTextReader(TextReader reader);
    /// Reads a value from CSS text without sending messages.
    /// @return an empty value where the text is no value, or there is no reader
    static StyleValue fromText(const QByteArray& text);

private:
    bool isList() const { return m_content.m_type == Component::listMark; }
    int listSize() const;
    // Component i of a list, the unknown one where there is none of that number.
    const Component& listed(int i) const;
    // The list, made of what is there where it is none yet, for this value alone.
    List& ownList();
    void appendRange(const Component* first, int count, Separator separator);

    Component m_content; // the only component, unknown where there is none; or the list
};

/// Writes the value as text, in the bytes that the scanner reads back.
BRISKO_HOST_EXPORT std::ostream& operator<<(std::ostream& out, const StyleValue& value);
BRISKO_HOST_EXPORT QDebug operator<<(QDebug debug, const StyleValue& value);

/// Reads one line and parses it as a CSS value; @p value becomes empty where the line is none. Needs the library
/// Brisko.
BRISKO_HOST_EXPORT std::istream& operator>>(std::istream& in, StyleValue& value);

} // namespace Ondex
