#include "RestyleCost.h"

#include <QByteArray>

namespace Command {

namespace {

QByteArray counted(quint64 count, const char* noun) {
    return QByteArray::number(count) + " " + noun + (count == 1 ? "" : "s");
}

} // namespace

QByteArray RestyleCost::text() const {
    return QByteArray::number(double(nanoseconds) / 1e6, 'f', 2) + " ms, " + counted(passes, "node") + ", " +
           counted(compoundsTested, "compound") + ", " + counted(declarationsOffered, "declaration") + ", " +
           counted(attributesWritten, "value");
}

RestyleCost CostMeter::cost() const {
    return {m_time.nsecsElapsed(), m_statistics.passes(), m_statistics.compoundsTested(),
            m_statistics.declarationsOffered(), m_statistics.attributesWritten()};
}

} // namespace Command
