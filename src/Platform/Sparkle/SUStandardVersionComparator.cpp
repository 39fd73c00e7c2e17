#include "Platform/Sparkle/SUStandardVersionComparator.h"

#include <QString>

#include <algorithm>
#include <vector>

namespace mintaro {

namespace {

using Parts = std::vector<QString>;

struct Version
{
    Parts release; ///< numbers, without zeros at the end
    Parts rest; ///< from the first letters on
};

bool isDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

/// Numbers come without zeros in front, 0 as nothing.
Parts parts(QStringView text)
{
    Parts parts;
    for (qsizetype i = 0; i < text.size();) {
        const auto belongs = isDigit(text[i]) ? isDigit : [](QChar c) { return c.isLetter(); };
        const auto end = std::find_if_not(text.begin() + i, text.end(), belongs);
        const auto part = text.mid(i, end - text.begin() - i);
        if (part.isEmpty()) {
            ++i;
            continue;
        }
        const auto digits = std::find_if(part.begin(), part.end(), [](QChar c) { return c != u'0'; });
        parts.push_back(isDigit(part[0]) ? part.mid(digits - part.begin()).toString() : part.toString());
        i += part.size();
    }
    return parts;
}

bool isNumber(const QString &part)
{
    return part.isEmpty() || isDigit(part[0]);
}

Version version(QStringView text)
{
    const QString lower = text.trimmed().toString().toLower();
    const qsizetype metadata = lower.indexOf(u'+');
    QStringView core = metadata < 0 ? QStringView(lower) : QStringView(lower).first(metadata);
    if (core.startsWith(u'v'))
        core = core.mid(1);
    const Parts all = parts(core);
    const auto letters = std::find_if_not(all.begin(), all.end(), isNumber);
    auto end = letters;
    while (end != all.begin() && std::prev(end)->isEmpty())
        --end;
    return { Parts(all.begin(), end), Parts(letters, all.end()) };
}

/// Letters tell of something earlier than a number does.
std::weak_ordering compareParts(const QString &a, const QString &b)
{
    if (isNumber(a) != isNumber(b))
        return isNumber(a) ? std::weak_ordering::greater : std::weak_ordering::less;
    if (isNumber(a) && a.size() != b.size())
        return a.size() <=> b.size();
    return a.compare(b) <=> 0;
}

std::weak_ordering compareAll(const Parts &a, const Parts &b)
{
    return std::lexicographical_compare_three_way(a.begin(), a.end(), b.begin(), b.end(), compareParts);
}

} // namespace

std::weak_ordering compareVersions(QStringView a, QStringView b)
{
    const Version left = version(a);
    const Version right = version(b);
    if (const auto order = compareAll(left.release, right.release); order != 0)
        return order;
    if (left.rest.empty() != right.rest.empty())
        return left.rest.empty() ? std::weak_ordering::greater : std::weak_ordering::less;
    return compareAll(left.rest, right.rest);
}

} // namespace mintaro
