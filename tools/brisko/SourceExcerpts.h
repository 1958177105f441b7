#pragma once

#include "JsonWriter.h"

#include <QStringList>

#include <map>
#include <set>

namespace Command {

/// The lines of files that something was said about, each with some lines above and below it.
class SourceExcerpts {
public:
    static constexpr int Context = 8;       ///< lines above and below
    static constexpr int LongestLine = 400; ///< characters; what follows them is left out

    /// @param files  those that may be read; lines of others are passed over
    explicit SourceExcerpts(const QStringList& files);

    /// @param line  from 1
    void add(const QString& file, int line);

    /// Reads the files and writes [{"file": "a.css", "parts": [[FIRST_LINE, "text", "text", ...], ...]}, ...]. Files
    /// that cannot be read any more are left out.
    void write(JsonWriter& json) const;

private:
    std::map<QString, std::set<int>> m_lines; // by file
};

} // namespace Command
