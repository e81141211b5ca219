#include "network/events/LogSerialisableDataPacket.h"

#include "network/events/WholeNumber.h"

#include <QLocale>

std::optional<qint64> LogSerialisableDataPacket::wholeNumberMember(QLatin1String key) const
{
    return wholeNumber(object().value(key));
}

QString LogSerialisableDataPacket::plainTextMember(QLatin1String key) const
{
    const QJsonValue value = object().value(key);
    return value.isDouble() ? QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest)
                            : value.toString();
}

void LogSerialisableDataPacket::setText(QLatin1String key, const QString& text)
{
    if (!text.isNull())
        setValue(key, text);
}
