#pragma once

#include "Gorvel/BinaryData.h"
#include "Ondex/Node.h"

#include <QHash>

namespace Ondex {

/// What is called with the events of a node, by the name of the event.
struct Node::Handlers {
    using Handler = std::function<void(const Gorvel::BinaryData&)>;
    QHash<QByteArray, QList<Handler>> byEvent;
};

} // namespace Ondex
