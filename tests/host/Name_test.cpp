#include "Gorvel/Name.h"

#include <gtest/gtest.h>

#include <QList>

#include <thread>
#include <vector>

using Gorvel::interned;
using Gorvel::internedCount;

namespace {

QByteArray numbered(int i) {
    return "a name of the test, number " + QByteArray::number(i);
}

} // namespace

TEST(Name, SharesTheBlockOfEqualNames) {
    const QByteArray name = interned("width");
    EXPECT_EQ(name, "width");
    EXPECT_EQ(interned(QByteArray("wid") + "th").constData(), name.constData());
    EXPECT_EQ(interned(QByteArrayLiteral("width")).constData(), name.constData());
    EXPECT_EQ(interned(name).constData(), name.constData());
    EXPECT_NE(interned("height").constData(), name.constData());
}

TEST(Name, TellsNamesWithANulByteApart) {
    EXPECT_EQ(interned(QByteArray("a\0b", 3)), QByteArray("a\0b", 3));
    EXPECT_NE(interned(QByteArray("a\0b", 3)), interned("a"));
    EXPECT_NE(interned(QByteArray("a\0b", 3)), interned(QByteArray("a\0c", 3)));
}

TEST(Name, HasOneEmptyName) {
    EXPECT_TRUE(interned(QByteArray()).isEmpty());
    EXPECT_EQ(interned(QByteArray("")).constData(), interned(QByteArray()).constData());
}

TEST(Name, OwnsItsBytes) {
    char bytes[] = "raw bytes of the caller";
    const QByteArray name = interned(QByteArray::fromRawData(bytes, sizeof bytes - 1));
    bytes[0] = 'R';
    EXPECT_EQ(name, "raw bytes of the caller");
    EXPECT_EQ(interned("raw bytes of the caller").constData(), name.constData());
}

TEST(Name, ChangesOfACopyLeaveTheNameAlone) {
    QByteArray copy = interned("background");
    copy.append("-color");
    EXPECT_EQ(interned("background"), "background");
    EXPECT_EQ(copy, "background-color");
}

TEST(Name, ForgetsNamesThatNobodyHolds) {
    constexpr int many = 100000;
    for (int i = 0; i < many; ++i)
        interned(numbered(i));
    EXPECT_LT(internedCount(), many / 10);
}

TEST(Name, KeepsNamesThatSomebodyHolds) {
    constexpr int many = 5000;
    std::vector<QByteArray> held;
    std::vector<const char*> places;
    for (int i = 0; i < many; ++i) {
        held.push_back(interned(numbered(i)));
        places.push_back(held.back().constData());
    }
    for (int i = many; i < 20 * many; ++i)
        interned(numbered(i));
    EXPECT_GE(internedCount(), many);
    for (int i = 0; i < many; ++i)
        ASSERT_EQ(interned(numbered(i)).constData(), places[size_t(i)]) << i;
}

TEST(Name, IsTheSameOnAllThreads) {
    constexpr int threadCount = 4;
    constexpr int nameCount = 3000;
    std::vector<std::vector<QByteArray>> names(threadCount);
    std::vector<std::thread> threads;
    for (auto& own : names) {
        threads.emplace_back([&own] {
            for (int i = 0; i < nameCount; ++i) {
                own.push_back(interned(numbered(i)));
                interned("of " + QByteArray::number(quintptr(&own)) + ": " + numbered(i)); // let go at once
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (int i = 0; i < nameCount; ++i) {
        for (const auto& own : names) {
            ASSERT_EQ(own[size_t(i)], numbered(i));
            ASSERT_EQ(own[size_t(i)].constData(), names.front()[size_t(i)].constData());
        }
    }
}

TEST(Name, CanBeAskedForWhileAThreadEnds) {
    struct AsksAtTheEnd {
        ~AsksAtTheEnd() { *answer = interned("asked for at the end"); }
        QByteArray* answer;
    };
    QByteArray answer;
    std::thread([&answer] {
        static thread_local AsksAtTheEnd last{&answer}; // made before the names of the thread, so it goes after them
        interned("asked for before");
        EXPECT_EQ(last.answer, &answer);
    }).join();
    EXPECT_EQ(answer, "asked for at the end");
    EXPECT_EQ(interned("asked for at the end").constData(), answer.constData());
}

TEST(Name, IsMadeOfANameAndASuffix) {
    const QByteArray name = interned("border-top", "-width");
    EXPECT_EQ(name, "border-top-width");
    EXPECT_EQ(name.constData(), interned("border-top-width").constData());
    EXPECT_EQ(interned("border-top", "-width").constData(), name.constData());
    EXPECT_EQ(interned("", ""), "");
    EXPECT_EQ(interned("border", ""), "border");
    EXPECT_EQ(interned("", "border").constData(), interned("border").constData());
    const QByteArray longName(200, 'n');
    EXPECT_EQ(interned(longName, "-width"), longName + "-width");
}

TEST(Name, AddressIsThatOfTheName) {
    EXPECT_EQ(Gorvel::internedAddress("no name of anything"), nullptr);
    const QByteArray name = interned("the name of something");
    EXPECT_EQ(Gorvel::internedAddress("the name of something"), name.constData());
    EXPECT_EQ(Gorvel::internedAddress(name), name.constData());
    EXPECT_EQ(Gorvel::internedAddress(QByteArray("")), interned(QByteArray()).constData());
}

TEST(Name, PartOfAnotherNameIsNotThatName) {
    const QByteArray whole = interned("a name and more of it");
    const QByteArray part = QByteArray::fromRawData(whole.constData(), 6);
    EXPECT_EQ(Gorvel::internedAddress(part), nullptr);
    EXPECT_EQ(interned(part), "a name");
    EXPECT_NE(interned(part).constData(), whole.constData());
}
