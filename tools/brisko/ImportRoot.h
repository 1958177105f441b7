#pragma once

#include <QString>

namespace Command {

/// The folder that the imports of sheets must lie in: the filter of CSSParser::setImportFilter().
///
/// What counts is where a path leads after symbolic links and ".." are followed. It is asked before the file is opened:
/// whoever can change the folders of that path in between is not held up.
class ImportRoot {
public:
    /// @param folder  as on the command line. Throws Failure where it is no folder
    explicit ImportRoot(const QByteArray& folder);

    /// Whether a file lies in the folder or below; one that is missing, whether it would.
    bool operator()(const QString& path) const;

private:
    QString m_folder; // resolved, with a slash at its end
};

} // namespace Command
