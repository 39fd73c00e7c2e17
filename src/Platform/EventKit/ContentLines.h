#pragma once

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace mintaro {

/// Walks the unfolded content lines (RFC 5545 3.1) of a text, in one pass and in place. Takes what programs have
/// written in thirty years: a byte order mark, UTF-16, NULs, every kind of line end, the line breaks of
/// quoted-printable values in vCalendar 1.0, and line breaks within a value that nobody escaped.
class ContentLines
{
public:
    struct Line
    {
        QByteArrayView text;
        /// A line break stood in it that should have been escaped.
        bool wasBroken = false;
        /// The text ends in it.
        bool isCut = false;
    };

    explicit ContentLines(const QByteArray &text);

    /// The next line that is not empty; nothing at the end. Lines hold as long as the buffer.
    [[nodiscard]] std::optional<Line> next();

    /// What the lines are parts of.
    [[nodiscard]] const QByteArray &buffer() const { return m_text; }
    /// What is odd about the text as a whole, for the log.
    [[nodiscard]] const QStringList &complaints() const { return m_complaints; }

private:
    struct Span
    {
        char *begin;
        char *end;
    };

    [[nodiscard]] Span takePhysical();
    void append(Span &line, char separator);

    QByteArray m_text;
    QStringList m_complaints;
    char *m_at;
    char *m_end;
    /// The first at or after m_at that is known of.
    char *m_lineFeed;
    bool m_endsInLine = false;
};

} // namespace mintaro
