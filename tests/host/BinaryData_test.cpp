#include "Gorvel/BinaryData.h"

#include <gtest/gtest.h>

#include <limits>

using Gorvel::BinaryData;

TEST(BinaryData, ReadsWhatWasWritten) {
    const QString text = QString::fromUtf8("caf\xc3\xa9 \xf0\x9f\x98\x80");
    const QByteArray bytes("a\0b", 3);
    BinaryData data;
    data << bytes << text << qint32(-7) << 1.5f;

    QByteArray readBytes;
    QString readText;
    qint32 readInteger = 0;
    float readFloat = 0.f;
    data >> readBytes >> readText >> readInteger >> readFloat;
    EXPECT_EQ(readBytes, bytes);
    EXPECT_EQ(readText, text);
    EXPECT_EQ(readInteger, -7);
    EXPECT_EQ(readFloat, 1.5f);
    EXPECT_TRUE(data.atEnd());
}

TEST(BinaryData, IsBigEndianWithFloatsIn32Bits) {
    BinaryData data;
    data << qint32(0x01020304) << 1.f << QByteArray("x");
    EXPECT_EQ(data.data().toHex(), "01020304"
                                   "3f800000"
                                   "00000001"
                                   "78");
}

TEST(BinaryData, KeepsTheBytesWhileReading) {
    BinaryData data;
    data << qint32(1) << qint32(2);
    qint32 value = 0;
    data >> value;
    EXPECT_EQ(data.data().size(), 8);
    data >> value;
    EXPECT_EQ(value, 2);
    data.rewind();
    data >> value;
    EXPECT_EQ(value, 1);
}

TEST(BinaryData, CopiesReadOnTheirOwn) {
    BinaryData data;
    data << qint32(1) << qint32(2);
    qint32 value = 0;
    data >> value;
    BinaryData copy = data;
    copy >> value;
    EXPECT_EQ(value, 2);
    EXPECT_TRUE(copy.atEnd());
    EXPECT_FALSE(data.atEnd());
    copy << qint32(3);
    EXPECT_EQ(data.data().size(), 8);
}

TEST(BinaryData, WritingAfterReadingGoesToTheEnd) {
    BinaryData data;
    data << qint32(1);
    qint32 value = 0;
    data >> value;
    data << qint32(2);
    data >> value;
    EXPECT_EQ(value, 2);
}

TEST(BinaryData, ReadingPastTheEndIsNeutral) {
    BinaryData data(QByteArray("\0\0\0\x7f", 4)); // the length of a text that is not there
    QByteArray bytes("unchanged");
    data >> bytes;
    EXPECT_EQ(bytes, QByteArray());
    EXPECT_TRUE(data.atEnd());

    qint32 integer = 5;
    float number = 5.f;
    QString text("unchanged");
    data >> integer >> number >> text;
    EXPECT_EQ(integer, 0);
    EXPECT_EQ(number, 0.f);
    EXPECT_EQ(text, QString());
}

TEST(BinaryData, EmptyAndExtremeValues) {
    BinaryData data;
    data << QByteArray() << QString("") << std::numeric_limits<qint32>::min() << std::numeric_limits<float>::infinity();
    QByteArray bytes("x");
    QString text("x");
    qint32 integer = 0;
    float number = 0.f;
    data >> bytes >> text >> integer >> number;
    EXPECT_TRUE(bytes.isEmpty());
    EXPECT_TRUE(text.isEmpty());
    EXPECT_EQ(integer, std::numeric_limits<qint32>::min());
    EXPECT_EQ(number, std::numeric_limits<float>::infinity());
}
