#include "server/InstrumentOptions.h"

#include "app/core/CommandLine.h"
#include "server/core/GeneratorStandardNode.h"
#include "server/core/MediaModule.h"
#include "server/sources/PatternCatalogue.h"
#include "types/sdi/SupportedVideoStandards.h"
#include "types/waveform/WaveformPictures.h"
#include "types/waveform/WaveformTexts.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QStandardPaths>

namespace Velmora::Server {

using Sdi::StandardFromPayloadIdentifier;

namespace {

constexpr char kUsage[] =
    "Usage: wz_instrument [options]\n"
    "The software instrument: makes signals, measures them and serves the results on port 29440.\n"
    "  --listen ADDRESS  the address to listen on (127.0.0.1)\n"
    "  --state-dir FOLDER  where presets and settings are kept (wz_instrument in the user's data folder)\n"
    "  --source NAME     the signal to measure: a sound (levels) or a test pattern\n"
    "  --list-sources    the names and what they are\n"
    "  --standard NAME   the video standard of test patterns, by its name or the first word of its\n"
    "                    payload identifier as \"wz_datacore list-standards\" prints them\n"
    "  --input FILE      plays and measures a media file\n"
    "  --loop            plays it again and again\n"
    "  --channel-names FILE\n"
    "                    the names of the audio channels, one a line\n"
    "  --seed N          begins the random parts of signals and faults at another place (1)\n"
    "  --render waveform draws the waveform of one frame, without serving anybody:\n"
    "                    --output PNG [--frame N] [--size WIDTHxHEIGHT] [--display-mode NAME]\n"
    "                    [--waveform-mode NAME] [--filter NAME], names as in the window's menu\n"
    "  --faults PLAN     misbehaves on purpose, for tests of clients:\n"
    "                    drop=SHARE,delay=MS,split=BYTES,corrupt=SHARE,disconnect=PACKETS\n"
    "  --help            this text\n"
    "  --version         the version\n";

/// The catalogue is built for this alone: nothing else here needs all standards. A word that several of them
/// begin with means the one with the fewest links.
std::optional<StandardFromPayloadIdentifier> findStandard(const QString& name)
{
    const Sdi::SupportedVideoStandards supported;
    const StandardFromPayloadIdentifier* found = nullptr;
    for (const auto* const standard : supported.getSupportedAnalyserStandards()) {
        const auto value = VideoStandardValue::of(*standard);
        const QString word = VideoStandardValue::Identifier::toText(value.identifiers.front().word);
        const bool isNamed = word == name.toUpper() || standard->getStandardAsShortText() == name;
        const bool isSmaller = !found || value.identifiers.size() < found->getPayloadIdentifiers().size();
        if (isNamed && isSmaller && GeneratorStandardNode::formatOf(value))
            found = standard;
    }
    return found ? std::optional(*found) : std::nullopt;
}

/// @p name is a source, or a pattern that goes with the default sound.
bool chooseSource(SignalChoice& choice, const QString& name)
{
    const bool isPattern = PatternCatalogue::make(name.toStdString()) != nullptr;
    (isPattern ? choice.pattern : choice.source) = name;
    return isPattern || SignalInput::sourceNames().contains(name);
}

[[noreturn]] void fail(const QString& problem)
{
    CommandLine::failUsage("wz_instrument", problem);
}

[[noreturn]] void fail(const char* text, const QString& argument)
{
    fail(QString::fromLatin1(text).arg(argument));
}

/// The arguments, and what each option reads from them. What is wrong ends the program.
class Arguments {
public:
    explicit Arguments(const QStringList& arguments)
    {
        m_parser.setOptionsAfterPositionalArgumentsMode(QCommandLineParser::ParseAsOptions);
        for (const char* const name : {"loop", "list-sources"})
            m_parser.addOption(QCommandLineOption(QString::fromLatin1(name)));
        for (const char* const name :
             {"listen", "state-dir", "channel-names", "source", "seed", "faults", "standard", "input",
              "render", "output", "frame", "size", "display-mode", "waveform-mode", "filter"})
            m_parser.addOption(
                QCommandLineOption(QString::fromLatin1(name), QString(), QStringLiteral("VALUE")));
        if (!m_parser.parse(arguments))
            fail(m_parser.errorText());
        if (!m_parser.positionalArguments().isEmpty())
            fail("unexpected argument '%1'", m_parser.positionalArguments().first());
    }

    bool has(const char* name) const { return m_parser.isSet(QString::fromLatin1(name)); }
    QString value(const char* name) const { return m_parser.value(QString::fromLatin1(name)); }
    /// Leaves @p number alone without the option.
    template<typename Number>
    void readNumber(const char* name, const char* fault, Number& number) const
    {
        if (!has(name))
            return;
        bool ok = false;
        const unsigned read = value(name).toUInt(&ok);
        if (!ok || read > static_cast<unsigned>(std::numeric_limits<Number>::max()))
            fail(fault, value(name));
        number = static_cast<Number>(read);
    }
    /// Leaves @p choice alone without the option.
    template<typename Choice, std::size_t Count>
    void readChoice(const char* name, const std::array<const char*, Count>& texts, Choice& choice) const
    {
        if (!has(name))
            return;
        for (std::size_t i = 0; i < Count; ++i) {
            if (value(name).compare(QLatin1String(texts[i]), Qt::CaseInsensitive) == 0) {
                choice = static_cast<Choice>(i);
                return;
            }
        }
        fail(QStringLiteral("there is no %1 '%2'").arg(QString::fromLatin1(name), value(name)));
    }

private:
    QCommandLineParser m_parser;
};

void readSignal(const Arguments& arguments, SignalChoice& signal)
{
    if (arguments.has("source") && !chooseSource(signal, arguments.value("source")))
        fail("there is no source '%1' (see --list-sources)", arguments.value("source"));
    if (arguments.has("standard")) {
        signal.standard = findStandard(arguments.value("standard"));
        if (!signal.standard)
            fail("there is no video standard '%1' to generate (see \"wz_datacore list-standards\")",
                 arguments.value("standard"));
    }
    if (arguments.has("input")) {
        if (arguments.has("source"))
            fail(QStringLiteral("--source and --input do not go together"));
        signal.source = QString::fromLatin1(SignalInput::kFileSource);
        signal.mediaFile = QFileInfo(arguments.value("input")).absoluteFilePath();
    }
    signal.loop = arguments.has("loop");
    signal.openMedia = MediaModule::open;
}

QSize sizeOf(const QString& text)
{
    const QStringList sides = text.split(QLatin1Char('x'));
    const QSize size(sides.value(0).toInt(), sides.value(1).toInt());
    const QSize largest = WaveformTypes::Pictures::kLargestContent;
    if (sides.size() != 2 || size.isEmpty() || size.boundedTo(largest) != size)
        fail("'%1' is no size", text);
    return size;
}

void readRender(const Arguments& arguments, RenderRequest& render)
{
    namespace Texts = WaveformTypes::Texts;
    if (!arguments.has("render"))
        return;
    render.measurement = arguments.value("render");
    if (render.measurement != QLatin1String("waveform"))
        fail("there is no measurement '%1' to render", render.measurement);
    if (!arguments.has("output"))
        fail(QStringLiteral("--render wants --output"));
    render.output = arguments.value("output");
    arguments.readNumber("frame", "'%1' is no number of a frame", render.frame);
    if (arguments.has("size"))
        render.content = sizeOf(arguments.value("size"));
    arguments.readChoice("display-mode", Texts::kDisplayModes, render.settings.displayMode);
    arguments.readChoice("waveform-mode", Texts::kPresentations, render.settings.presentation);
    arguments.readChoice("filter", Texts::kFilters, render.settings.filter);
}

} // namespace

const char* InstrumentOptions::usage()
{
    return kUsage;
}

InstrumentOptions InstrumentOptions::read(const QStringList& commandLine)
{
    const Arguments arguments(commandLine);
    InstrumentOptions options;
    options.listSources = arguments.has("list-sources");
    if (arguments.has("listen") && !options.address.setAddress(arguments.value("listen")))
        fail("'%1' is no address", arguments.value("listen"));
    options.stateFolder = arguments.has("state-dir")
        ? QFileInfo(arguments.value("state-dir")).absoluteFilePath()
        : QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation)
            + QLatin1String("/wz_instrument");
    if (arguments.has("channel-names"))
        options.channelNames = QFileInfo(arguments.value("channel-names")).absoluteFilePath();
    readSignal(arguments, options.signal);
    readRender(arguments, options.render);
    arguments.readNumber("seed", "'%1' is no seed", options.seed);
    if (arguments.has("faults")) {
        QString error;
        const auto plan = FaultPlan::parse(arguments.value("faults"), error);
        if (!plan)
            fail(error);
        options.faults = *plan;
    }
    return options;
}

} // namespace Velmora::Server
