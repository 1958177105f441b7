#pragma once

#include <QByteArray>
#include <QString>

#include <iosfwd>
#include <vector>

namespace Command {

/// The shortest decimal that reads back as the same 32-bit float. "inf", "-inf" and "nan" for what is not finite.
QByteArray shortestNumber(float number);

/// Writes JSON to a stream as it comes, so that neither size nor depth matters.
///
///     JsonWriter json(out);
///     json.beginObject();
///     json.key("paths");
///     json.beginArray();
///     json.value(QString("/scene"));
///     json.endArray();
///     json.endObject(); // {"paths": ["/scene"]}
///
/// Any text gives valid JSON in UTF-8: what Unicode does not allow becomes U+FFFD.
class JsonWriter {
public:
    /// Whether a blank follows each comma and colon.
    enum class Spacing { Readable, Compact };

    explicit JsonWriter(std::ostream& out, Spacing spacing = Spacing::Readable) : m_out(out), m_spacing(spacing) {}

    void beginObject() { begin('{'); }
    void endObject() { end('}'); }
    void beginArray() { begin('['); }
    void endArray() { end(']'); }
    void key(const char* name);
    void key(const QByteArray& name);

    void value(const QString& text);
    /// Bytes are UTF-8.
    void value(const QByteArray& text);
    void value(const char* text) { value(QByteArray(text)); }
    void value(int number);
    /// A number, or a string where it is not finite.
    void value(float number);
    void value(bool state);
    void null();

private:
    void begin(char bracket);
    void end(char bracket);
    void separate();
    void writeMark(char mark);
    void writeText(const QString& text);

    std::ostream& m_out;
    Spacing m_spacing;
    std::vector<bool> m_hasItems; // of each open bracket
    bool m_afterKey = false;
};

} // namespace Command
