#pragma once

#include "Brisko/Export.h"

#include <QByteArray>

#include <functional>

namespace Ondex {
class Attribute;
class Node;
} // namespace Ondex

namespace Brisko {

/// The registry of attributes that a node gets only when a style sheet or a document names them.
///
///     LazyAttributeManager::Registrant opacity("opacity", [](Ondex::Node* node, const QByteArray& name) {
///         return new Ondex::AttributeT<float>(node, name, 1.f);
///     });
///
/// One registry serves the process. It takes no lock: register before styling starts on other threads.
class BRISKO_EXPORT LazyAttributeManager {
public:
    /// Makes the attribute of that name on the node, as its host; null to decline. It may register and unregister
    /// others and delete the node, and answers null where it did that.
    using Factory = std::function<Ondex::Attribute*(Ondex::Node* node, const QByteArray& name)>;

    /// Offers a factory for one name for as long as it lives; what that made stays with its nodes. Copies refer to the
    /// same offer, which ends with the first of them.
    class BRISKO_EXPORT Registrant {
    public:
        /// Offers @p factory, which must not be empty: asking an empty one fails as std::function does, with
        /// std::bad_function_call.
        Registrant(const QByteArray& name, Factory factory);
        Registrant(const Registrant&) = default;
        Registrant& operator=(const Registrant&) = default;
        ~Registrant();

    private:
        QByteArray m_name;
        long m_id;
    };

    /// Asks the factories of that name, the latest first, until one makes the attribute.
    /// @return the attribute, owned by @p node; null where nobody makes it
    static Ondex::Attribute* create(Ondex::Node* node, const QByteArray& name);
    /// Whether any factory is registered under that name.
    static bool serves(const QByteArray& name);
};

} // namespace Brisko
