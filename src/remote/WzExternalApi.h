#pragma once

#include "commands/CommandExecutor.h"
#include "types/Types.h"
#include "types/sdi/DriverCharacteristics.h"

#include <QHash>
#include <QObject>
#include <QQueue>
#include <QStringList>

#include <functional>
#include <map>

class DriverCalibration;

/// The external command interface: interprets command lines, answers with console lines, and ends every
/// command with commandFinished(). One command is carried out after the other, in the order in which they
/// come.
///
/// It lives on a thread of its own, never waits, and talks to the rest by queued signals only: what it asks
/// for by executeRequested() and writeRequested() is answered by onAnswered(). While nobody listens to these,
/// everything is refused.
class WzExternalApi : public QObject {
    Q_OBJECT
public:
    /// How far the calibration of an output driver is.
    enum class DriverCalibrationProgress { Started, Measuring, Finished, Failed, Cancelled };
    Q_ENUM(DriverCalibrationProgress)
    using OutputSpigot = Velmora::Types::OutputSpigot;
    using Done = std::function<void(const CommandOutcome&)>;

    explicit WzExternalApi(QObject* parent = nullptr);
    ~WzExternalApi() override;

    /// The commands, each with its help text.
    static QString HELP();
    /// The names of the commands, in the order of the help text.
    static QStringList commandNames();
    /// The elements that this object has to be told of, with their trees.
    static QStringList followedElements();

    void executeCommand(CommandExecutor::Command command);
    void requestSdiInputRateLogs();
    void requestSdiInputStandardLogs();
    void requestJitterTimingLogs();
    void requestJitterAlignmentLogs();
    void requestReferenceLockLogs();
    void requestIpTxLogs();
    void requestIpRxLogs();
    void requestIpInterfacesLogs();
    void requestSfpLogs();
    void requestPtpLogs();
    void requestAudioInputPresenceLogs();
    void requestSCTE104Logs();

    /// Finds the step of the gain with which the output has @p amplitude mV, 0 for the nominal ones, and
    /// stores it.
    void calibrateDriverGain(Velmora::Types::OutputSpigot output, int amplitude);
    void setVelmEthIpAddress(const QString& address, const QString& maskLength, const QString& gateway,
                             const QString& dns0, const QString& dns1, bool isFirstPort);

    // What a calibration does, each with what is to follow when the instrument has answered.
    /// @p items as an element of a video standard has them.
    void setVideoStandard(const QStringList& items, Done done);
    void setTestPattern(const QString& pattern, Done done = {});
    void setGenerateOn(Done done = {});
    void setGenerateOff(Done done = {});
    /// Also while nothing is known of it.
    bool isGeneratorIdle() const;
    /// Those of the standard that is set.
    QStringList getVideoStandardTestPatterns() const;
    void measureSdiDriver(OutputSpigot output, int gain, Done done);
    void saveSdiDriverGainResult(OutputSpigot output, int gain, Done done);
    void saveSdiDriverCharacteristicsResult(OutputSpigot output,
                                            const Velmora::Sdi::DriverCharacteristics& result, Done done);
    /// The items of one of the followed elements; empty while it is inactive or not there.
    QStringList element(const QString& path) const { return m_elements.value(path); }

public slots:
    void processCommand(QString line);
    /// As calibrateDriverGain(), but no command: it ends with driverCalibrationEnded(). Nothing while a
    /// driver is being calibrated.
    void startDriverCalibration(Velmora::Types::OutputSpigot output, int amplitude);
    void cancelDriverCalibration();
    /// Ends what is under way, and refuses what is asked for from now on.
    void shutDown();

    void onAnswered(quint64 request, bool isDone, const QString& text);
    void onElementUpdated(const QString& path, const QStringList& values, bool active);

signals:
    void newConsoleLine(QString line);
    void commandFinished();
    /// Before commandFinished(), for a command that was not carried out.
    void commandRefused();
    /// @p gain is the step of the gain, @p amplitude is in mV.
    void driverCalibrationProgressUpdated(WzExternalApi::DriverCalibrationProgress progress,
                                          Velmora::Types::OutputSpigot output, double gain, double amplitude);
    /// @p text: what came of it, in words.
    void driverCalibrationEnded(Velmora::Types::OutputSpigot output, bool isDone, QString text);

    // To the GUI thread.
    void executeRequested(quint64 request, int command);
    void writeRequested(quint64 request, QString path, QStringList values);

private:
    friend struct ApiCommands;

    void run(const QString& line);
    void runExecute(const QStringList& arguments, const QStringList& parts);
    void runCalibration(OutputSpigot output, const QStringList& arguments);
    void runSetAddress(int port, const QStringList& arguments);
    void refuseUnknown(const QStringList& parts);
    void requestLog(CommandExecutor::Command command);
    void beginCalibration(OutputSpigot output, int amplitude, Done done);

    bool isAttached() const;
    /// Emits a request by @p send, and calls @p done when it is answered.
    void ask(const std::function<void(quint64)>& send, Done done);
    void execute(CommandExecutor::Command command, Done done);
    void write(const QString& path, const QStringList& values, Done done);
    /// Says why a command was not carried out, or what came of it, and ends it.
    void finish(const CommandOutcome& outcome);
    void runNext();

    QQueue<QString> m_lines;
    bool m_isBusy = false;
    bool m_isShutDown = false;
    quint64 m_lastRequest = 0;
    std::map<quint64, Done> m_requests;
    QHash<QString, QStringList> m_elements;
    DriverCalibration* m_calibration = nullptr;
};
