#include "Views/EventEditor/RecurrencePickerController.h"

#include "Platform/EventKit/RecurrenceRule.h"

#include <algorithm>
#include <array>

namespace mintaro {

namespace {

struct Row
{
    RecurrenceRule::Frequency frequency;
    const char *rule;
};

/// From the second on; the first row repeats nothing.
constexpr std::array kRows { Row { RecurrenceRule::Frequency::Daily, "FREQ=DAILY" },
    Row { RecurrenceRule::Frequency::Weekly, "FREQ=WEEKLY" },
    Row { RecurrenceRule::Frequency::Monthly, "FREQ=MONTHLY" },
    Row { RecurrenceRule::Frequency::Yearly, "FREQ=YEARLY" } };

} // namespace

void RecurrencePickerController::setRecurrenceRule(const std::optional<EKRecurrenceRule> &rule)
{
    if (rule == m_recurrenceRule)
        return;
    m_recurrenceRule = rule;
    Q_EMIT recurrenceRuleChanged();
}

QStringList RecurrencePickerController::options() const
{
    return { qtTrId("recurrence.none"), qtTrId("recurrence.daily"), qtTrId("recurrence.weekly"),
        qtTrId("recurrence.monthly"), qtTrId("recurrence.yearly") };
}

int RecurrencePickerController::selectedIndex() const
{
    const auto rule = m_recurrenceRule ? RecurrenceRule::parse(m_recurrenceRule->rule) : std::nullopt;
    if (!rule)
        return 0;
    const auto row = std::ranges::find(kRows, rule->frequency, &Row::frequency);
    return row == kRows.end() ? 0 : static_cast<int>(row - kRows.begin()) + 1;
}

void RecurrencePickerController::pick(int index)
{
    // "None" is exact, and may stand for a rule that has no row; any other row may stand for a rule that says more.
    if (index < 0 || index > static_cast<int>(kRows.size()) || (index == selectedIndex() && index != 0))
        return;
    setRecurrenceRule(index == 0 ? std::nullopt
                                 : std::optional(EKRecurrenceRule { kRows[static_cast<std::size_t>(index - 1)].rule }));
    Q_EMIT picked();
}

} // namespace mintaro
