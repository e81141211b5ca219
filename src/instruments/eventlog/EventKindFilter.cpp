#include "instruments/eventlog/EventKindFilter.h"

#include <QCoreApplication>

namespace {

/// By the values of EventKind.
constexpr const char* kTexts[kEventKindCount] = {
    QT_TRANSLATE_NOOP("EventKind", "Log reset"),
    QT_TRANSLATE_NOOP("EventKind", "SCTE 104"),
    QT_TRANSLATE_NOOP("EventKind", "Audio presence"),
    QT_TRANSLATE_NOOP("EventKind", "SFP"),
    QT_TRANSLATE_NOOP("EventKind", "IP interfaces"),
    QT_TRANSLATE_NOOP("EventKind", "IP receive"),
    QT_TRANSLATE_NOOP("EventKind", "IP transmit"),
    QT_TRANSLATE_NOOP("EventKind", "Reference"),
    QT_TRANSLATE_NOOP("EventKind", "Video standard"),
    QT_TRANSLATE_NOOP("EventKind", "SDI rate"),
    QT_TRANSLATE_NOOP("EventKind", "REST request"),
    QT_TRANSLATE_NOOP("EventKind", "Alignment jitter"),
    QT_TRANSLATE_NOOP("EventKind", "Timing jitter"),
    QT_TRANSLATE_NOOP("EventKind", "NMOS"),
    QT_TRANSLATE_NOOP("EventKind", "PTP"),
};

/// By the values of EventKind.
constexpr const char* kHelps[kEventKindCount] = {
    QT_TRANSLATE_NOOP("EventKind", "The log was emptied at the instrument, for everybody."),
    QT_TRANSLATE_NOOP("EventKind", "Messages of SCTE 104, by which automation announces splices."),
    QT_TRANSLATE_NOOP("EventKind", "Audio channels that have come to the input or gone from it."),
    QT_TRANSLATE_NOOP("EventKind", "Pluggable optical or electrical modules put in, taken out or at fault."),
    QT_TRANSLATE_NOOP("EventKind", "Network interfaces of the media ports: link, speed and address."),
    QT_TRANSLATE_NOOP("EventKind", "Media streams that are received over IP."),
    QT_TRANSLATE_NOOP("EventKind", "Media streams that are sent over IP."),
    QT_TRANSLATE_NOOP("EventKind", "The signal that the instrument's timing is locked to."),
    QT_TRANSLATE_NOOP("EventKind", "Another raster, frame rate or format at the SDI input."),
    QT_TRANSLATE_NOOP("EventKind", "Another bit rate of the SDI link, or none: 270M, 1.5G, 3G, 6G, 12G."),
    QT_TRANSLATE_NOOP("EventKind", "Somebody has asked the instrument for something by its web interface."),
    QT_TRANSLATE_NOOP("EventKind",
                      "Jitter of the SDI signal above the alignment corner frequency, in unit "
                      "intervals, against its limit."),
    QT_TRANSLATE_NOOP("EventKind",
                      "Jitter of the SDI signal above 10 Hz, in unit intervals, against its limit."),
    QT_TRANSLATE_NOOP("EventKind", "Discovery and control of media devices on the network (AMWA NMOS)."),
    QT_TRANSLATE_NOOP("EventKind",
                      "The clock that is shared over the network (IEEE 1588): grandmaster, lock "
                      "and offset."),
};

template<typename Visitor>
void forEachKind(Visitor visit)
{
    for (int i = 0; i < kEventKindCount; ++i)
        visit(static_cast<EventKind>(i));
}

} // namespace

QString EventKindFilter::kindText(EventKind kind)
{
    return QCoreApplication::translate("EventKind", kTexts[index(kind)]);
}

QString EventKindFilter::kindHelp(EventKind kind)
{
    return QCoreApplication::translate("EventKind", kHelps[index(kind)]);
}

QString EventKindFilter::text() const
{
    if (isAll())
        return QCoreApplication::translate("EventKind", "All kinds");
    if (m_kinds.count() > 1)
        return QCoreApplication::translate("EventKind", "%1 kinds").arg(m_kinds.count());
    QString only;
    forEachKind([&](EventKind kind) {
        if (isChosen(kind))
            only = kindText(kind);
    });
    return only;
}

QStringList EventKindFilter::names() const
{
    QStringList names;
    forEachKind([&](EventKind kind) {
        if (isChosen(kind))
            names << eventKindName(kind);
    });
    return names;
}

EventKindFilter EventKindFilter::fromNames(const QStringList& names)
{
    EventKindFilter filter;
    forEachKind([&](EventKind kind) {
        if (names.contains(eventKindName(kind)))
            filter.toggle(kind);
    });
    return filter;
}
