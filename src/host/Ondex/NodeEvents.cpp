#include "Ondex/Node.h"

#include "Gorvel/BinaryData.h"
#include "Gorvel/Trace.h"
#include "Ondex/NodeHandlers_p.h"

#include <utility>

namespace Ondex {

void Node::eventAddOut(const QByteArray& event) {
    if (!m_eventsOut.contains(event))
        m_eventsOut.append(event);
}

void Node::eventAddIn(const QByteArray& event, std::function<void(const Gorvel::BinaryData&)> handler) {
    if (!handler)
        return;
    if (!m_handlers)
        m_handlers = std::make_unique<Handlers>();
    m_handlers->byEvent[event].append(std::move(handler));
}

void Node::eventSend(const QByteArray& event, Gorvel::BinaryData& data) {
    if (!m_eventsOut.contains(event)) {
        Gorvel::Trace::warning("Node::eventSend # %s # Event %s was not declared", name().constData(),
                               event.constData());
        return;
    }
    eventProcess(event, data);
}

void Node::eventProcess(const QByteArray& event, Gorvel::BinaryData& data) {
    if (!m_handlers)
        return;
    const QList<Handlers::Handler> handlers = m_handlers->byEvent.value(event); // a handler may add more, or delete us
    for (const Handlers::Handler& handler : handlers)
        handler(Gorvel::BinaryData(data.data()));
}

} // namespace Ondex
