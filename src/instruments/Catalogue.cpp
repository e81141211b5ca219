#include "instruments/Catalogue.h"

#include "instruments/InstrumentServices.h"

#include "gui/framework/SupportedSubWindows.h"

#include <QCoreApplication>

void addInstruments(SupportedSubWindows&, const InstrumentServices&)
{
}
