#pragma once

#include "Gorvel/HostExport.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

namespace Gorvel {

/// The payload of an event: values written one after the other and read back in the same order.
///
///     Gorvel::BinaryData data;
///     data << QByteArray("hover") << qint32(1);
///     QByteArray name;
///     qint32 on = 0;
///     data >> name >> on;
///
/// Big endian, floats in 32 bits, texts with their length before them. The types are not recorded: the reader has to
/// know them. Copies share the bytes; each copy has its own place of reading, and a new copy starts where its source
/// is.
class BRISKO_HOST_EXPORT BinaryData {
public:
    BinaryData() = default;
    /// Makes data to be read from bytes that another BinaryData wrote.
    explicit BinaryData(const QByteArray& data) : m_data(data) {}

    BinaryData& operator<<(const QByteArray& value);
    BinaryData& operator<<(const QString& value);
    BinaryData& operator<<(qint32 value);
    BinaryData& operator<<(float value);

    // Where what is left is not such a value, the result is an empty text or 0, and everything counts as read.
    BinaryData& operator>>(QByteArray& value);
    BinaryData& operator>>(QString& value);
    BinaryData& operator>>(qint32& value);
    BinaryData& operator>>(float& value);

    /// Whether everything has been read.
    bool atEnd() const { return m_position >= m_data.size(); }
    /// Goes back to the first value.
    void rewind() { m_position = 0; }

    /// All bytes, read or not.
    const QByteArray& data() const { return m_data; }

private:
    template <typename T>
    BinaryData& write(const T& value);
    template <typename T>
    BinaryData& read(T& value);

    QByteArray m_data;
    int m_position = 0;
};

} // namespace Gorvel
