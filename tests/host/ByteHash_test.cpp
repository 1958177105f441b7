#include "Gorvel/ByteHash_p.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

using Gorvel::ByteHash;

namespace {

std::vector<QByteArray> manyNames() {
    std::vector<QByteArray> names;
    for (int i = 0; i < 20000; ++i)
        names.push_back(QByteArray(i % 20, 'x') + QByteArray::number(i));
    return names;
}

quint64 upperHalf(const ByteHash& hash, const QByteArray& name) {
    return hash(name.constData(), name.size()) >> 32;
}

} // namespace

TEST(ByteHash, EqualTextsHaveEqualHashes) {
    const ByteHash hash(7);
    EXPECT_EQ(hash(QByteArray("margin-left")), hash(QByteArray("margin-") + "left"));
    EXPECT_EQ(hash(QString("margin-left")), hash(QString("margin-") + "left"));
    EXPECT_EQ(hash(QByteArray()), hash(QByteArray("")));
    EXPECT_EQ(ByteHash()(QByteArray("a")), ByteHash()(QByteArray("a")));
}

TEST(ByteHash, EveryByteAndTheLengthCount) {
    const ByteHash hash(7);
    for (int size = 0; size < 40; ++size) {
        const QByteArray text(size, 'a');
        EXPECT_NE(hash(text), hash(text + 'a'));
        EXPECT_NE(hash(text), hash(text + '\0'));
        for (int at = 0; at < size; ++at) {
            QByteArray other = text;
            other[at] = 'b';
            EXPECT_NE(hash(text), hash(other)) << at << " of " << size;
        }
    }
}

TEST(ByteHash, TextsThatCollideForOneSeedDoNotForAnother) {
    constexpr int sharedBits = 10;
    const ByteHash known(1);
    const ByteHash other(2);
    std::set<quint64> places;
    int count = 0;
    for (const QByteArray& name : manyNames()) {
        if (upperHalf(known, name) >> (32 - sharedBits) != 0)
            continue;
        places.insert(upperHalf(other, name) >> (32 - sharedBits));
        ++count;
    }
    EXPECT_GT(count, 10);
    EXPECT_GT(int(places.size()), count * 9 / 10);
}

TEST(ByteHash, HashesAreSpread) {
    std::set<quint64> hashes;
    const ByteHash hash(3);
    for (const QByteArray& name : manyNames())
        hashes.insert(upperHalf(hash, name));
    EXPECT_GT(hashes.size(), manyNames().size() - 5);
}
