#include "app/core/MappedProgramArgs.h"

#include "logging/Logging.h"

#include <QCoreApplication>

#include <ostream>

MappedProgramArgs::MappedProgramArgs(int argc, const char* const* argv, bool skipProgramName)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    populateArgumentMap(arguments, skipProgramName);
}

MappedProgramArgs::MappedProgramArgs(const QCoreApplication& /*application*/, bool skipProgramName)
{
    populateArgumentMap(QCoreApplication::arguments(), skipProgramName);
}

bool MappedProgramArgs::contains(const QString& key) const
{
    return m_values.contains(key);
}

QString MappedProgramArgs::getValueForKey(const QString& key) const
{
    const QStringList values = getValuesForKey(key);
    return values.isEmpty() ? QString() : values.last();
}

QStringList MappedProgramArgs::getValuesForKey(const QString& key) const
{
    return m_values.value(key);
}

QStringList MappedProgramArgs::keys() const
{
    return m_values.keys();
}

void MappedProgramArgs::populateArgumentMap(const QStringList& arguments, bool skipProgramName)
{
    for (int i = skipProgramName ? 1 : 0; i < arguments.size(); ++i) {
        const QString& argument = arguments.at(i);
        if (!argument.startsWith(QLatin1String("-D")))
            continue;
        const QStringList parts = argument.mid(2).split(QLatin1Char('='));
        if (parts.size() > 2) {
            Velmora::log()->error("Command line argument contained multiple '='!");
            continue;
        }
        m_values[parts.first()] << parts.value(1);
    }
}

std::ostream& operator<<(std::ostream& stream, const MappedProgramArgs& arguments)
{
    for (auto entry = arguments.m_values.begin(); entry != arguments.m_values.end(); ++entry) {
        for (const QString& value : entry.value())
            stream << entry.key().toStdString() << '=' << value.toStdString() << '\n';
    }
    return stream;
}
