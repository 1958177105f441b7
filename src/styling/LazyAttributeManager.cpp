#include "Brisko/LazyAttributeManager.h"

#include "Ondex/AttributeWatch_p.h"
#include "Ondex/Node.h"

#include <map>
#include <vector>

namespace Brisko {

namespace {

struct Offer {
    long id;
    LazyAttributeManager::Factory factory;
};

struct ByteOrder {
    bool operator()(const QByteArray& a, const QByteArray& b) const { return qstrcmp(a, b) < 0; }
};

using Registry = std::multimap<QByteArray, Offer, ByteOrder>;

Registry& registry() {
    static Registry offers;
    return offers;
}

} // namespace

LazyAttributeManager::Registrant::Registrant(const QByteArray& name, Factory factory) : m_name(name) {
    static long lastId = 0;
    m_id = ++lastId;
    registry().insert({name, Offer{m_id, std::move(factory)}});
}

LazyAttributeManager::Registrant::~Registrant() {
    const auto [first, last] = registry().equal_range(m_name);
    for (auto offer = first; offer != last; ++offer) {
        if (offer->second.id == m_id) {
            registry().erase(offer);
            return;
        }
    }
}

Ondex::Attribute* LazyAttributeManager::create(Ondex::Node* node, const QByteArray& name) {
    const auto [first, last] = registry().equal_range(name);
    if (first == last)
        return nullptr;
    // A factory may register and unregister others: it is asked from a copy.
    std::vector<Factory> factories;
    for (auto offer = last; offer != first;)
        factories.push_back((--offer)->second.factory);
    const Ondex::AttributeWatch watch(*node);
    for (std::size_t i = 0; watch.isAlive() && i < factories.size(); ++i) {
        if (Ondex::Attribute* attribute = factories[i](node, name))
            return attribute;
    }
    return nullptr;
}

bool LazyAttributeManager::serves(const QByteArray& name) {
    return registry().find(name) != registry().end();
}

} // namespace Brisko
