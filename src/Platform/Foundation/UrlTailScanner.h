#pragma once

#include <QStringView>

#include <optional>
#include <vector>

namespace mintaro {

/// Finds where the path, query and fragment of a URL in running text end: closing punctuation, unbalanced brackets and
/// what HTML and Markdown put behind a link are left out. One scanner serves one text; all its calls for links that
/// follow each other take linear time together.
class UrlTailScanner
{
public:
    explicit UrlTailScanner(QStringView text)
        : m_text(text)
    {
    }

    /// `start` is where the link begins, `tail` where its authority ends. Returns `tail` where nothing follows.
    [[nodiscard]] qsizetype end(qsizetype start, qsizetype tail);

private:
    [[nodiscard]] qsizetype scan(qsizetype tail, QChar opener);
    [[nodiscard]] bool endsAt(qsizetype i, qsizetype tail) const;
    [[nodiscard]] bool isPictureInside(qsizetype i, qsizetype tail) const;
    [[nodiscard]] bool isEntityAt(qsizetype i) const;
    [[nodiscard]] bool isNextLinkAt(qsizetype i, qsizetype tail) const;
    [[nodiscard]] qsizetype trimmed(qsizetype tail, qsizetype end, QChar opener) const;
    [[nodiscard]] bool isUnclosed(qsizetype i);
    void findUnclosedBrackets();

    QStringView m_text;
    std::optional<std::vector<qsizetype>> m_unclosed; ///< offsets of opening brackets without a partner, ascending
};

} // namespace mintaro
