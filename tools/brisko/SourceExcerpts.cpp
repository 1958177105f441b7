#include "SourceExcerpts.h"

#include "Failure.h"
#include "SourceFile.h"

#include <QFile>

namespace Command {

namespace {

/// Whether a line lies so near to one that was asked for that it is shown.
bool isShown(const std::set<int>& lines, int line) {
    const auto next = lines.lower_bound(line - SourceExcerpts::Context);
    return next != lines.end() && *next <= line + SourceExcerpts::Context;
}

QString shortened(const QByteArray& line) {
    // A character takes four bytes at most.
    const QString text = QString::fromUtf8(line.left(4 * (SourceExcerpts::LongestLine + 1)));
    return text.size() > SourceExcerpts::LongestLine ? text.left(SourceExcerpts::LongestLine) + QChar(0x2026) : text;
}

void writeParts(JsonWriter& json, const QByteArray& text, const std::set<int>& lines) {
    bool isOpen = false;
    json.beginArray();
    int line = 1;
    for (int begin = 0; begin < text.size() && line <= *lines.rbegin() + SourceExcerpts::Context; ++line) {
        const int newline = text.indexOf('\n', begin);
        const int end = newline < 0 ? text.size() : newline;
        const bool shown = isShown(lines, line);
        if (isOpen && !shown)
            json.endArray();
        if (shown && !isOpen) {
            json.beginArray();
            json.value(line);
        }
        isOpen = shown;
        if (shown) {
            const bool hasReturn = end > begin && text[end - 1] == '\r';
            json.value(shortened(text.mid(begin, end - begin - int(hasReturn))));
        }
        begin = end + 1;
    }
    if (isOpen)
        json.endArray();
    json.endArray();
}

} // namespace

SourceExcerpts::SourceExcerpts(const QStringList& files) {
    for (const QString& file : files)
        m_lines.emplace(file, std::set<int>());
}

void SourceExcerpts::add(const QString& file, int line) {
    const auto found = m_lines.find(file);
    if (found != m_lines.end() && line > 0)
        found->second.insert(line);
}

void SourceExcerpts::write(JsonWriter& json) const {
    json.beginArray();
    for (const auto& [file, lines] : m_lines) {
        if (lines.empty())
            continue;
        std::string text;
        try {
            text = readFile(QFile::encodeName(file));
        } catch (const Failure&) {
            continue; // it was there when it was parsed
        }
        json.beginObject();
        json.key("file");
        json.value(file);
        json.key("parts");
        writeParts(json, QByteArray::fromRawData(text.data(), int(text.size())), lines);
        json.endObject();
    }
    json.endArray();
}

} // namespace Command
