#include "app/WzClientApplicationBase.h"

#include "app/core/ConnectionLog.h"
#include "datacore/ClientDatacoreManipulator.h"
#include "gui/control/OneFingerGesture.h"
#include "network/events/SequencePackagedLogPacket.h"
#include "remote/CommandQueue.h"
#include "remote/ConsolePort.h"
#include "remote/ConsoleServer.h"
#include "remote/WzExternalApi.h"

WzClientApplicationBase::WzClientApplicationBase(int& argc, char** argv)
    : QApplication(argc, argv)
    , m_programArgs(*this, true)
    , m_datacoreManager(m_networkManager.getConnectionToServer(), m_distributor)
    , m_externalApi(new WzExternalApi)
    , m_datacoreManipulator(
          new ClientDatacoreManipulator(m_datacoreManager.getClientDatacoreRegistry(), m_externalApi))
    , m_remoteDesk(*m_externalApi, m_datacoreManager.getClientDatacoreRegistry())
    , m_guiConnections(m_datacoreManager.getClientDatacoreRegistry())
    , m_modelConnections(m_datacoreManager.getClientDatacoreRegistry())
    , m_sfpIpAddressDialogManager(m_guiConnections)
    , m_presetManager(m_networkManager.getConnectionToServer(), m_distributor)
{
    qRegisterMetaType<WzExternalApi::DriverCalibrationProgress>("WzExternalApi::DriverCalibrationProgress");
    qRegisterMetaType<Velmora::Types::OutputSpigot>("Velmora::Types::OutputSpigot");
    OneFingerRecognizer::scrollType();
    OneFingerRecognizer::swipeType();
    auto* const queue = new CommandQueue(*m_externalApi);
    m_consoleServer = new ConsoleServer(*queue);
    m_consolePort = new ConsolePort(*queue);
    m_externalApi->moveToThread(&m_externalApiThread);
    m_externalApiThread.setObjectName(QStringLiteral("external-api"));
    m_externalApiThread.start(QThread::InheritPriority);
    ConnectionLog::follow(m_networkManager);
    m_distributor.registerPacketAcceptor(&m_logPacketHandler, QString(SequencePackagedLogPacket::kClassName));
}

WzClientApplicationBase::~WzClientApplicationBase()
{
    // The interface never waits, so this is short; what was answered before is written by then.
    QMetaObject::invokeMethod(m_consoleServer, &ConsoleServer::shutDown, Qt::BlockingQueuedConnection);
    m_externalApiThread.quit();
    m_externalApiThread.wait();
    delete m_externalApi;
    m_distributor.deregisterPacketAcceptor(&m_logPacketHandler);
}

WzClientApplicationBase* WzClientApplicationBase::getInstance()
{
    return qobject_cast<WzClientApplicationBase*>(QCoreApplication::instance());
}
