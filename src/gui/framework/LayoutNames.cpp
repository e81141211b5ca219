#include "gui/framework/LayoutNames.h"

#include <array>
#include <utility>

namespace LayoutNames {
namespace {

using Renaming = std::pair<QLatin1String, QLatin1String>;

QString numbered(int number)
{
    return QStringLiteral("Layout %1").arg(number);
}

template<std::size_t Size>
void migrate(QString& name, const std::array<Renaming, Size>& renamings)
{
    for (const auto& [old, present] : renamings) {
        if (name == old) {
            name = present;
            return;
        }
    }
}

} // namespace

QString first()
{
    return numbered(1);
}

QString newName(const QStringList& existing, bool startAtOne)
{
    int number = startAtOne ? 1 : existing.size() + 1;
    while (existing.contains(numbered(number)))
        ++number;
    return numbered(number);
}

QString duplicateName(const QString& name, const QStringList& existing)
{
    QString base = name + QLatin1String(" -");
    qint64 counter = 2;
    QStringList parts = name.split(QLatin1String(" - "));
    bool isNumber = false;
    const int last = parts.last().toInt(&isNumber);
    if (name.isEmpty()) {
        base = QStringLiteral("Layout");
        counter = 1;
    } else if (parts.size() > 1 && isNumber) {
        counter = qint64(last) + 1;
        parts.removeLast();
        // The parts are joined without their dash, so "A - B - 3" goes on as "A B - 4".
        base = parts.join(QLatin1Char(' ')) + QLatin1String(" -");
    }
    const auto candidate = [&] { return QStringLiteral("%1 %2").arg(base, QString::number(counter)); };
    while (existing.contains(candidate()))
        ++counter;
    return candidate();
}

void migrateOldWindowTitleToNewWindowTitle(QString& title)
{
    static constexpr std::array<Renaming, 7> kTitles{{
        {QLatin1String("IP Receive - Flow Select", 24), QLatin1String("IP Receive - Flows", 18)},
        {QLatin1String("Generator - Status", 18), QLatin1String("Generator", 9)},
        {QLatin1String("Generator - Configuration", 25), QLatin1String("Generator", 9)},
        {QLatin1String("IP Transmit (SFP F)", 19), QLatin1String("2022-6 Transmit (SFP F)", 23)},
        {QLatin1String("IP Transmit", 11), QLatin1String("2110 Transmit", 13)},
        {QLatin1String("Stats - IP Receive (SFP E)", 26), QLatin1String("Stats - 2022-6 Receive", 22)},
        {QLatin1String("Stats - 2022-6 Receive (SFP E)", 30), QLatin1String("Stats - 2022-6 Receive", 22)},
    }};
    migrate(title, kTitles);
}

void migrateOldWindowContentClassToNewWindowContentClass(QString& contentClass)
{
    static constexpr std::array<Renaming, 1> kClasses{{
        {QLatin1String("GeneratorConfig", 15), QLatin1String("OutputGroupStatus", 17)},
    }};
    migrate(contentClass, kClasses);
}

} // namespace LayoutNames
