#include "datacore/ClientDatacoreManipulator.h"

#include "datacore/ClientDatacore.h"
#include "datacore/ClientDatacoreRegistry.h"

#include "logging/Logging.h"
#include "logging/QtFormatters.h"

#include <QEventLoop>
#include <QScopedValueRollback>
#include <QTimer>

ClientDatacoreManipulator::ClientDatacoreManipulator(const ClientDatacoreRegistry& registry, QObject* parent)
    : QObject(parent)
{
    connect(this, &ClientDatacoreManipulator::requestDatacore, &registry,
            &ClientDatacoreRegistry::requestLookupDatacoreFromPath);
    connect(&registry, &ClientDatacoreRegistry::lookupRequestResult, this,
            &ClientDatacoreManipulator::receiveRequestedDatacore);
    connect(&registry, &ClientDatacoreRegistry::registryHasBeenPopulated, this,
            &ClientDatacoreManipulator::progressMade);
    connect(&registry, &ClientDatacoreRegistry::registryHasBeenCleared, this, [this] {
        speakTo(nullptr);
        emit progressMade();
    });
}

bool ClientDatacoreManipulator::waitForDatacore(QString path, std::chrono::milliseconds timeLimit)
{
    const QPointer<ClientDatacoreManipulator> alive(this);
    const auto hasValue = [this, &path] { return select(path) && m_datacore->hasValueOfServer(); };
    if (waitUntil(hasValue, timeLimit))
        return true;
    Velmora::log()->warn("ClientDatacoreManipulator: {} '{}' within {} ms",
                         alive && m_datacore ? "the server sent no value for" : "there was no datacore", path,
                         timeLimit.count());
    return false;
}

bool ClientDatacoreManipulator::waitForEcho(std::chrono::milliseconds timeLimit)
{
    const QPointer<ClientDatacoreManipulator> alive(this);
    const QPointer<ClientDatacore> written(m_datacore);
    const auto isOver = [this, &written] { return m_isInSync || m_datacore != written; };
    if (waitUntil(isOver, timeLimit) && m_datacore && m_datacore == written)
        return true;
    Velmora::log()->warn("ClientDatacoreManipulator: {} within {} ms",
                         alive && m_datacore ? "the server did not echo the write"
                                             : "the datacore written was lost",
                         timeLimit.count());
    return false;
}

QStringList ClientDatacoreManipulator::getDatacoreValue(QString path, bool& ok)
{
    ok = select(path);
    if (!ok)
        return {};
    emit requestDatacoreUpdate();
    return m_values;
}

bool ClientDatacoreManipulator::setDatacoreValue(QString path, QString value)
{
    if (!selectToSet(path))
        return false;
    emit setDatacoreStringValue(value);
    return true;
}

bool ClientDatacoreManipulator::setDatacoreValue(QString path, QStringList values)
{
    if (!selectToSet(path))
        return false;
    emit setDatacoreStringListValue(values);
    return true;
}

void ClientDatacoreManipulator::receiveRequestedDatacore(ClientDatacore* datacore)
{
    // The registry answers all who listen; an answer to somebody else is not ours.
    if (m_isRequesting)
        speakTo(datacore);
}

void ClientDatacoreManipulator::speakTo(ClientDatacore* datacore)
{
    if (datacore == m_datacore)
        return;
    if (m_datacore) {
        disconnect(this, nullptr, m_datacore, nullptr);
        disconnect(m_datacore, nullptr, this, nullptr);
    }
    m_datacore = datacore;
    m_values.clear();
    m_isInSync = true;
    if (!datacore)
        return;
    m_isInSync = datacore->isInSyncWithServer();
    connect(this, &ClientDatacoreManipulator::requestDatacoreUpdate, datacore,
            &ClientDatacore::populateConnectedGuiElements);
    connect(this, &ClientDatacoreManipulator::setDatacoreStringValue, datacore,
            &ClientDatacore::setDataString);
    connect(this, &ClientDatacoreManipulator::setDatacoreStringListValue, datacore,
            &ClientDatacore::setDataStringList);
    connect(datacore, &ClientDatacore::datacoreUpdated, this,
            &ClientDatacoreManipulator::receiveDatacoreValue);
    connect(datacore, &ClientDatacore::datacoreOutOfSyncWithServer, this,
            &ClientDatacoreManipulator::receiveDatacoreOutOfSync);
    connect(datacore, &ClientDatacore::datacoreInSyncWithServer, this,
            &ClientDatacoreManipulator::receiveDatacoreInSync);
}

void ClientDatacoreManipulator::receiveDatacoreValue(QStringList values, QStringList /*reasons*/,
                                                     bool /*active*/)
{
    m_values = values;
    emit progressMade();
}

void ClientDatacoreManipulator::receiveDatacoreOutOfSync()
{
    m_isInSync = false;
}

void ClientDatacoreManipulator::receiveDatacoreInSync()
{
    m_isInSync = true;
    emit progressMade();
}

/// Makes the node at the path the one that is spoken to.
bool ClientDatacoreManipulator::select(const QString& path)
{
    const QScopedValueRollback requesting(m_isRequesting, true);
    emit requestDatacore(path);
    return m_datacore && m_datacore->getDatacorePathOnServer() == path;
}

bool ClientDatacoreManipulator::selectToSet(const QString& path)
{
    if (select(path))
        return true;
    Velmora::log()->warn("ClientDatacoreManipulator: there is no datacore '{}' to set", path);
    return false;
}

bool ClientDatacoreManipulator::waitUntil(const std::function<bool()>& condition,
                                          std::chrono::milliseconds timeLimit)
{
    if (condition())
        return true;
    QEventLoop loop;
    bool isMet = false;
    // Both connections end with the loop, and with it what they refer to.
    connect(this, &ClientDatacoreManipulator::progressMade, &loop, [&] {
        isMet = isMet || condition();
        if (isMet)
            loop.quit();
    });
    connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
    QTimer::singleShot(timeLimit, &loop, &QEventLoop::quit);
    loop.exec();
    return isMet;
}
