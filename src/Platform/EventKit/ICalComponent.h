#pragma once

#include "Platform/EventKit/ContentLines.h"

#include <QByteArray>
#include <QStringList>

#include <optional>
#include <vector>

namespace mintaro {

/// What is wrong with an object, for the log: each once, and no more than anyone reads.
class Complaints
{
public:
    Complaints() = default;
    explicit Complaints(QStringList all)
        : m_all(std::move(all))
    {
    }

    void add(const QString &text)
    {
        constexpr qsizetype kMaximum = 20;
        if (m_all.size() < kMaximum && !m_all.contains(text))
            m_all.append(text);
    }
    [[nodiscard]] const QStringList &all() const { return m_all; }

private:
    QStringList m_all;
};

/// Without the spaces and tabs around it.
[[nodiscard]] QByteArrayView withoutBlanks(QByteArrayView text);

/// A content line taken apart (RFC 5545 3.1).
struct ICalProperty
{
    /// In capitals, without the group that vCard and old calendars put before it.
    QByteArrayView name;
    /// As written.
    QByteArrayView parameters;
    /// As written, unfolded.
    QByteArrayView value;
    /// Its lines in the plain text.
    TextSpan source {};

    /// The value of the first parameter of this name (in capitals), without quotes.
    [[nodiscard]] std::optional<QByteArrayView> parameter(QByteArrayView name) const;
    /// Each as it is written, without its semicolon.
    [[nodiscard]] std::vector<QByteArrayView> parameterList() const;
};

/// A component (RFC 5545 3.6) with all that stands in it, known or not.
struct ICalComponent
{
    /// In capitals; empty for the root.
    QByteArrayView name;
    std::vector<ICalProperty> properties;
    std::vector<ICalComponent> components;
    /// Its BEGIN and its END in the plain text. An empty `tail`, where the component ends, has no END.
    TextSpan head {};
    TextSpan tail {};
    /// Lines of it were lost or guessed at.
    bool isDamaged = false;

    /// The first of this name; null where there is none.
    [[nodiscard]] const ICalProperty *property(QByteArrayView wanted) const;
    template <typename Visit>
    void forEachProperty(QByteArrayView wanted, Visit &&visit) const
    {
        for (const ICalProperty &each : properties) {
            if (each.name == wanted)
                visit(each);
        }
    }
    template <typename Visit>
    void forEachComponent(QByteArrayView wanted, Visit &&visit) const
    {
        for (const ICalComponent &each : components) {
            if (each.name == wanted)
                visit(each);
        }
    }
};

/// A text read as iCalendar, as far as it is one. (libical is not used: it drops each property that it cannot take, 500
/// values of a list and 16 bits of an interval are all it takes, and a long line costs the square of its length.)
struct ICalDocument
{
    /// Holds what the components refer to.
    QByteArray text;
    ICalComponent root;
    /// What could not be read, for the log.
    Complaints complaints;
};

/// Any text gives a document, in time that grows with its length.
[[nodiscard]] ICalDocument parseICalendar(const QByteArray &text);

} // namespace mintaro
