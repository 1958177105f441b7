#include "Brisko/Declaration.h"

#include <QDebug>

namespace Brisko {

bool Declaration::operator==(const Declaration& other) const {
    return m_id == other.m_id && m_property == other.m_property && m_value == other.m_value &&
           m_important == other.m_important;
}

QDebug operator<<(QDebug debug, const Declaration& declaration) {
    QDebugStateSaver saver(debug);
    debug.nospace().noquote() << "Declaration(" << declaration.id() << ", " << declaration.property() << ": "
                              << declaration.value().stringify() << (declaration.important() ? " !important)" : ")");
    return debug;
}

} // namespace Brisko
