#include "instruments/Catalogue.h"

#include "instruments/InstrumentServices.h"
#include "instruments/datacorebrowser/DatacoreBrowser.h"
#include "instruments/eventlog/EventLog.h"

#include "gui/framework/SupportedSubWindows.h"

#include "gui/framework/WzSubWindow.h"

#include <QCoreApplication>

namespace {

constexpr int kSeveral = 16;

QString system()
{
    return QCoreApplication::translate("Catalogue", "System");
}

SupportedSubWindow eventLog(const InstrumentServices& services)
{
    return {
        QString(EventLog::kTitle),
        QString(EventLog::kClassName),
        WindowRole::System,
        system(),
        QString(EventLog::kIconName),
        1,
        {},
        [&services](WzSubWindow& window) { return new EventLog(&window, services.device, services.events); }};
}

SupportedSubWindow datacoreBrowser(const InstrumentServices& services)
{
    return {QString(DatacoreBrowser::kTitle),
            QString(DatacoreBrowser::kClassName),
            WindowRole::System,
            system(),
            QString(DatacoreBrowser::kIconName),
            kSeveral,
            {},
            [&services](WzSubWindow& window) {
                return new DatacoreBrowser(&window, services.device, services.registry);
            }};
}

} // namespace

void addInstruments(SupportedSubWindows& catalogue, const InstrumentServices& services)
{
    catalogue.add(datacoreBrowser(services));
    catalogue.add(eventLog(services));
}
