#pragma once

#include "LintRules.h"

#include <utility>

namespace Command {

/// The findings of one file.
class FindingList {
public:
    explicit FindingList(QByteArray file) : m_file(std::move(file)) {}

    void add(const char* rule, int line, const QByteArray& text) {
        m_findings.push_back({&lintRule(rule), m_file, line, text});
    }
    std::vector<Finding> take() { return std::move(m_findings); }

private:
    QByteArray m_file;
    std::vector<Finding> m_findings;
};

} // namespace Command
