#include "fuzz/support/Target.h"

#include "Gorvel/Trace.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

/// Notes that an expectation failed; googletest prints which. Outside of a test nothing else asks.
class Failures : public testing::EmptyTestEventListener {
public:
    void OnTestPartResult(const testing::TestPartResult& result) override { m_any = m_any || result.failed(); }
    bool any() const { return m_any; }

private:
    bool m_any = false;
};

Failures& failures() {
    static auto* const listener = [] {
        auto* made = new Failures; // googletest owns it
        testing::UnitTest::GetInstance()->listeners().Append(made);
        return made;
    }();
    return *listener;
}

/// Sheets that import find nothing but what stands here: two files that import each other.
void enterImportFolder() {
    static const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    for (const char* name : {"a.css", "b.css"}) {
        QFile file(name);
        file.open(QIODevice::WriteOnly);
        file.write("a { width: 1 } @import \"a.css\"; @import 'b.css' print; b { width: 2 }");
    }
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    Gorvel::Trace::setSink([](Gorvel::Trace::Level, const QByteArray&) {});
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    failures();
    enterImportFolder();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Fuzz::checkInput(QByteArray(reinterpret_cast<const char*>(data), int(size)));
    if (failures().any()) {
        std::fflush(stdout);
        std::abort();
    }
    return 0;
}
