#include "Ondex/Node.h"

#include "Gorvel/BinaryData.h"
#include "Gorvel/Trace.h"
#include "Ondex/NodeEvents_p.h"

#include <mutex>
#include <utility>

namespace Ondex {

QSharedDataPointer<Node::Events> Node::Events::ofSingle(const QByteArray& event) {
    struct Last {
        std::mutex mutex;
        QSharedDataPointer<Events> events;
    };
    static auto* const last = new Last; // never destroyed: nodes that live as long as the program may outlive all else
    const std::lock_guard<std::mutex> lock(last->mutex);
    if (!last->events || last->events.constData()->out.constFirst() != event) {
        auto* events = new Events;
        events->out.append(event);
        last->events = events;
    }
    return last->events;
}

void Node::eventAddOut(const QByteArray& event) {
    if (!m_events) {
        m_events = Events::ofSingle(event);
    } else if (!m_events.constData()->out.contains(event)) {
        m_events->out.append(event);
    }
}

void Node::eventAddIn(const QByteArray& event, std::function<void(const Gorvel::BinaryData&)> handler) {
    if (!handler)
        return;
    if (!m_events)
        m_events = new Events;
    m_events->handlers[event].append(std::move(handler));
}

void Node::eventSend(const QByteArray& event, Gorvel::BinaryData& data) {
    if (!m_events || !m_events.constData()->out.contains(event)) {
        Gorvel::Trace::warning("Node::eventSend # %s # Event %s was not declared", name().constData(),
                               event.constData());
        return;
    }
    eventProcess(event, data);
}

void Node::eventProcess(const QByteArray& event, Gorvel::BinaryData& data) {
    if (!m_events)
        return;
    // A handler may add more, or delete this node.
    const QList<Events::Handler> handlers = m_events.constData()->handlers.value(event);
    for (const Events::Handler& handler : handlers)
        handler(Gorvel::BinaryData(data.data()));
}

} // namespace Ondex
