#include "fuzz/support/TextMutator.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximum);

namespace {

using Pieces = std::vector<std::string>;

enum class Kind { Word, Blank, Symbol };

Kind kindOf(char c) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x80 || std::isalnum(byte) || std::strchr("_-\\.", c))
        return c == '\0' ? Kind::Symbol : Kind::Word;
    return std::isspace(byte) ? Kind::Blank : Kind::Symbol;
}

/// Words with their numbers, runs of blanks, and single symbols.
Pieces split(const char* text, std::size_t size) {
    Pieces pieces;
    for (std::size_t i = 0; i < size; ++i) {
        const Kind kind = kindOf(text[i]);
        if (pieces.empty() || kind == Kind::Symbol || kindOf(pieces.back().front()) != kind)
            pieces.emplace_back();
        pieces.back() += text[i];
    }
    return pieces;
}

class TextMutator {
public:
    TextMutator(Pieces pieces, unsigned seed) : m_pieces(std::move(pieces)), m_engine(seed) {}

    void mutate() {
        for (int i = 1 + roll(4); i > 0; --i)
            mutateOnce();
    }

    std::string text() const {
        std::string joined;
        for (const std::string& piece : m_pieces)
            joined += piece;
        return joined;
    }

private:
    int roll(std::size_t sides) { return int(m_engine() % sides); }
    Pieces::iterator any() { return m_pieces.begin() + roll(m_pieces.size()); }
    const std::string& word() { return Fuzz::vocabulary()[std::size_t(roll(Fuzz::vocabulary().size()))]; }

    void mutateOnce() {
        const int kind = m_pieces.empty() ? 0 : roll(9);
        switch (kind) {
        case 0:
            insert(Fuzz::sampleText(unsigned(m_engine())));
            break;
        case 1:
        case 2:
            insert(word());
            break;
        case 3:
            *any() = word();
            break;
        case 4:
            m_pieces.erase(any());
            break;
        case 5:
            std::swap(*any(), *any());
            break;
        case 6:
            copyRange();
            break;
        case 7:
            eraseRange();
            break;
        default:
            mutateBytes(*any());
        }
    }

    void insert(const std::string& text) { m_pieces.insert(m_pieces.begin() + roll(m_pieces.size() + 1), text); }

    Pieces range() {
        const auto first = any();
        return Pieces(first, first + std::min<std::ptrdiff_t>(1 + roll(12), m_pieces.end() - first));
    }

    void copyRange() {
        const Pieces copied = range();
        m_pieces.insert(any(), copied.begin(), copied.end());
    }

    void eraseRange() {
        const auto first = any();
        m_pieces.erase(first, first + std::min<std::ptrdiff_t>(1 + roll(12), m_pieces.end() - first));
    }

    static void mutateBytes(std::string& piece) {
        const std::size_t size = piece.size();
        piece.resize(size + 8);
        piece.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(piece.data()), size, piece.size()));
    }

    Pieces m_pieces;
    std::mt19937 m_engine;
};

} // namespace

/// Half of the time texts are changed piece by piece, otherwise byte by byte with the dictionary of the run.
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximum,
                                               unsigned seed) {
    if (seed % 2 == 0)
        return LLVMFuzzerMutate(data, size, maximum);
    TextMutator mutator(split(reinterpret_cast<const char*>(data), size), seed);
    mutator.mutate();
    const std::string text = mutator.text();
    const std::size_t length = std::min(text.size(), maximum);
    std::memcpy(data, text.data(), length);
    return length;
}
