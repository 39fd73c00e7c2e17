#pragma once

#include "Platform/EventKit/EKRecurrenceRule.h"

#include <QObject>
#include <QStringList>
#include <QtQml/qqmlregistration.h>

#include <optional>

namespace mintaro {

/// How often an event repeats, as one of a few rows. A rule that says more than its row is kept until the user picks
/// another row.
class RecurrencePickerController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(std::optional<mintaro::EKRecurrenceRule> recurrenceRule READ recurrenceRule WRITE setRecurrenceRule
            NOTIFY recurrenceRuleChanged)
    Q_PROPERTY(QList<QString> options READ options CONSTANT)
    Q_PROPERTY(int selectedIndex READ selectedIndex NOTIFY recurrenceRuleChanged)

public:
    using QObject::QObject;

    [[nodiscard]] const std::optional<EKRecurrenceRule> &recurrenceRule() const { return m_recurrenceRule; }
    void setRecurrenceRule(const std::optional<EKRecurrenceRule> &rule);
    [[nodiscard]] QStringList options() const;
    /// The row of the rule's frequency, 0 for one that has no row.
    [[nodiscard]] int selectedIndex() const;

    /// The user's choice of a row; the one that is shown already keeps its rule.
    Q_INVOKABLE void pick(int index);

Q_SIGNALS:
    void recurrenceRuleChanged();
    /// The user changed the rule.
    void picked();

private:
    std::optional<EKRecurrenceRule> m_recurrenceRule;
};

} // namespace mintaro
