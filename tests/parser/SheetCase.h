#pragma once

#include "Brisko/CSSParser.h"
#include "support/SheetDump.h"
#include "support/TraceGuard.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace Testing {

/// A text, what the parser makes of it, and the errors it sends on the way.
struct ParseCase {
    const char* name;
    QByteArray text;
    std::string result;
    std::vector<std::string> errors;
};

inline void PrintTo(const ParseCase& row, std::ostream* out) {
    *out << row.name;
}

inline std::string nameOfRow(const testing::TestParamInfo<ParseCase>& info) {
    return info.param.name;
}

/// The rules that come out of a row's text, and the errors.
inline void checkSheet(const ParseCase& row, std::string (*dump)(const Brisko::StyleSheet&)) {
    TraceGuard trace;
    Brisko::StyleSheet sheet;
    Brisko::CSSParser parser;
    parser.parseString(sheet, row.text, nullptr, Brisko::SimpleSelector::Origin(1));
    EXPECT_EQ(dump(sheet), row.result) << row.text.constData();
    EXPECT_EQ(trace.takeErrors(), row.errors) << row.text.constData();
}

} // namespace Testing
