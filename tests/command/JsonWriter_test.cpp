#include "brisko/JsonWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <sstream>

namespace {

using Command::JsonWriter;
using Command::shortestNumber;

struct NumberCase {
    float number;
    const char* text;
};

TEST(ShortestNumber, IsTheShortestThatReadsBack) {
    const float infinity = std::numeric_limits<float>::infinity();
    const NumberCase cases[] = {{0.f, "0"},
                                {-0.f, "-0"},
                                {1.f, "1"},
                                {-5.f, "-5"},
                                {0.1f, "0.1"},
                                {40.053f, "40.053"},
                                {100000.f, "100000"},
                                {16777216.f, "16777216"},
                                {123456790528.f, "123456790000"},
                                {1e20f, "100000000000000000000"},
                                {1e21f, "1e21"},
                                {1.5e-6f, "0.0000015"},
                                {1.5e-7f, "1.5e-7"},
                                {1e-45f, "1e-45"},
                                {3.4028235e38f, "3.4028235e38"},
                                {infinity, "inf"},
                                {-infinity, "-inf"},
                                {std::nanf(""), "nan"}};
    for (const NumberCase& test : cases)
        EXPECT_EQ(shortestNumber(test.number), test.text);
}

TEST(ShortestNumber, ReadsBackExactly) {
    std::mt19937 random(20240229);
    for (int i = 0; i < 20000; ++i) {
        const auto bits = static_cast<std::uint32_t>(random());
        float number;
        std::memcpy(&number, &bits, sizeof number);
        if (std::isfinite(number)) {
            EXPECT_EQ(std::strtof(shortestNumber(number).constData(), nullptr), number) << bits;
        }
    }
}

std::string textOf(const QString& text) {
    std::ostringstream out;
    JsonWriter(out).value(text);
    return out.str();
}

TEST(JsonWriter, TextsAreEscapedAndValid) {
    EXPECT_EQ(textOf("a\"b\\c/\n\t"), "\"a\\\"b\\\\c/\\n\\u0009\"");
    EXPECT_EQ(textOf(QString(QChar(0))), "\"\\u0000\"");
    EXPECT_EQ(textOf(QString::fromUtf8("\xf0\x9f\x8e\xb5\xc3\xa9")), "\"\xf0\x9f\x8e\xb5\xc3\xa9\"");
    EXPECT_EQ(textOf(QString(QChar(0xd800)) + "a" + QChar(0xdc00)), "\"\xef\xbf\xbd"
                                                                    "a\xef\xbf\xbd\"");
}

TEST(JsonWriter, WhatATerminalMayObeyIsEscaped) {
    EXPECT_EQ(textOf(QString::fromUtf8("\x1b[1m \x7f \xc2\x9b \xe2\x80\xae \xe2\x81\xa6")),
              R"("\u001b[1m \u007f \u009b \u202e \u2066")");
}

TEST(JsonWriter, BytesBehindANulAreWritten) {
    std::ostringstream out;
    JsonWriter json(out);
    json.value(QByteArray("a\0b", 3));
    EXPECT_EQ(out.str(), R"("a\u0000b")");
}

TEST(JsonWriter, CompactFormHasNoBlanks) {
    std::ostringstream out;
    JsonWriter json(out, JsonWriter::Spacing::Compact);
    json.beginObject();
    json.key("a");
    json.beginArray();
    json.value(1);
    json.value("b, c: d");
    json.endArray();
    json.key("e");
    json.null();
    json.endObject();
    EXPECT_EQ(out.str(), R"({"a":[1,"b, c: d"],"e":null})");
}

TEST(JsonWriter, ItemsAreSeparated) {
    std::ostringstream out;
    JsonWriter json(out);
    json.beginObject();
    json.key("a");
    json.beginArray();
    json.value(1);
    json.null();
    json.value(true);
    json.beginObject();
    json.endObject();
    json.endArray();
    json.key(QByteArray("b"));
    json.value(std::numeric_limits<float>::infinity());
    json.endObject();
    EXPECT_EQ(out.str(), R"({"a": [1, null, true, {}], "b": "inf"})");
}

} // namespace
