#include "instruments/signalstatus/SignalStatus.h"

#include "gui/control/SettingList.h"
#include "gui/style/Icons.h"
#include "instruments/MeterSettingTexts.h"
#include "types/sdi/StandardFromPayloadIdentifier.h"

using Velmora::Sdi::makePayloadIdentifier;
using Velmora::Sdi::StandardFromPayloadIdentifier;

namespace {

QString labelOf(SignalStatus::Item item)
{
    switch (item) {
    case SignalStatus::Source:
        return SignalStatus::tr("Source");
    case SignalStatus::Video:
        return SignalStatus::tr("Video");
    case SignalStatus::AudioChannels:
        return SignalStatus::tr("Audio");
    case SignalStatus::AvailableSources:
        return SignalStatus::tr("Sources");
    case SignalStatus::Ballistics:
        return SignalStatus::tr("Ballistics");
    case SignalStatus::HatHoldTime:
        return SignalStatus::tr("Hat hold time");
    case SignalStatus::SystemMode:
        return SignalStatus::tr("System mode");
    case SignalStatus::SoftwareVersion:
        return SignalStatus::tr("Software");
    case SignalStatus::ConnectedClients:
        return SignalStatus::tr("Clients");
    case SignalStatus::KeptEvents:
        return SignalStatus::tr("Events");
    }
    return {};
}

/// What somebody sets can be set wrong, so that a mark says that it is right.
bool isSetting(SignalStatus::Item item)
{
    return item == SignalStatus::Source || item == SignalStatus::Ballistics
        || item == SignalStatus::HatHoldTime;
}

} // namespace

SignalStatus::SignalStatus(WzSubWindow* subWindow, Velmora::Wz::Device device)
    : WzSubwindowContent(QString(kClassName), Icons::path(QStringLiteral("video-status")), subWindow, device)
    , m_rows(new ReadOnlyRows(*getWzStyle(), this))
    , m_source(settings().addOptions(tr("Source")))
{
    setPresetClassName(QLatin1String("SignalStatusContentPreset"));
    m_source->writesTo(this, &SignalStatus::toConfigCoreSignalSourceName);
    m_rows->setToolTips(
        [this](int row) { return toolTipOf(m_shownItems.at(static_cast<std::size_t>(row))); });
}

QString SignalStatus::helpText() const
{
    return tr("<h3>Signal Status</h3>"
              "<p>What is measured, how its audio is metered, and the instrument that does it.</p>"
              "<p>The context menu and the soft buttons have the sources to choose from. A framed value is "
              "out of order: hold on "
              "it to see why. A grey one is not in use.</p>");
}

void SignalStatus::setInactiveReasons(std::function<QStringList(Item)> reasons)
{
    m_inactiveReasons = std::move(reasons);
}

void SignalStatus::fromConfigCoreSignalSourceNameUpdated(QStringList values, QStringList reasons, bool active)
{
    setState(Source, {values, reasons, active});
    m_source->fromElement(values, reasons, active);
    setTitleDetails(m_source->isUsable() ? m_source->value() : QString());
}

void SignalStatus::fromStatusCoreActiveStandardUpdated(QStringList values, QStringList reasons, bool active)
{
    setState(Video, {values, reasons, active});
}

void SignalStatus::fromStatusCorePictureFormatUpdated(QStringList values, QStringList reasons, bool active)
{
    m_pictureFormat = {values, reasons, active};
    showRows();
}

void SignalStatus::fromStatusCoreSignalSourceAudioChannelsUpdated(QStringList values, QStringList reasons,
                                                                  bool active)
{
    setState(AudioChannels, {values, reasons, active});
}

void SignalStatus::fromStatusCoreSignalSourceAvailableNamesUpdated(QStringList values, QStringList reasons,
                                                                   bool active)
{
    setState(AvailableSources, {values, reasons, active});
    std::vector<Setting::Option> sources;
    for (const QString& name : qAsConst(values))
        sources.push_back({name, name});
    m_source->setOptions(std::move(sources));
}

void SignalStatus::fromConfigCoreAudioMeteringBallisticsUpdated(QStringList values, QStringList reasons,
                                                                bool active)
{
    setState(Ballistics, {values, reasons, active});
}

void SignalStatus::fromConfigCoreAudioMeteringHatHoldTimeUpdated(QStringList values, QStringList reasons,
                                                                 bool active)
{
    setState(HatHoldTime, {values, reasons, active});
}

void SignalStatus::fromStatusCoreCurrentSystemModeUpdated(QStringList values, QStringList reasons,
                                                          bool active)
{
    setState(SystemMode, {values, reasons, active});
}

void SignalStatus::fromStatusCoreSoftwareVersionUpdated(QStringList values, QStringList reasons, bool active)
{
    setState(SoftwareVersion, {values, reasons, active});
}

void SignalStatus::fromStatusCoreConnectedClientsUpdated(QStringList values, QStringList reasons, bool active)
{
    setState(ConnectedClients, {values, reasons, active});
}

void SignalStatus::fromStatusCoreLoggingKeptEventsUpdated(QStringList values, QStringList reasons,
                                                          bool active)
{
    setState(KeptEvents, {values, reasons, active});
}

void SignalStatus::setState(Item item, ElementState newState)
{
    // The nodes are there before their values: the window is live with the first of these.
    if (newState.verdict() != ElementState::Verdict::Unknown)
        noteDataArrived();
    m_states[static_cast<std::size_t>(item)] = std::move(newState);
    showRows();
}

void SignalStatus::showRows()
{
    if (isFrozen())
        return;
    m_shownItems = itemsThatFit();
    std::vector<ReadOnlyRows::Row> rows;
    for (const Item item : m_shownItems)
        rows.push_back(rowOf(item));
    m_rows->setRows(rows);
}

std::vector<SignalStatus::Item> SignalStatus::itemsThatFit() const
{
    const bool fits = height() >= kItems * m_rows->rowHeight();
    std::vector<Item> items;
    for (int i = 0; i < kItems; ++i) {
        if (fits || (i != HatHoldTime && i != AvailableSources))
            items.push_back(static_cast<Item>(i));
    }
    return items;
}

ReadOnlyRows::Row SignalStatus::rowOf(Item item) const
{
    ReadOnlyRows::Row row{labelOf(item), valueText(item), state(item).verdict(), isSetting(item)};
    if (item == Ballistics && hasOneRowForMeterSettings() && state(item).isUsable()) {
        row.value = tr("%1, hold %2").arg(row.value, valueText(HatHoldTime));
        row.verdict = std::max(row.verdict, state(HatHoldTime).verdict());
    }
    return row;
}

/// The name of the standard that the payload identifiers tell, otherwise what the instrument says of pictures
/// that have none.
QString SignalStatus::videoText() const
{
    std::vector<StandardFromPayloadIdentifier::Identifier> identifiers;
    const QStringList items = state(Video).values;
    for (const QString& word : items.mid(1))
        identifiers.push_back(makePayloadIdentifier(word.toUInt(nullptr, 16)));
    if (identifiers.empty())
        return m_pictureFormat.text();
    const bool isQuadrantMode = items.first() == QLatin1String("true");
    return StandardFromPayloadIdentifier::createStandardFromPayloadIdentifier(identifiers, isQuadrantMode)
        .getStandardAsShortText();
}

QString SignalStatus::valueText(Item item) const
{
    const ElementState& element = state(item);
    const QString text = item == Video ? videoText() : element.text();
    if (text.isEmpty())
        return QStringLiteral("--");
    switch (item) {
    case AudioChannels:
        return tr("%1 channels").arg(text);
    case AvailableSources:
        return tr("%1 to choose from").arg(element.values.size());
    case Ballistics:
        return MeterSettingTexts::ballistics(text);
    case HatHoldTime:
        return MeterSettingTexts::hatHoldTime(text);
    case ConnectedClients:
        return tr("%1 connected").arg(text);
    case KeptEvents:
        return tr("%1 kept").arg(text);
    default:
        return text;
    }
}

QString SignalStatus::toolTipOf(Item item) const
{
    QStringList lines;
    const ElementState& element = state(item);
    if (!isConnected())
        return tr("Not connected to the instrument");
    if (!element.active && m_inactiveReasons)
        lines << m_inactiveReasons(item);
    if (!element.reasons.isEmpty())
        lines << element.toolTip();
    if (item == Video)
        lines << videoText();
    if (item == AvailableSources && element.isUsable())
        lines << element.values;
    if (item == Ballistics && hasOneRowForMeterSettings())
        lines << toolTipOf(HatHoldTime);
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

void SignalStatus::resizeEvent(QResizeEvent* event)
{
    m_rows->setGeometry(rect());
    WzSubwindowContent::resizeEvent(event);
    showRows();
}

void SignalStatus::onFrozenChanged(bool)
{
    showRows();
}

void SignalStatus::onConnectionChanged(bool connected)
{
    if (connected)
        return;
    m_states.fill({});
    m_pictureFormat = {};
    setTitleDetails({});
    showRows();
}
