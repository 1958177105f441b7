#pragma once

#include "Gorvel/BinaryData.h"
#include "Ondex/Node.h"

#include <QHash>
#include <QSharedData>

namespace Ondex {

/// The events of a node: those it sends, and what is called with them. Nodes that declare the same single event and
/// have no handlers share one of these, as all nodes of a class usually do.
struct Node::Events : QSharedData {
    using Handler = std::function<void(const Gorvel::BinaryData&)>;
    QList<QByteArray> out;
    QHash<QByteArray, QList<Handler>> handlers; // by the name of the event

    /// Those of a node that sends @p event only. May be called on any thread.
    static QSharedDataPointer<Events> ofSingle(const QByteArray& event);
};

} // namespace Ondex
