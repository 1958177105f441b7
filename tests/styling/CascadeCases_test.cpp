#include "styling/CascadeCase.h"
#include "styling/CascadeScene.h"
#include "support/TraceGuard.h"

#include <gtest/gtest.h>

#include <set>

namespace Testing {
namespace {

const std::vector<CascadeCase>& allCases() {
    static const std::vector<CascadeCase> cases = CascadeCase::readAll(BRISKO_TEST_DIR "/cases");
    return cases;
}

bool isMessage(const QByteArray& line) {
    return line.startsWith("error: ") || line.startsWith("warning: ");
}

/// Compares one line "QUESTION = ANSWER".
void check(CascadeScene& scene, const QByteArray& line) {
    const int equals = line.indexOf(" = ");
    ASSERT_GE(equals, 0) << "an expectation needs ' = '";
    EXPECT_EQ(scene.answer(line.left(equals).split(' ')).toStdString(), line.mid(equals + 3).toStdString());
}

void checkAll(const CascadeCase& cascadeCase, const std::vector<CascadeCase::Line>& lines, CascadeScene& scene,
              TraceGuard& trace) {
    std::vector<std::string> messages;
    for (const CascadeCase::Line& line : lines) {
        SCOPED_TRACE(cascadeCase.file.toStdString() + ".txt:" + std::to_string(line.number) + ": " +
                     line.text.toStdString());
        if (isMessage(line.text))
            messages.push_back(line.text.toStdString());
        else if (!line.text.isEmpty())
            check(scene, line.text);
    }
    EXPECT_EQ(trace.takeAll(), messages) << "in the block of " << cascadeCase.file.constData()
                                         << ".txt:" << (lines.empty() ? 0 : lines.front().number);
}

class CascadeCases : public testing::TestWithParam<CascadeCase> {};

TEST_P(CascadeCases, HaveTheExpectedValues) {
    const CascadeCase& cascadeCase = GetParam();
    ASSERT_FALSE(cascadeCase.steps.empty()) << "a case without expectations";
    TraceGuard trace;
    CascadeScene scene(cascadeCase);
    scene.style();
    for (const CascadeCase::Step& step : cascadeCase.steps) {
        if (step.isChange)
            ASSERT_TRUE(scene.apply(step.lines.front().text))
                << "no such change: " << step.lines.front().text.constData();
        else
            checkAll(cascadeCase, step.lines, scene, trace);
    }
}

INSTANTIATE_TEST_SUITE_P(Files, CascadeCases, testing::ValuesIn(allCases()),
                         [](const auto& row) { return (row.param.file + "_" + row.param.name).toStdString(); });

TEST(CascadeCaseFiles, AreManyAndHaveDistinctNames) {
    std::set<QByteArray> names;
    for (const CascadeCase& cascadeCase : allCases()) {
        EXPECT_FALSE(cascadeCase.name.startsWith("Malformed")) << cascadeCase;
        EXPECT_TRUE(names.insert(cascadeCase.file + "/" + cascadeCase.name).second) << cascadeCase;
    }
    EXPECT_GE(names.size(), 80u);
}

} // namespace
} // namespace Testing
