#include "SheetLoader.h"

#include <QFile>
#include <QFileInfo>

#include <istream>
#include <iterator>

namespace Command {

using Brisko::CSSParser;
using Brisko::SimpleSelector;

namespace {

const char* reasonFor(const QFileInfo& file) {
    if (!file.exists())
        return "no such file";
    if (file.isDir())
        return "is a directory";
    if (!file.isFile())
        return "not a regular file";
    return file.isReadable() ? "cannot be opened" : "permission denied";
}

} // namespace

Failure unreadable(const QByteArray& path) {
    return Failure::because("cannot read '" + path + "': " + reasonFor(QFileInfo(QFile::decodeName(path))));
}

SheetLoader::SheetLoader(const Options& options, MessageLog& log)
    : m_log(log), m_sheet(std::make_shared<Brisko::StyleSheet>()) {
    m_parser.setMedia(QString::fromUtf8(options.media));
    m_parser.setDpi(options.dpi.value_or(0.f));
}

CSSParser::ParseError SheetLoader::load(const SheetArgument& argument) {
    m_log.setSubject(argument.path);
    return m_parser.parseSheet(*m_sheet, QFile::decodeName(argument.path), &m_files,
                               SimpleSelector::Origin(argument.origin));
}

bool SheetLoader::load(std::istream& in, int origin) {
    m_log.setSubject("<stdin>");
    const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    return m_parser.parseString(*m_sheet, QByteArray::fromStdString(bytes), &m_files, SimpleSelector::Origin(origin));
}

void SheetLoader::loadAll(const std::vector<SheetArgument>& arguments) {
    for (const SheetArgument& argument : arguments) {
        if (load(argument) == CSSParser::OpenError)
            throw unreadable(argument.path);
    }
}

} // namespace Command
