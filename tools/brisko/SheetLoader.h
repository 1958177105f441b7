#pragma once

#include "Brisko/CSSParser.h"
#include "Failure.h"
#include "MessageLog.h"
#include "Options.h"

#include <iosfwd>
#include <memory>

namespace Command {

/// Parses the sheets of a command line into one, in their order.
class SheetLoader {
public:
    static constexpr int LongestInput = 256 << 20;

    /// Throws Failure where the folder that imports are held to is none.
    SheetLoader(const Options& options, MessageLog& log);

    /// Parses a file. The result is that of the parser.
    Brisko::CSSParser::ParseError load(const SheetArgument& argument);
    /// Parses the bytes of a stream up to its end. False where the parser gave up. Throws Failure where there are more
    /// than LongestInput.
    bool load(std::istream& in, int origin);
    /// Parses all the files. Throws Failure at the first that cannot be read.
    void loadAll(const std::vector<SheetArgument>& arguments);

    const std::shared_ptr<Brisko::StyleSheet>& sheet() const { return m_sheet; }
    /// Every file that was read, imported ones included.
    const QStringList& files() const { return m_files; }

private:
    Brisko::CSSParser m_parser;
    MessageLog& m_log;
    std::shared_ptr<Brisko::StyleSheet> m_sheet;
    QStringList m_files;
};

} // namespace Command
