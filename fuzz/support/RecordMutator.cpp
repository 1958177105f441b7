#include "fuzz/support/ByteSource.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maximum);

namespace {

constexpr std::size_t recordSize = Fuzz::ByteSource::RecordSize;

/// Changes the order and number of whole records, so that the decisions of the others stay what they are.
class RecordMutator {
public:
    RecordMutator(std::string bytes, unsigned seed) : m_bytes(std::move(bytes)), m_engine(seed) {}

    std::string mutate() {
        const std::size_t from = any();
        const std::size_t count = recordSize * (1 + m_engine() % 3);
        const std::string copied = m_bytes.substr(from, count);
        switch (m_engine() % 4) {
        case 0:
            m_bytes.erase(from, count);
            break;
        case 1:
            m_bytes.insert(any(), copied);
            break;
        case 2:
            m_bytes.erase(from, count);
            m_bytes.insert(any(), copied);
            break;
        default:
            m_bytes.insert(from, randomRecord());
        }
        return m_bytes;
    }

private:
    /// Where a record begins, or the end.
    std::size_t any() { return m_engine() % (m_bytes.size() / recordSize + 1) * recordSize; }

    std::string randomRecord() {
        std::string record(recordSize, '\0');
        for (char& byte : record)
            byte = char(m_engine());
        return record;
    }

    std::string m_bytes;
    std::mt19937 m_engine;
};

/// Changes the bytes of one record and nothing else.
std::size_t mutateWithin(std::uint8_t* data, std::size_t size, unsigned seed) {
    const std::size_t from = seed / 3 % (size / recordSize + 1) * recordSize;
    const std::size_t length = std::min(recordSize, size - from);
    if (length == 0)
        return size;
    std::uint8_t record[recordSize] = {};
    std::memcpy(record, data + from, length);
    LLVMFuzzerMutate(record, length, length);
    std::memcpy(data + from, record, length);
    return size;
}

} // namespace

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maximum,
                                               unsigned seed) {
    if (seed % 3 == 0)
        return LLVMFuzzerMutate(data, size, maximum);
    if (seed % 3 == 1)
        return mutateWithin(data, size, seed);
    const std::string bytes = RecordMutator(std::string(reinterpret_cast<const char*>(data), size), seed).mutate();
    const std::size_t length = std::min(bytes.size(), maximum);
    std::memcpy(data, bytes.data(), length);
    return length;
}
