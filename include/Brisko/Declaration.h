#pragma once

#include "Brisko/Export.h"
#include "Ondex/StyleValue.h"

#include <QByteArray>

#include <utility>

class QDebug;

namespace Brisko {

/// One `property: value` of a rule (CSS 2.1 section 4.1.8).
///
/// The number is given by StyleSheet::setId() and is unique in its sheet; later declarations have higher ones.
class BRISKO_EXPORT Declaration {
public:
    /// Makes one that has no number yet. The name of the property is in UTF-8.
    Declaration(const QByteArray& property, Ondex::StyleValue value, bool important)
        : m_important(important), m_property(property), m_value(std::move(value)) {}

    /// Number in the sheet; -1 until the sheet gave one.
    int id() const { return m_id; }
    const QByteArray& property() const { return m_property; }
    const Ondex::StyleValue& value() const { return m_value; }
    /// Whether it was marked `!important` (CSS 2.1 section 6.4.2).
    bool important() const { return m_important; }

    /// Compares number, property, value and importance. As numbers are unique in a sheet, equal ones come from one
    /// sheet, or from sheets that were filled alike.
    bool operator==(const Declaration& other) const;
    bool operator!=(const Declaration& other) const { return !(*this == other); }

private:
    friend class StyleSheet;

    int m_id = -1;
    bool m_important;
    QByteArray m_property;
    Ondex::StyleValue m_value;
};

BRISKO_EXPORT QDebug operator<<(QDebug debug, const Declaration& declaration);

} // namespace Brisko
