#include "gui/control/TriggerBanks.h"

#include "gui/control/FunctionTrigger.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace TriggerBanks {
namespace {

QString placeText(std::size_t index, std::size_t count)
{
    return QCoreApplication::translate("TriggerBanks", "%1 of %2")
        .arg(QString::number(index + 1), QString::number(count));
}

/// The last slot of the row that has no trigger yet.
Trigger& lastFreeSlot(Row& row)
{
    return *std::find(row.rbegin(), row.rend(), nullptr);
}

Bank layOutBank(const TriggerList& triggers, bool hasNextButton, const QString& nextSuperscript,
                const Pagers& pagers)
{
    Bank bank(rowsNeeded(triggers.size(), hasNextButton));
    const bool hasMoreButton = bank.size() > 1;
    const std::size_t usable = kSlotsPerRow - (hasNextButton ? 1 : 0) - (hasMoreButton ? 1 : 0);
    std::size_t taken = 0;
    for (std::size_t i = 0; i < bank.size(); ++i) {
        Row& row = bank[i];
        if (hasNextButton)
            lastFreeSlot(row) = pagers.makeNext(nextSuperscript);
        if (hasMoreButton)
            lastFreeSlot(row) = pagers.makeMore(placeText(i, bank.size()));
        const std::size_t count = std::min(usable, triggers.size() - taken);
        std::copy_n(triggers.begin() + static_cast<std::ptrdiff_t>(taken), count, row.begin());
        taken += count;
    }
    return bank;
}

} // namespace

QString moreText()
{
    return QStringLiteral("More...");
}

QString nextText()
{
    return QStringLiteral("Next...");
}

quint32 rowsNeeded(std::size_t triggers, bool hasNextButton)
{
    if (triggers == 0)
        return hasNextButton ? 1 : 0;
    const float perSlot = hasNextButton ? 1.0F / 9.0F : 0.1F;
    const auto rowsFor = [perSlot](std::size_t slotsTaken) {
        return static_cast<quint32>(std::ceil(static_cast<float>(slotsTaken) * perSlot));
    };
    quint32 rows = rowsFor(triggers);
    quint32 before = 1; // a single row needs no "More..."
    while (rows != before) {
        before = rows;
        rows = rowsFor(rows + triggers);
    }
    return rows;
}

Banks layOut(const std::vector<TriggerList>& lists, const Pagers& pagers)
{
    Banks banks;
    for (std::size_t i = 0; i < lists.size(); ++i)
        banks.push_back(layOutBank(lists[i], lists.size() > 1, placeText(i, lists.size()), pagers));
    return banks;
}

quint32 rowWithSelected(const Bank& bank)
{
    const auto row = std::find_if(bank.begin(), bank.end(), [](const Row& candidate) {
        return std::any_of(candidate.begin(), candidate.end(),
                           [](const Trigger& trigger) { return trigger && trigger->getButtonSelected(); });
    });
    return row == bank.end() ? 0 : static_cast<quint32>(row - bank.begin());
}

bool hasMarks(const Row& row)
{
    return std::any_of(row.begin(), row.end(),
                       [](const Trigger& trigger) { return trigger && trigger->getButtonInstances() > 0; });
}

bool isPager(const FunctionTrigger& trigger)
{
    return trigger.getButtonText() == moreText() || trigger.getButtonText() == nextText();
}

} // namespace TriggerBanks
