#include "remote/WzExternalApi.h"

#include "datacore/ElementPaths.h"
#include "datacore/TreePath.h"
#include "remote/DriverCalibration.h"

#include <QMetaMethod>

#include <utility>

using ServerCommon::DatacoreTree;
using ServerCommon::treePath;
using Velmora::Types::OutputSpigot;

/// A row of the table of commands.
struct ApiCommand {
    const char* name;
    const char* help;
    void (*run)(WzExternalApi& api, const QStringList& arguments, const QStringList& parts);
};

/// What the rows do; they are the interface's own.
struct ApiCommands {
    using Api = WzExternalApi;

    static void execute(Api& api, const QStringList& arguments, const QStringList& parts)
    {
        api.runExecute(arguments, parts);
    }
    template<OutputSpigot output>
    static void calibrate(Api& api, const QStringList& arguments, const QStringList&)
    {
        api.runCalibration(output, arguments);
    }
    /// Says the line, then asks for the log.
    template<const char* line, void (Api::*request)()>
    static void log(Api& api, const QStringList&, const QStringList&)
    {
        emit api.newConsoleLine(QString::fromLatin1(line));
        (api.*request)();
    }
    template<int port>
    static void setAddress(Api& api, const QStringList& arguments, const QStringList&)
    {
        api.runSetAddress(port, arguments);
    }

    static const ApiCommand all[];
};

namespace {

constexpr char kInputRate[] = "Requesting SDI input rate logs";
constexpr char kInputStandard[] = "Requesting SDI input standard logs";
// Both commands about jitter say this.
constexpr char kJitter[] = "Requesting jitter alignment logs";
// Without "Requesting", as it always was.
constexpr char kReference[] = "Reference Locking logs";
constexpr char kIpTx[] = "Requesting IP Tx logs";
constexpr char kIpRx[] = "Requesting IP Rx logs";
constexpr char kIpInterfaces[] = "Requesting IP Interfaces logs";
constexpr char kSfp[] = "Requesting SFP logs";
constexpr char kPtp[] = "Requesting PTP logs";
constexpr char kAudioPresence[] = "Requesting Audio Input presence logs";
constexpr char kScte104[] = "Requesting SCTE104 logs";

constexpr int kAddressArguments = 5;

std::size_t indexOf(OutputSpigot output)
{
    return static_cast<std::size_t>(output);
}

} // namespace

// The help texts stand right behind the names; the first one has no blank before it.
const ApiCommand ApiCommands::all[] = {
    {"execute", "Executes a command code\n", &execute},
    {"calibrate_driver_a", " Initiates calibration procedure for driver A\n", &calibrate<OutputSpigot::A>},
    {"calibrate_driver_b", " Initiates calibration procedure for driver B\n", &calibrate<OutputSpigot::B>},
    {"calibrate_driver_c", " Initiates calibration procedure for driver C\n", &calibrate<OutputSpigot::C>},
    {"calibrate_driver_d", " Initiates calibration procedure for driver D\n", &calibrate<OutputSpigot::D>},
    {"get_input_rate_logs", " Gets the logs for sdi input rate changes\n",
     &log<kInputRate, &Api::requestSdiInputRateLogs>},
    {"get_input_standard_logs", " Gets the logs for sdi input standard changes\n",
     &log<kInputStandard, &Api::requestSdiInputStandardLogs>},
    {"get_jitter_timing_logs", " Gets the logs for jitter timing\n",
     &log<kJitter, &Api::requestJitterTimingLogs>},
    {"get_jitter_alignment_logs", " Gets the logs for jitter alignment\n",
     &log<kJitter, &Api::requestJitterAlignmentLogs>},
    {"get_reference_locking_standard_change_logs", " Gets the logs for reference locking standard changes\n",
     &log<kReference, &Api::requestReferenceLockLogs>},
    {"get_ip_tx_logs", " Gets the logs for IP Tx\n", &log<kIpTx, &Api::requestIpTxLogs>},
    {"get_ip_rx_logs", " Gets the logs for IP Rx\n", &log<kIpRx, &Api::requestIpRxLogs>},
    {"get_ip_interfaces_logs", " Gets the logs for IP Interfaces\n",
     &log<kIpInterfaces, &Api::requestIpInterfacesLogs>},
    {"get_sfp_logs", " Gets the logs for the SFPs\n", &log<kSfp, &Api::requestSfpLogs>},
    {"get_ptp_logs", " Gets the logs for PTP events\n", &log<kPtp, &Api::requestPtpLogs>},
    {"get_audio_presence_logs", " Gets the logs for audio presence events\n",
     &log<kAudioPresence, &Api::requestAudioInputPresenceLogs>},
    {"get_scte104_logs", " Gets the logs for SCTE104 events\n", &log<kScte104, &Api::requestSCTE104Logs>},
    {"set_velmeth0_ip", " Sets velmeth0 ip\n", &setAddress<0>},
    {"set_velmeth1_ip", " Sets velmeth1 ip\n", &setAddress<1>},
};

WzExternalApi::WzExternalApi(QObject* parent)
    : QObject(parent)
{
}

WzExternalApi::~WzExternalApi() = default;

QString WzExternalApi::HELP()
{
    QString text;
    for (const ApiCommand& command : ApiCommands::all)
        text += QLatin1String(command.name) + QLatin1String(command.help);
    return text;
}

QStringList WzExternalApi::commandNames()
{
    QStringList names;
    for (const ApiCommand& command : ApiCommands::all)
        names << QString::fromLatin1(command.name);
    return names;
}

QStringList WzExternalApi::followedElements()
{
    return {treePath(DatacoreTree::Configuration, ElementPaths::SdiOutput::kVideoStandard),
            treePath(DatacoreTree::Configuration, ElementPaths::SdiOutput::kTestPattern),
            treePath(DatacoreTree::Status, ElementPaths::SdiOutputStatus::kIdle),
            treePath(DatacoreTree::Status, ElementPaths::SdiOutputStatus::kTestPatterns),
            treePath(DatacoreTree::Status, ElementPaths::SdiDriverStatus::kMeasurement)};
}

// --- Command lines

void WzExternalApi::processCommand(QString line)
{
    if (m_isBusy || !m_lines.isEmpty())
        m_lines.enqueue(line);
    else
        run(line);
}

void WzExternalApi::run(const QString& line)
{
    m_isBusy = true;
    const QStringList parts = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QString name = parts.value(0);
    for (const ApiCommand& command : ApiCommands::all) {
        if (name == QLatin1String(command.name)) {
            command.run(*this, parts.mid(1), parts);
            return;
        }
    }
    refuseUnknown(parts);
}

void WzExternalApi::runExecute(const QStringList& arguments, const QStringList& parts)
{
    bool ok = false;
    const int code = arguments.value(0).toInt(&ok, 10);
    if (!ok || code < 0 || code >= kNumberedCommandCount) {
        refuseUnknown(parts);
        return;
    }
    // First the line: where nobody listens the command ends at once.
    emit newConsoleLine(QStringLiteral("Executing command ") + arguments.first());
    executeCommand(static_cast<CommandExecutor::Command>(code));
}

void WzExternalApi::runCalibration(OutputSpigot output, const QStringList& arguments)
{
    emit newConsoleLine(QStringLiteral("Calibrating driver %1")
                            .arg(QChar(QLatin1Char('A').unicode() + static_cast<int>(output))));
    bool ok = true;
    const int amplitude = arguments.isEmpty() ? 0 : arguments.first().toInt(&ok, 10);
    if (ok)
        calibrateDriverGain(output, amplitude);
    else
        finish(CommandOutcome::refused(tr("\"%1\" is no amplitude in mV").arg(arguments.first())));
}

void WzExternalApi::runSetAddress(int port, const QStringList& arguments)
{
    if (arguments.size() < kAddressArguments) {
        emit newConsoleLine(QStringLiteral("not enough args, need IP addr, mask length, gateway IP addr, DNS "
                                           "nameServer0 IP addr and DNS nameServer1 IP addr"));
        finish({false, {}});
        return;
    }
    emit newConsoleLine(
        QStringLiteral("Set velmEth%1 IP addr = %2, mask = %3, gateway IP addr = %4, DNS nameServer0 IP addr "
                       "= %5, DNS nameServer1 IP addr = %6")
            .arg(QString::number(port), arguments.at(0), arguments.at(1), arguments.at(2), arguments.at(3),
                 arguments.at(4)));
    setVelmEthIpAddress(arguments.at(0), arguments.at(1), arguments.at(2), arguments.at(3), arguments.at(4),
                        port == 0);
}

void WzExternalApi::refuseUnknown(const QStringList& parts)
{
    QString text = QStringLiteral("Unrecognised Command: ");
    for (const QString& part : parts)
        text += part + QLatin1Char(' ');
    emit newConsoleLine(text + QLatin1String("\nCommand list:\n") + HELP());
    finish({false, {}});
}

void WzExternalApi::finish(const CommandOutcome& outcome)
{
    if (!outcome.text.isEmpty())
        emit newConsoleLine(outcome.text);
    if (!outcome.isDone)
        emit commandRefused();
    m_isBusy = false;
    emit commandFinished();
    // From the event loop: a long row of refusals is not to pile up on the stack.
    if (!m_lines.isEmpty())
        QMetaObject::invokeMethod(this, &WzExternalApi::runNext, Qt::QueuedConnection);
}

void WzExternalApi::runNext()
{
    if (!m_isBusy && !m_lines.isEmpty())
        run(m_lines.dequeue());
}

// --- Requests to the GUI thread

bool WzExternalApi::isAttached() const
{
    static const QMetaMethod request = QMetaMethod::fromSignal(&WzExternalApi::executeRequested);
    return !m_isShutDown && isSignalConnected(request);
}

void WzExternalApi::ask(const std::function<void(quint64)>& send, Done done)
{
    if (!isAttached()) {
        if (done)
            done(CommandOutcome::refused(m_isShutDown ? tr("The display client ends")
                                                      : tr("The display client is not ready")));
        return;
    }
    m_requests.emplace(++m_lastRequest, std::move(done));
    send(m_lastRequest);
}

void WzExternalApi::execute(CommandExecutor::Command command, Done done)
{
    ask([this, command](quint64 request) { emit executeRequested(request, numberOf(command)); },
        std::move(done));
}

void WzExternalApi::write(const QString& path, const QStringList& values, Done done)
{
    ask([this, path, values](quint64 request) { emit writeRequested(request, path, values); },
        std::move(done));
}

void WzExternalApi::onAnswered(quint64 request, bool isDone, const QString& text)
{
    auto node = m_requests.extract(request);
    if (!node.empty() && node.mapped())
        node.mapped()({isDone, text});
}

void WzExternalApi::onElementUpdated(const QString& path, const QStringList& values, bool active)
{
    m_elements.insert(path, active ? values : QStringList());
    if (m_calibration)
        m_calibration->onElementsChanged();
}

void WzExternalApi::shutDown()
{
    m_isShutDown = true;
    cancelDriverCalibration();
    const auto requests = std::exchange(m_requests, {});
    for (const auto& [request, done] : requests) {
        if (done)
            done(CommandOutcome::refused(tr("The display client ends")));
    }
}

// --- Operations

void WzExternalApi::executeCommand(CommandExecutor::Command command)
{
    execute(command, [this](const CommandOutcome& outcome) { finish(outcome); });
}

/// The line comes before what may be wrong with it, and the log comes when it likes.
void WzExternalApi::requestLog(CommandExecutor::Command command)
{
    emit newConsoleLine(QStringLiteral("Logs requested"));
    executeCommand(command);
}

void WzExternalApi::requestSdiInputRateLogs()
{
    requestLog(CommandExecutor::Command::RequestSdiInputRateLogs);
}

void WzExternalApi::requestSdiInputStandardLogs()
{
    requestLog(CommandExecutor::Command::RequestSdiInputStandardLogs);
}

void WzExternalApi::requestJitterTimingLogs()
{
    requestLog(CommandExecutor::Command::RequestJitterTimingLogs);
}

void WzExternalApi::requestJitterAlignmentLogs()
{
    requestLog(CommandExecutor::Command::RequestJitterAlignmentLogs);
}

void WzExternalApi::requestReferenceLockLogs()
{
    requestLog(CommandExecutor::Command::RequestReferenceLockLogs);
}

void WzExternalApi::requestIpTxLogs()
{
    requestLog(CommandExecutor::Command::RequestIpTxLogs);
}

void WzExternalApi::requestIpRxLogs()
{
    requestLog(CommandExecutor::Command::RequestIpRxLogs);
}

void WzExternalApi::requestIpInterfacesLogs()
{
    requestLog(CommandExecutor::Command::RequestIpInterfacesLogs);
}

void WzExternalApi::requestSfpLogs()
{
    requestLog(CommandExecutor::Command::RequestSfpLogs);
}

void WzExternalApi::requestPtpLogs()
{
    requestLog(CommandExecutor::Command::RequestPtpLogs);
}

void WzExternalApi::requestAudioInputPresenceLogs()
{
    requestLog(CommandExecutor::Command::RequestAudioInputPresenceLogs);
}

void WzExternalApi::requestSCTE104Logs()
{
    requestLog(CommandExecutor::Command::RequestScte104Logs);
}

void WzExternalApi::setVelmEthIpAddress(const QString& address, const QString& maskLength,
                                        const QString& gateway, const QString& dns0, const QString& dns1,
                                        bool isFirstPort)
{
    const auto path = ElementPaths::VelmEth::kAddresses.at(isFirstPort ? 0 : 1);
    write(treePath(DatacoreTree::PersistentConfiguration, path), {address, maskLength, gateway, dns0, dns1},
          [this](const CommandOutcome& outcome) { finish(outcome); });
}

void WzExternalApi::calibrateDriverGain(OutputSpigot output, int amplitude)
{
    beginCalibration(output, amplitude, [this](const CommandOutcome& outcome) { finish(outcome); });
}

void WzExternalApi::startDriverCalibration(OutputSpigot output, int amplitude)
{
    beginCalibration(output, amplitude, {});
}

void WzExternalApi::beginCalibration(OutputSpigot output, int amplitude, Done done)
{
    if (m_calibration) {
        if (done)
            done(CommandOutcome::refused(tr("A driver is being calibrated already")));
        return;
    }
    m_calibration = new DriverCalibration(*this, output, amplitude);
    m_calibration->start([this, output, done = std::move(done)](const CommandOutcome& outcome) {
        m_calibration->deleteLater();
        m_calibration = nullptr;
        emit driverCalibrationEnded(output, outcome.isDone, outcome.text);
        if (done)
            done(outcome);
    });
}

void WzExternalApi::cancelDriverCalibration()
{
    if (m_calibration)
        m_calibration->cancel();
}

void WzExternalApi::setVideoStandard(const QStringList& items, Done done)
{
    write(treePath(DatacoreTree::Configuration, ElementPaths::SdiOutput::kVideoStandard), items,
          std::move(done));
}

void WzExternalApi::setTestPattern(const QString& pattern, Done done)
{
    write(treePath(DatacoreTree::Configuration, ElementPaths::SdiOutput::kTestPattern), {pattern},
          std::move(done));
}

void WzExternalApi::setGenerateOn(Done done)
{
    write(treePath(DatacoreTree::Configuration, ElementPaths::SdiOutput::kGenerate), {QStringLiteral("true")},
          std::move(done));
}

void WzExternalApi::setGenerateOff(Done done)
{
    write(treePath(DatacoreTree::Configuration, ElementPaths::SdiOutput::kGenerate),
          {QStringLiteral("false")}, std::move(done));
}

bool WzExternalApi::isGeneratorIdle() const
{
    const QStringList items = element(treePath(DatacoreTree::Status, ElementPaths::SdiOutputStatus::kIdle));
    return items.value(0) != QLatin1String("false");
}

QStringList WzExternalApi::getVideoStandardTestPatterns() const
{
    return element(treePath(DatacoreTree::Status, ElementPaths::SdiOutputStatus::kTestPatterns));
}

void WzExternalApi::measureSdiDriver(OutputSpigot output, int gain, Done done)
{
    // What comes from now on is new.
    m_elements.remove(treePath(DatacoreTree::Status, ElementPaths::SdiDriverStatus::kMeasurement));
    write(treePath(DatacoreTree::Command, ElementPaths::SdiDriverCommands::kMeasure),
          {QString::number(indexOf(output)), QString::number(gain)}, std::move(done));
}

void WzExternalApi::saveSdiDriverGainResult(OutputSpigot output, int gain, Done done)
{
    write(treePath(DatacoreTree::PersistentConfiguration, ElementPaths::SdiDriver::kGain.at(indexOf(output))),
          {QString::number(gain)}, std::move(done));
}

void WzExternalApi::saveSdiDriverCharacteristicsResult(OutputSpigot output,
                                                       const Velmora::Sdi::DriverCharacteristics& result,
                                                       Done done)
{
    write(treePath(DatacoreTree::PersistentConfiguration,
                   ElementPaths::SdiDriver::kCharacteristics.at(indexOf(output))),
          result.toItems(), std::move(done));
}
