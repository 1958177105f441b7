#include "Gorvel/BinaryData.h"

#include <QDataStream>
#include <QIODevice>

namespace Gorvel {

namespace {

void configure(QDataStream& stream) {
    stream.setVersion(QDataStream::Qt_5_15);
    stream.setByteOrder(QDataStream::BigEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
}

} // namespace

template <typename T>
BinaryData& BinaryData::write(const T& value) {
    QDataStream stream(&m_data, QIODevice::WriteOnly | QIODevice::Append);
    configure(stream);
    stream << value;
    return *this;
}

template <typename T>
BinaryData& BinaryData::read(T& value) {
    QDataStream stream(m_data);
    configure(stream);
    stream.skipRawData(m_position);
    T result{};
    stream >> result;
    const bool isRead = stream.status() == QDataStream::Ok;
    value = isRead ? result : T{};
    m_position = isRead ? static_cast<int>(stream.device()->pos()) : m_data.size();
    return *this;
}

BinaryData& BinaryData::operator<<(const QByteArray& value) {
    return write(value);
}

BinaryData& BinaryData::operator<<(const QString& value) {
    return write(value);
}

BinaryData& BinaryData::operator<<(qint32 value) {
    return write(value);
}

BinaryData& BinaryData::operator<<(float value) {
    return write(value);
}

BinaryData& BinaryData::operator>>(QByteArray& value) {
    return read(value);
}

BinaryData& BinaryData::operator>>(QString& value) {
    return read(value);
}

BinaryData& BinaryData::operator>>(qint32& value) {
    return read(value);
}

BinaryData& BinaryData::operator>>(float& value) {
    return read(value);
}

} // namespace Gorvel
