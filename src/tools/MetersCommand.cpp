#include "tools/MetersCommand.h"

#include "tools/ToolCommands.h"
#include "tools/ToolContext.h"
#include "tools/ToolOutput.h"

#include "app/core/WzClientCoreApplicationBase.h"
#include "network/WzClientNetworkManager.h"

#include <QCoreApplication>
#include <QUdpSocket>

#include <chrono>

#include <unistd.h>

using namespace std::chrono_literals;

namespace {

constexpr auto kDrawInterval = 40ms;
constexpr auto kPipeInterval = 1000ms;
/// Readings come every 20 ms; without any for so long, the last one no longer holds.
constexpr auto kStaleAfter = 1000ms;
/// The port of the display client, which may be taken, and those tried after it.
constexpr int kPortsTried = 32;

} // namespace

MetersCommand::MetersCommand(WzClientNetworkManager& network, const Options& options)
    : FollowingCommand(network, options)
    , m_onTerminal(::isatty(STDOUT_FILENO) != 0)
{
    connect(&m_drawTimer, &QTimer::timeout, this, &MetersCommand::draw);
    m_staleTimer.setSingleShot(true);
    connect(&m_staleTimer, &QTimer::timeout, this, [this] {
        if (m_state == MeterBars::State::Live)
            m_state = MeterBars::State::Waiting;
    });
}

MetersCommand::~MetersCommand() = default;

bool MetersCommand::start()
{
    if (!listenForMeters())
        return false;
    m_receiver.emplace([this](const MeterSet& meters, int) { onMeters(meters); });
    if (!m_options.json) {
        m_drawTimer.start(m_onTerminal ? kDrawInterval : kPipeInterval);
        if (m_onTerminal)
            draw();
    }
    connectToInstrument();
    return true;
}

/// Takes the first free port, so that it works beside a running display client, which has the usual one.
bool MetersCommand::listenForMeters()
{
    // An instrument on another host sends to whichever address its connection comes from.
    const QHostAddress address(m_options.host.isLoopback() ? QHostAddress::LocalHost : QHostAddress::AnyIPv4);
    for (int i = 0; i < kPortsTried; ++i) {
        auto socket = std::make_unique<QUdpSocket>();
        if (!socket->bind(address, static_cast<quint16>(NetworkConnection::kClientUdpPort + i)))
            continue;
        m_network.getConnectionToServer().listenForRawDataPackets(std::move(socket));
        return true;
    }
    ToolOutput::say(QStringLiteral("no UDP port from %1 to %2 is free")
                        .arg(NetworkConnection::kClientUdpPort)
                        .arg(NetworkConnection::kClientUdpPort + kPortsTried - 1));
    return false;
}

void MetersCommand::onMeters(const MeterSet& meters)
{
    // What arrived together with the last packet asked for is delivered, too.
    if (m_end.hasCome())
        return;
    m_shown = meters;
    m_state = MeterBars::State::Live;
    m_staleTimer.start(kStaleAfter);
    restartTimeout();
    if (m_options.json)
        print(m_shown.toJson() + '\n');
    noteShown();
}

void MetersCommand::onConnected()
{
    m_state = MeterBars::State::Waiting;
    if (saysStates())
        FollowingCommand::onConnected();
}

void MetersCommand::onLost()
{
    m_state = MeterBars::State::NotConnected;
    if (saysStates())
        FollowingCommand::onLost();
}

void MetersCommand::draw()
{
    QByteArray text = MeterBars::draw(m_shown, m_state, m_server).toUtf8();
    if (!m_onTerminal) {
        print(text + '\n');
        return;
    }
    // Back up over the picture before, and what a line leaves of a longer one is erased.
    const QByteArray up = m_drawnBefore ? "\x1b[" + QByteArray::number(text.count('\n')) + 'A' : QByteArray();
    print(up + text.replace("\n", "\x1b[K\n"));
    m_drawnBefore = true;
}

void MetersCommand::print(const QByteArray& text)
{
    if (!m_end.hasCome() && !ToolOutput::write(text))
        m_end.come(1);
}

void MetersCommand::onTimeout()
{
    ToolOutput::say(
        QStringLiteral("no meter values from %1 for %2 s").arg(m_server).arg(m_options.timeoutSeconds));
    m_end.come(1);
}

int ToolCommands::meters(const ToolContext& context)
{
    MetersCommand command(context.application.getNetworkManager(), FollowingCommand::Options::of(context));
    return command.start() ? QCoreApplication::exec() : 1;
}
