#pragma once

#include <QByteArray>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace mintaro {

/// Part of a text, by its bytes.
struct TextSpan
{
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
};

/// The text in UTF-8, without a byte order mark and NULs; the same bytes where it is so already, or in an encoding that
/// does not say what it is.
[[nodiscard]] QByteArray plainText(const QByteArray &text);

/// Walks the unfolded content lines (RFC 5545 3.1) of a text, in one pass and in place. Takes what programs have
/// written in thirty years: a byte order mark, UTF-16, NULs, every kind of line end, the line breaks of
/// quoted-printable values in vCalendar 1.0, and line breaks within a value that nobody escaped.
class ContentLines
{
public:
    struct Line
    {
        QByteArrayView text;
        /// Where it stands in the plain text, with its line breaks and folds and the empty lines behind it.
        TextSpan span {};
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
    [[nodiscard]] std::uint32_t position() const { return static_cast<std::uint32_t>(m_at - m_text.constData()); }

    QByteArray m_text;
    QStringList m_complaints;
    char *m_at;
    char *m_end;
    /// The first at or after m_at that is known of.
    char *m_lineFeed;
    bool m_endsInLine = false;
};

} // namespace mintaro
