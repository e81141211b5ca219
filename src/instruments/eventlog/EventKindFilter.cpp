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
