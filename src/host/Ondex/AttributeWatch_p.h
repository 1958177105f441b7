#pragma once

#include "Gorvel/HostExport.h"

namespace Ondex {

class Attribute;

/// Tells a call that goes on whether one of the listeners it reached has deleted the attribute.
///
///     const AttributeWatch watch(*this);
///     m_width.set(value, layer);
///     if (!watch.isAlive())
///         return;
///
/// Lives on the thread that owns the attribute.
class BRISKO_HOST_EXPORT AttributeWatch {
public:
    explicit AttributeWatch(Attribute& attribute);
    ~AttributeWatch();
    AttributeWatch(const AttributeWatch&) = delete;
    AttributeWatch& operator=(const AttributeWatch&) = delete;

    bool isAlive() const { return m_attribute; }

private:
    friend class Attribute;
    /// Tells all watches of @p attribute that it goes.
    static void noteDeletion(const Attribute& attribute);

    static thread_local AttributeWatch* s_first; // those of a thread form a list

    Attribute* m_attribute; // null once it is deleted
    AttributeWatch* m_previous = nullptr;
    AttributeWatch* m_next;
};

} // namespace Ondex
