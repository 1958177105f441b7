#include "Diagnostics.h"

#include "Gorvel/StringUtils.h"

#include <ostream>

namespace Command {

using Gorvel::StringUtils;
using Gorvel::Trace;

namespace {

constexpr char bold[] = "\x1b[1m";
constexpr char plain[] = "\x1b[0m";

const char* levelColor(Trace::Level level) {
    switch (level) {
    case Trace::Level::Error:
        return "\x1b[1;31m";
    case Trace::Level::Warning:
        return "\x1b[1;35m";
    default:
        return "\x1b[1;36m";
    }
}

/// A message cut into where and what.
struct Parts {
    QByteArray place;
    QByteArray text;
};

/// Whether the text begins with "Class::function # ": what follows may quote anything, but never begins with a place.
bool namesItsSender(const QByteArray& text) {
    const int mark = text.indexOf(" # ");
    const int blank = text.indexOf(' ');
    return mark > 0 && mark == blank && text.left(mark).contains("::");
}

/// Length of "FILE:LINE" at the start of a message where ": " follows it, and "error: " in an error; 0 where there is
/// no such place.
int placeLength(const Message& message) {
    const QByteArray& text = message.text;
    if (message.level == Trace::Level::Debug || namesItsSender(text))
        return 0;
    const QByteArray behind = message.level == Trace::Level::Error ? ": error: " : ": ";
    for (int end = text.indexOf(behind); end > 0; end = text.indexOf(behind, end + 1)) {
        int digits = end;
        while (digits > 0 && text[digits - 1] >= '0' && text[digits - 1] <= '9')
            --digits;
        if (digits < end && digits > 0 && text[digits - 1] == ':')
            return end;
    }
    return 0;
}

Parts split(const Message& message) {
    const int place = placeLength(message);
    if (place == 0)
        return {message.subject.isEmpty() ? QByteArray("brisko") : message.subject, message.text};
    Parts parts{message.text.left(place), message.text.mid(place + 2)};
    if (parts.place.startsWith(':'))
        parts.place.prepend(message.subject);
    const QByteArray word = QByteArray(levelName(message.level)) + ": ";
    if (parts.text.startsWith(word))
        parts.text.remove(0, word.size());
    return parts;
}

} // namespace

const char* levelName(Trace::Level level) {
    switch (level) {
    case Trace::Level::Error:
        return "error";
    case Trace::Level::Warning:
        return "warning";
    default:
        return "debug";
    }
}

LocatedMessage locate(const Message& message) {
    const Parts parts = split(message);
    const int colon = parts.place.lastIndexOf(':');
    if (placeLength(message) == 0)
        return {message.subject, 0, parts.text};
    return {parts.place.left(colon), parts.place.mid(colon + 1).toInt(), parts.text};
}

QByteArray diagnosticLine(const Message& message) {
    const Parts parts = split(message);
    return StringUtils::printable(parts.place) + ": " + levelName(message.level) + ": " +
           StringUtils::printable(parts.text);
}

void printDiagnostics(std::ostream& out, const std::vector<Message>& messages, bool colors) {
    for (const Message& message : messages) {
        if (!colors) {
            out << diagnosticLine(message).constData() << '\n';
            continue;
        }
        const Parts parts = split(message);
        out << bold << StringUtils::printable(parts.place).constData() << ": " << levelColor(message.level)
            << levelName(message.level) << ": " << plain << StringUtils::printable(parts.text).constData() << '\n';
    }
}

} // namespace Command
