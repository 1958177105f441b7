#include "Ondex/Serializable.h"

namespace Ondex {

Serializable::~Serializable() = default;

void Serializable::serialize(Archive&) const {}

bool Serializable::deserialize(const ArchiveElement&) {
    return false;
}

bool Serializable::deserializeXML(const DOMElement& element) {
    return deserialize(element);
}

} // namespace Ondex
