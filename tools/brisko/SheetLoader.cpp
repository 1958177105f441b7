#include "SheetLoader.h"

#include "ImportRoot.h"
#include "SourceFile.h"

#include <QFile>

#include <array>
#include <istream>

namespace Command {

using Brisko::CSSParser;
using Brisko::SimpleSelector;

namespace {

/// What a stream holds up to its end. One that does not end is refused.
QByteArray readAll(std::istream& in) {
    QByteArray bytes;
    std::array<char, 1 << 16> block;
    while (in.read(block.data(), block.size()) || in.gcount() > 0) {
        bytes.append(block.data(), int(in.gcount()));
        if (bytes.size() > SheetLoader::LongestInput)
            throw Failure::because("cannot read the standard input: longer than 256 MiB");
    }
    return bytes;
}

} // namespace

SheetLoader::SheetLoader(const Options& options, MessageLog& log)
    : m_log(log), m_sheet(std::make_shared<Brisko::StyleSheet>()) {
    m_parser.setMedia(QString::fromUtf8(options.media));
    m_parser.setDpi(options.dpi.value_or(0.f));
    CSSParser::ImportFilter isInside;
    if (options.importRoot)
        isInside = ImportRoot(*options.importRoot);
    m_parser.setImportFilter([isInside, &log](const QString& path) {
        const bool isAllowed = !isInside || isInside(path);
        if (isAllowed)
            log.noteInput(path);
        return isAllowed;
    });
}

CSSParser::ParseError SheetLoader::load(const SheetArgument& argument) {
    m_log.setSubject(argument.path);
    m_log.noteInput(QFile::decodeName(argument.path));
    return m_parser.parseSheet(*m_sheet, QFile::decodeName(argument.path), &m_files,
                               SimpleSelector::Origin(argument.origin));
}

bool SheetLoader::load(std::istream& in, int origin) {
    m_log.setSubject("<stdin>");
    return m_parser.parseString(*m_sheet, readAll(in), &m_files, SimpleSelector::Origin(origin));
}

void SheetLoader::loadAll(const std::vector<SheetArgument>& arguments) {
    for (const SheetArgument& argument : arguments) {
        if (load(argument) == CSSParser::OpenError)
            throw unreadable(argument.path);
    }
}

} // namespace Command
