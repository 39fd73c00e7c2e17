#include "Platform/EventKit/Folders/IniFile.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>

namespace mintaro {

namespace {

QString withoutComment(const QString &text)
{
    static const QRegularExpression comment(QStringLiteral("(^|\\s)#.*$"));
    return QString(text).remove(comment).trimmed();
}

QString unquoted(const QString &text)
{
    const QChar quote = text.isEmpty() ? QChar() : text.front();
    const qsizetype end = quote == u'"' || quote == u'\'' ? text.indexOf(quote, 1) : -1;
    const bool isWhole = end > 0 && withoutComment(text.mid(end + 1)).isEmpty();
    return isWhole ? text.mid(1, end - 1) : withoutComment(text);
}

IniEntry entryOf(const QString &line, int number)
{
    const qsizetype equals = line.indexOf(u'=');
    if (equals < 0)
        return { {}, line, number };
    return { line.left(equals).trimmed(), unquoted(line.mid(equals + 1).trimmed()), number };
}

/// The path of headings after this one; unchanged when the line is no heading.
QStringList headingPath(QStringList path, const QString &line)
{
    static const QRegularExpression heading(QStringLiteral("^(\\[+)\\s*([^\\[\\]]+?)\\s*\\]+\\s*(#.*)?$"));
    const QRegularExpressionMatch match = heading.match(line);
    if (!match.hasMatch())
        return path;
    const qsizetype depth = match.capturedLength(1);
    path = path.first(std::min(depth - 1, path.size()));
    path.append(match.captured(2));
    return path;
}

} // namespace

QString IniSection::value(const QString &key) const
{
    const auto entry = std::find_if(entries.rbegin(), entries.rend(), [&](const IniEntry &e) { return e.key == key; });
    return entry == entries.rend() ? QString() : entry->value;
}

std::vector<IniSection> readIni(const QString &text)
{
    std::vector<IniSection> sections(1);
    QStringList path;
    int number = 0;
    for (const QString &rawLine : text.split(u'\n')) {
        ++number;
        const QString line = rawLine.trimmed();
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        const QStringList next = line.startsWith(u'[') ? headingPath(path, line) : path;
        if (next == path) {
            sections.back().entries.push_back(entryOf(line, number));
            continue;
        }
        path = next;
        sections.push_back({ path.join(u'/'), number, {} });
    }
    return sections;
}

} // namespace mintaro
