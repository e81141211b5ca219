#include "network/packets/AudioMetersDataPacket.h"

#include <QtEndian>

#include <utility>

namespace {

constexpr qint64 kFixedSize = 16;
constexpr qint64 kValueSize = 24;

using Value = AudioProcessingRegisterApi::MeterValue<float>;

Value readValue(const char* data)
{
    Value value;
    value.channel = static_cast<quint8>(qFromBigEndian<quint32>(data));
    value.pair = qFromBigEndian<quint32>(data + 4);
    value.source = qFromBigEndian<quint32>(data + 8);
    value.flags = qFromBigEndian<quint32>(data + 12);
    value.value = static_cast<float>(qFromBigEndian<double>(data + 16));
    return value;
}

void writeValue(const Value& value, char* data)
{
    qToBigEndian<quint32>(value.channel, data);
    qToBigEndian<quint32>(value.pair, data + 4);
    qToBigEndian<quint32>(value.source, data + 8);
    qToBigEndian<quint32>(value.flags, data + 12);
    qToBigEndian<double>(static_cast<double>(value.value), data + 16);
}

} // namespace

AudioMetersDataPacket::AudioMetersDataPacket(const QByteArray& frame, const Header& header)
    : RawDataPacket(frame, header)
{
    const char* const data = payload().constData();
    const qint64 size = payload().size();
    m_isWhole = size >= kFixedSize;
    if (!m_isWhole)
        return;
    m_sequenceNumber = qFromBigEndian<quint32>(data);
    m_pairPresenceBits = qFromBigEndian<quint32>(data + 4);
    m_pairPresenceBitsLinkBOrAes = qFromBigEndian<quint32>(data + 8);

    const qint64 count = qFromBigEndian<quint32>(data + 12);
    m_isWhole = count <= (size - kFixedSize) / kValueSize;
    if (!m_isWhole)
        return;
    m_values.reserve(static_cast<size_t>(count));
    for (qint64 i = 0; i < count; ++i)
        m_values.push_back(readValue(data + kFixedSize + i * kValueSize));
}

AudioMetersDataPacket::AudioMetersDataPacket(MeterValues values, quint32 pairPresenceBits,
                                             quint32 pairPresenceBitsLinkBOrAes, quint32 sequenceNumber)
    : m_sequenceNumber(sequenceNumber)
    , m_pairPresenceBits(pairPresenceBits)
    , m_pairPresenceBitsLinkBOrAes(pairPresenceBitsLinkBOrAes)
    , m_values(std::move(values))
{
}

QByteArray AudioMetersDataPacket::getSerialisedPayloadForTransmit() const
{
    const auto size = kFixedSize + kValueSize * static_cast<qint64>(m_values.size());
    QByteArray bytes(static_cast<int>(size), Qt::Uninitialized);
    char* data = bytes.data();
    qToBigEndian<quint32>(m_sequenceNumber, data);
    qToBigEndian<quint32>(m_pairPresenceBits, data + 4);
    qToBigEndian<quint32>(m_pairPresenceBitsLinkBOrAes, data + 8);
    qToBigEndian<quint32>(static_cast<quint32>(m_values.size()), data + 12);
    data += kFixedSize;
    for (const Value& value : m_values) {
        writeValue(value, data);
        data += kValueSize;
    }
    return bytes;
}
