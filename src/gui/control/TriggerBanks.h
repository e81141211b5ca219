#pragma once

#include <QString>

#include <array>
#include <functional>
#include <memory>
#include <vector>

class FunctionTrigger;

/// How triggers are laid out for a bar of ten buttons: rows of ten slots, which "More..." steps through, and
/// banks of rows, which "Next..." steps through. Plain rules, without widgets.
namespace TriggerBanks {

inline constexpr quint32 kSlotsPerRow = 10;

using Trigger = std::shared_ptr<FunctionTrigger>;
using TriggerList = std::vector<Trigger>;
/// A null slot is an empty button.
using Row = std::array<Trigger, kSlotsPerRow>;
using Bank = std::vector<Row>;
using Banks = std::vector<Bank>;

/// Makes the triggers that page, each with its superscript: "2 of 3".
struct Pagers {
    std::function<Trigger(const QString& superscript)> makeMore;
    std::function<Trigger(const QString& superscript)> makeNext;
};

QString moreText();
QString nextText();

/// How many rows so many triggers take, when each of several rows gives one slot to "More...", and each row
/// one to "Next..." if the bank has it.
quint32 rowsNeeded(std::size_t triggers, bool hasNextButton);

/// One bank of each list. "Next..." stands in the last slot of every row where there are several banks, and
/// "More..." in the last one before it, so that both stay in place as one pages through.
Banks layOut(const std::vector<TriggerList>& lists, const Pagers& pagers);

/// The first row with a selected trigger; 0 when there is none.
quint32 rowWithSelected(const Bank& bank);

/// Whether some button of the row carries marks.
bool hasMarks(const Row& row);
/// Whether the trigger only pages.
bool isPager(const FunctionTrigger& trigger);

} // namespace TriggerBanks
