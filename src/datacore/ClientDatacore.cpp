#include "datacore/ClientDatacore.h"

#include "datacore/DatacorePacket.h"
#include "datacore/ItemCodec.h"

#include "logging/LogThrottle.h"
#include "logging/QtFormatters.h"

#include <QPointer>

#include <algorithm>

using Velmora::LogThrottle;

namespace {

constexpr QLatin1String kWarning{"Warning: ", 9};
constexpr QLatin1String kError{"Error: ", 7};
constexpr QLatin1String kInformation{"Info: ", 6};

QLatin1String severity(MessageBase::MessageType type)
{
    switch (type) {
    case MessageBase::MessageType::Warning:
        return kWarning;
    case MessageBase::MessageType::Error:
        return kError;
    default:
        return kInformation;
    }
}

} // namespace

ClientDatacore::ClientDatacore(QString className, QString instanceName, DatacoreBase* parent,
                               QString pathOnServer)
    : DatacoreBase(className, instanceName, parent)
    , m_pathOnServer(pathOnServer)
{
    adoptReceivedClassNames();
    // A new node counts as changed; the first value of the server would be sent back to it.
    resetChangedStatus();
}

ClientDatacore* ClientDatacore::makeClientDatacoreRoot(QString path)
{
    return new ClientDatacore(QString(), path.mid(path.lastIndexOf(QLatin1Char('/')) + 1), nullptr, path);
}

void ClientDatacore::populateDataFromDatacorePacket(DatacorePacket& packet, bool track)
{
    if (track && packet.containsPacketID()) {
        if (!mayApplyEcho(packet.getPacketID()))
            return;
    } else if (isInSyncWithServer()) {
        const QPointer<ClientDatacore> alive(this);
        emit datacoreInSyncWithServer();
        if (!alive)
            return;
    }
    std::list<DatacoreJsonMessage> messages;
    // The node notifies before this returns; a slot may have destroyed it then.
    const QString path = m_pathOnServer;
    const bool hadValue = std::exchange(m_hasValueOfServer, true);
    if (packet.populate(*this, false, messages))
        return;
    m_hasValueOfServer = hadValue;
    static LogThrottle throttle;
    throttle.log(spdlog::level::warn, "ClientDatacore: value for '{}' refused: {}", path,
                 messages.empty() ? QString() : messages.back().getText());
}

bool ClientDatacore::trackPacketAndPopulateDataFromJson(int packetId, QString path, QJsonObject json,
                                                        bool skipStatus,
                                                        std::list<DatacoreJsonMessage>& messages)
{
    return mayApplyEcho(packetId) && populateDataFromJson(path, json, skipStatus, messages);
}

bool ClientDatacore::mayApplyEcho(int packetId)
{
    if (settleEcho(packetId) != Settled::All)
        return false;
    const QPointer<ClientDatacore> alive(this);
    emit datacoreInSyncWithServer();
    return alive;
}

ClientDatacore::Settled ClientDatacore::settleEcho(int packetId)
{
    const qint64 place = qint64{packetId} - m_oldestOutstandingId;
    if (place < 0 || place >= m_outstandingWrites)
        return Settled::Ignored;
    const int settled = static_cast<int>(place) + 1;
    m_oldestOutstandingId += settled;
    m_outstandingWrites -= settled;
    if (settled > 1) {
        const QPointer<ClientDatacore> alive(this);
        emit lostPackets(settled);
        if (!alive)
            return Settled::Destroyed;
    }
    return isInSyncWithServer() ? Settled::All : Settled::OthersRemain;
}

int ClientDatacore::getNextPacketID()
{
    const QPointer<ClientDatacore> alive(this);
    emit datacoreOutOfSyncWithServer();
    if (!alive)
        return 0;
    if (m_outstandingWrites == 0)
        m_oldestOutstandingId = 0;
    return m_oldestOutstandingId + m_outstandingWrites++;
}

void ClientDatacore::populateConnectedGuiElements()
{
    emit datacoreUpdated(getDataList(), getReasonTexts(), isActive());
}

void ClientDatacore::changedPrivateSignal()
{
    const QPointer<ClientDatacore> alive(this);
    populateConnectedGuiElements();
    if (alive && getChangedStatus() == ChangedDirectly) {
        const int packetId = getNextPacketID();
        if (!alive)
            return;
        // A slot may have written too and so reset this, but this write is outstanding now and has to be
        // sent.
        markChangedDirectly();
        emit clientDatacoreHasUpdateForServer(packetId, this);
    }
    if (alive)
        resetChangedStatus();
}

QString ClientDatacore::makeToolTip(const QStringList& reasons, bool* hasError, bool* hasWarning)
{
    const auto any = [&](QLatin1String prefix) {
        return std::any_of(reasons.begin(), reasons.end(),
                           [&](const QString& reason) { return reason.startsWith(prefix); });
    };
    if (hasError)
        *hasError = any(kError);
    if (hasWarning)
        *hasWarning = any(kWarning);
    return reasons.join(QLatin1Char('\n'));
}

QStringList ClientDatacore::getReasonTexts() const
{
    QStringList texts;
    for (const DatacoreValidStatusMessage& reason : getReasonsForBeingInvalid())
        texts << severity(reason.getType()) + reason.getText();
    return texts;
}

void ClientDatacore::setDataString(QString value)
{
    setData(value);
}

void ClientDatacore::setDataStringList(const QStringList& values)
{
    setDataList(values);
}

void ClientDatacore::setDataBool(bool value)
{
    setData(ItemText::of(value));
}

void ClientDatacore::setDataInt(int value)
{
    setData(ItemText::of(value));
}

void ClientDatacore::setDataUint(unsigned int value)
{
    setData(ItemText::of(value));
}

void ClientDatacore::setDataInt16(short value)
{
    setData(ItemText::of(value));
}

void ClientDatacore::setDataInt32(int value)
{
    setData(ItemText::of(value));
}

void ClientDatacore::setDataInt64(long long value)
{
    setData(ItemText::of(value));
}

void ClientDatacore::setDataUint16(unsigned short value)
{
    setData(ItemText::of(value));
}

void ClientDatacore::setDataUint32(unsigned int value)
{
    setData(ItemText::of(value));
}

void ClientDatacore::setDataUint64(unsigned long long value)
{
    setData(ItemText::of(value));
}

void ClientDatacore::setDataFloat(float value)
{
    setData(ItemText::of(value));
}

void ClientDatacore::setDataDouble(double value)
{
    setData(ItemText::of(value));
}

void ClientDatacore::setDataPoint(QPoint value)
{
    setDataList({ItemText::of(value.x()), ItemText::of(value.y())});
}

void ClientDatacore::setDataSize(QSize value)
{
    setDataList({ItemText::of(value.width()), ItemText::of(value.height())});
}
