#pragma once

#include "Gorvel/HostExport.h"

namespace Ondex {

class Archive;
class ArchiveElement;
/// The element of an XML document, read in full. Archives and documents share one element class.
using DOMElement = ArchiveElement;

/// Something that writes itself to an archive and reads itself back.
class BRISKO_HOST_EXPORT Serializable {
public:
    Serializable() = default;
    virtual ~Serializable();
    Serializable(const Serializable&) = delete;
    Serializable& operator=(const Serializable&) = delete;

    /// Writes this object into @p archive as one element.
    virtual void serialize(Archive& archive) const;
    /// Reads the state from an element that serialize() wrote. False on a malformed element.
    virtual bool deserialize(const ArchiveElement& element);
    /// Reads the state from an element of a hand-written document. By default the same as deserialize().
    virtual bool deserializeXML(const DOMElement& element);

    /// Whether the owner writes this object into archives; true unless switched off.
    bool isSerializable() const { return m_serializable; }
    void setSerializable(bool serializable) { m_serializable = serializable; }

private:
    bool m_serializable = true;
};

} // namespace Ondex
