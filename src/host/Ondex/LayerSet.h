#pragma once

#include <QtGlobal>

namespace Ondex {

/// Which layers above the default one hold a value, in one byte.
///
///     layers.insert(Attribute::StyleLayer);
///     layers.highest(); // 1
class LayerSet {
public:
    static constexpr int HighestLayer = 4;

    bool isEmpty() const { return m_bits == 0; }
    bool contains(int layer) const { return layer > 0 && layer <= HighestLayer && (m_bits & bit(layer)); }
    int size() const { return count(m_bits); }
    /// The highest layer of the set; 0, the default layer, where it is empty.
    int highest() const { return highestOf(m_bits); }
    /// The highest one below @p layer; 0 where there is none.
    int highestBelow(int layer) const { return highestOf(m_bits & (bit(layer) - 1u)); }
    /// How many are higher than @p layer.
    int countAbove(int layer) const { return count(m_bits >> layer); }

    // Of layers from 1 to HighestLayer.
    void insert(int layer) { m_bits = static_cast<quint8>(m_bits | bit(layer)); }
    void remove(int layer) { m_bits = static_cast<quint8>(m_bits & ~bit(layer)); }
    void clear() { m_bits = 0; }

private:
    static constexpr unsigned bit(int layer) { return 1u << (layer - 1); }
    static int count(unsigned bits) {
        static constexpr quint8 counts[1 << HighestLayer] = {0, 1, 1, 2, 1, 2, 2, 3, 1, 2, 2, 3, 2, 3, 3, 4};
        return counts[bits];
    }
    static int highestOf(unsigned bits) {
        static constexpr quint8 layers[1 << HighestLayer] = {0, 1, 2, 2, 3, 3, 3, 3, 4, 4, 4, 4, 4, 4, 4, 4};
        return layers[bits];
    }

    quint8 m_bits = 0; // the lowest one stands for layer 1
};

} // namespace Ondex
