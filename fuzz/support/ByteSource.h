#pragma once

#include "support/Dice.h"

#include <QByteArray>

#include <cstdint>

namespace Fuzz {

/// Turns the bytes of an input into decisions, one after another.
///
///     ByteSource source(bytes);
///     ByteSource sheet = source.part(16); // the decisions about the sheet stay what they are,
///     ByteSource tree = source.part(8);   // however many of them there are and whatever comes behind
///     if (tree.chance(30))
///         ...
///
/// Where the bytes end, decisions go on as random numbers that depend on all the bytes, so that short inputs make full
/// cases as well.
class ByteSource {
public:
    /// What part() counts in, and what RecordMutator moves about.
    static constexpr int RecordSize = 16;

    explicit ByteSource(const QByteArray& bytes);

    /// A source of its own for the next records; of fewer, where the bytes end.
    ByteSource part(int records);
    bool isAtEnd() const { return m_place >= m_bytes.size(); }

    /// 0 to @p sides - 1, from one byte, or from two where there are more than 256 sides.
    int roll(int sides);
    bool chance(int percent) { return roll(100) < percent; }

    /// Lets the helpers of the tests decide by this source, which has to outlive the dice.
    Testing::Dice dice() {
        return Testing::Dice([this](int sides) { return roll(sides); });
    }

private:
    unsigned nextByte();

    QByteArray m_bytes;
    int m_place = 0;
    std::uint64_t m_state; // of the random numbers behind the end
};

} // namespace Fuzz
