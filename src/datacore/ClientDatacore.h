#pragma once

#include "datacore/DatacoreBase.h"

#include <QObject>
#include <QPoint>
#include <QSize>
#include <QStringList>

#include <vector>

class DatacorePacket;

/// The client's mirror of one node of the server: a root of its own, found by its path on the server.
///
/// There are two entrances for a value. The setters are local changes: they refresh the windows and are sent,
/// also when the value is the present one, for a command written twice is two commands. What the server sends
/// refreshes the windows and is never sent back. A slot may destroy the node or clear the registry.
class ClientDatacore : public QObject, public DatacoreBase {
    Q_OBJECT
public:
    ClientDatacore(QString className, QString instanceName, DatacoreBase* parent, QString pathOnServer);

    /// A node for a path on the server, named after what stands behind the last "/". Its class is not known
    /// before the server sends its value.
    static ClientDatacore* makeClientDatacoreRoot(QString path);

    QString getDatacorePathOnServer() const { return m_pathOnServer; }
    /// Whether the server has sent a value since the node was made.
    bool hasValueOfServer() const { return m_hasValueOfServer; }
    bool isInSyncWithServer() const { return m_outstandingPacketIds.empty(); }

    /// Takes in a packet for this node. @p track tells that its sender is this client, so that it is the echo
    /// of a write when it has a packet identifier.
    void populateDataFromDatacorePacket(DatacorePacket& packet, bool track);
    /// An echo. Unless it is that of an outstanding write it is ignored. It settles that write and those
    /// before; its value is applied only when none remains, since the local one is newer than that.
    bool trackPacketAndPopulateDataFromJson(int packetId, QString path, QJsonObject json, bool skipStatus,
                                            std::list<DatacoreJsonMessage>& messages);
    /// The identifier of a new write, which is outstanding from now on.
    int getNextPacketID();
    /// Emits datacoreUpdated() with the present value.
    void populateConnectedGuiElements();
    void changedPrivateSignal() override;

    /// The reasons for being invalid as datacoreUpdated() gives them.
    QStringList getReasonTexts() const;
    /// The reasons as the lines of a tool tip, and whether there is an error or a warning among them.
    static QString makeToolTip(const QStringList& reasons, bool* hasError, bool* hasWarning);

public slots:
    void setDataString(QString value);
    void setDataStringList(const QStringList& values);
    void setDataBool(bool value);
    void setDataInt(int value);
    void setDataUint(unsigned int value);
    void setDataInt16(short value);
    void setDataInt32(int value);
    void setDataInt64(long long value);
    void setDataUint16(unsigned short value);
    void setDataUint32(unsigned int value);
    void setDataUint64(unsigned long long value);
    void setDataFloat(float value);
    void setDataDouble(double value);
    /// Two items: x and y.
    void setDataPoint(QPoint value);
    /// Two items: width and height.
    void setDataSize(QSize value);

signals:
    /// @p reasons are the texts of the reasons for being invalid, each behind "Error: ", "Warning: " or
    /// "Info: ".
    void datacoreUpdated(QStringList values, QStringList reasons, bool active);
    void clientDatacoreHasUpdateForServer(int packetId, ClientDatacore* datacore);
    void datacoreOutOfSyncWithServer();
    void datacoreInSyncWithServer();
    /// The echo of a write came while @p count writes up to it were outstanding: those before were lost.
    void lostPackets(int count);

private:
    enum class Settled { Ignored, OthersRemain, All, Destroyed };

    Settled settleEcho(int packetId);
    bool mayApplyEcho(int packetId);

    QString m_pathOnServer;
    /// Identifiers of the writes that were sent and not echoed yet, the oldest first. Nearly always empty,
    /// and an empty std::deque would be a third of the node.
    std::vector<int> m_outstandingPacketIds;
    bool m_hasValueOfServer = false;
};
