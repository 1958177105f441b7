#include "parser/ParsedNames.h"

#include "Gorvel/Name.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace Testing {

using namespace Brisko;

namespace {

TokenText text(const QByteArray& bytes, TokenText::Encoding encoding = TokenText::Latin1) {
    return TokenText::make(bytes.constData(), bytes.constData() + bytes.size(), encoding);
}

} // namespace

TEST(ParsedNames, EqualNamesShareTheirBytes) {
    ParsedNames names;
    const QByteArray first = names.name(text("margin-left"));
    const QByteArray second = names.name(text(QByteArray("margin-") + "left"));
    EXPECT_EQ(first, "margin-left");
    EXPECT_EQ(first.constData(), second.constData());
    EXPECT_NE(first.constData(), names.name(text("margin-lefT")).constData());
}

TEST(ParsedNames, NamesAreInUtf8) {
    ParsedNames names;
    EXPECT_EQ(names.name(text("caf\xe9")), "caf\xc3\xa9");
    EXPECT_EQ(names.name(text("caf\xc3\xa9", TokenText::Utf8)), "caf\xc3\xa9");
    EXPECT_EQ(names.name(text("a-long-name-\xe9")), "a-long-name-\xc3\xa9");
    EXPECT_EQ(names.name(text("\xe9-long-name")), "\xc3\xa9-long-name");
    EXPECT_EQ(names.name(text("")), "");
}

TEST(ParsedNames, LowerNamesAreThoseOfQt) {
    ParsedNames names;
    EXPECT_EQ(names.lowerName(text("Primary")), "primary");
    EXPECT_EQ(names.lowerName(text("Primary")).constData(), names.name(text("primary")).constData());
    EXPECT_EQ(names.lowerName(text("\xc9t\xc9")), QByteArray("\xc3\x89t\xc3\x89").toLower());
}

TEST(ParsedNames, KeepsManyNamesApart) {
    ParsedNames names;
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 5000; ++i) {
            const QByteArray name = QByteArray(i % 20, 'x') + QByteArray::number(i);
            ASSERT_EQ(names.name(text(name)), name);
        }
    }
}

TEST(ParsedNames, NamesThatDifferInAFewBytesAreFoundAtOnce) {
    constexpr std::size_t few = 64;
    constexpr int differing = 2;
    for (int size = differing; size <= 20; ++size) {
        for (int at = 0; at <= size - differing; ++at) {
            ParsedNames names;
            for (int i = 0; i < 64 * 64; ++i) {
                QByteArray name(size, 'a');
                name[at] = char('0' + i / 64);
                name[at + 1] = char('0' + i % 64);
                names.name(text(name));
            }
            EXPECT_LT(names.longestSearch(), few) << "bytes " << at << " of " << size;
        }
    }
}

TEST(ParsedNames, NamesThatShareAPlaceForOneSeedAreFoundAtOnceForOthers) {
    constexpr quint64 knownSeed = 1;
    constexpr std::size_t many = 200;
    const Gorvel::ByteHash known(knownSeed);
    std::vector<QByteArray> chosen;
    for (int i = 0; chosen.size() < many; ++i) {
        QByteArray name = "class-name-" + QByteArray::number(i, 36);
        if (known(name.constData(), name.size()) >> 54 == 0)
            chosen.push_back(std::move(name));
    }
    const auto longestSearch = [&chosen](quint64 seed) {
        ParsedNames names{Gorvel::ByteHash(seed)};
        for (const QByteArray& name : chosen)
            names.name(text(name));
        return names.longestSearch();
    };
    EXPECT_GE(longestSearch(knownSeed), many - 1);
    for (quint64 seed = knownSeed + 1; seed < knownSeed + 10; ++seed)
        EXPECT_LT(longestSearch(seed), many / 4) << seed;
}

TEST(ParsedNames, InternedNamesAreThoseOfTheProcess) {
    ParsedNames names;
    const QByteArray before = names.name(text("min-width"));
    const QByteArray interned = names.internedName(text("min-width"));
    EXPECT_EQ(before, interned);
    EXPECT_EQ(interned.constData(), Gorvel::interned("min-width").constData());
    EXPECT_EQ(names.name(text("min-width")).constData(), interned.constData());
}

TEST(ParsedNames, NamesOutliveTheTable) {
    QByteArray name;
    {
        ParsedNames names;
        name = names.name(text("width"));
        names.clear();
        EXPECT_EQ(names.name(text("width")), "width");
    }
    EXPECT_EQ(name, "width");
}

} // namespace Testing
