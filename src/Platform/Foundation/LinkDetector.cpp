#include "Platform/Foundation/LinkDetector.h"

#include "Platform/Foundation/BareHost.h"
#include "Platform/Foundation/LinkCharacters.h"
#include "Platform/Foundation/UrlTailScanner.h"

#include <algorithm>
#include <array>

namespace mintaro {

namespace {

/// Schemes that are used without "//" and whose inside must not be taken for a host or an address. Other words before a
/// colon are labels ("Website:example.com").
constexpr std::array<QStringView, 27> opaqueSchemes { u"about", u"bitcoin", u"blob", u"callto", u"cid", u"data",
    u"facetime", u"facetime-audio", u"file", u"ftp", u"geo", u"im", u"javascript", u"jdbc", u"magnet", u"mid",
    u"msteams", u"sip", u"sips", u"skype", u"sms", u"tel", u"urn", u"vbscript", u"view-source", u"xmpp", u"zoommtg" };

bool isUserInfoCharacter(QChar c)
{
    return isAsciiLetter(c.unicode()) || isAsciiDigit(c.unicode()) || QStringView(u"-._~%!$&*+=:").contains(c);
}

/// What may stand in the name of an e-mail address beside word characters. RFC 5322 allows more, but in text that
/// is more often a separator.
bool isNameMark(char32_t c)
{
    return std::u32string_view(U".-_+%&'").find(c) != std::u32string_view::npos;
}

bool endsWithWord(QStringView run, QStringView word)
{
    if (!run.endsWith(word, Qt::CaseInsensitive))
        return false;
    return run.size() == word.size() || !run[run.size() - word.size() - 1].isLetterOrNumber();
}

/// One pass over one text. At every word (a run of letters, digits, "-", "_" and single dots) what follows decides
/// which kind of link it can begin, and a word that is none is never looked at again.
class Scan
{
public:
    explicit Scan(const QString &text)
        : m_text(text)
        , m_tails(m_text)
    {
    }

    [[nodiscard]] std::optional<LinkDetector::Match> next();

private:
    using Result = std::optional<LinkDetector::Match>;

    Result atColon(qsizetype start, qsizetype end);
    Result webUrl(qsizetype start, qsizetype authority);
    Result mailUrl(qsizetype start, qsizetype address);
    Result email(qsizetype at);
    Result bareHost(qsizetype start, qsizetype end);
    void skipUrl(qsizetype start, qsizetype inside);

    [[nodiscard]] qsizetype runEnd(qsizetype start) const;
    [[nodiscard]] qsizetype authorityEnd(qsizetype start) const;
    [[nodiscard]] qsizetype hostNameEnd(qsizetype start) const;
    [[nodiscard]] qsizetype addressLiteralEnd(qsizetype start) const;
    [[nodiscard]] qsizetype portEnd(qsizetype hostEnd) const;
    [[nodiscard]] qsizetype nameStart(qsizetype at) const;
    [[nodiscard]] qsizetype followingAt(qsizetype i) const;
    [[nodiscard]] bool canBeginHost(qsizetype start) const;
    [[nodiscard]] bool isCodeAt(qsizetype i) const;
    [[nodiscard]] bool isHeadersAt(qsizetype i) const;
    [[nodiscard]] bool isMarkup();

    Result match(qsizetype start, qsizetype end, QStringView scheme);
    [[nodiscard]] QChar at(qsizetype i) const { return i >= 0 && i < m_text.size() ? m_text[i] : QChar(); }

    QStringView m_text;
    UrlTailScanner m_tails;
    qsizetype m_position = 0;
    qsizetype m_floor = 0; ///< the end of what was taken or ruled out; an address never reaches back behind it
    std::optional<bool> m_isMarkup;
};

Scan::Result Scan::next()
{
    while (m_position < m_text.size()) {
        const char32_t c = codePointAt(m_text, m_position);
        if (!isLabelCharacter(c)) {
            m_position += unitCount(c);
            continue;
        }
        const qsizetype start = m_position;
        const qsizetype end = runEnd(start);
        m_position = end;
        Result result;
        if (at(end) == u':')
            result = atColon(start, end);
        else if (at(end) == u'@')
            result = email(end);
        else
            result = bareHost(start, end);
        if (result)
            return result;
    }
    return std::nullopt;
}

Scan::Result Scan::atColon(qsizetype start, qsizetype end)
{
    const QStringView run = m_text.sliced(start, end - start);
    if (startsWithAt(m_text, end, u"://")) {
        const qsizetype length = run.endsWith(u"https", Qt::CaseInsensitive) ? 5
            : run.endsWith(u"http", Qt::CaseInsensitive)                     ? 4
                                                                             : 0;
        if (length == 0 || at(start - 1) == u'+') {
            skipUrl(start, end + 3);
            return std::nullopt;
        }
        Result glued = length < run.size() ? bareHost(start, end - length) : std::nullopt;
        if (!glued)
            return webUrl(end - length, end + 3);
        m_position = m_floor = end - length;
        return glued;
    }
    if (endsWithWord(run, u"mailto"))
        return mailUrl(end - 6, end + 1);
    const bool isOpaque = std::ranges::any_of(opaqueSchemes, [run](QStringView s) { return endsWithWord(run, s); });
    if (!isOpaque)
        return bareHost(start, end);
    skipUrl(start, end + 1);
    return std::nullopt;
}

Scan::Result Scan::webUrl(qsizetype start, qsizetype authority)
{
    m_position = m_floor = authority;
    const qsizetype end = authorityEnd(authority);
    if (end == authority)
        return std::nullopt;
    const bool hasTail = at(end) == u'/' || at(end) == u'?' || at(end) == u'#';
    return match(start, hasTail ? m_tails.end(start, end) : end, {});
}

/// RFC 6068: addresses or headers, at least one of the two.
Scan::Result Scan::mailUrl(qsizetype start, qsizetype address)
{
    const qsizetype end = m_tails.end(start, address);
    m_position = m_floor = std::max(address, end);
    const QStringView inside = m_text.sliced(address, end - address);
    const qsizetype headers = inside.indexOf(u'?');
    const QStringView to = headers < 0 ? inside : inside.first(headers);
    const qsizetype sign = to.indexOf(u'@');
    const bool isAddress = sign > 0 && sign + 1 < to.size() && to[sign + 1].isLetterOrNumber();
    if (!isAddress && !(to.isEmpty() && inside.contains(u'=')))
        return std::nullopt;
    return match(start, end, {});
}

Scan::Result Scan::email(qsizetype sign)
{
    const qsizetype start = nameStart(sign);
    const qsizetype run = runEnd(sign + 1);
    m_position = std::max(run, sign + 1);
    QStringView host = m_text.sliced(sign + 1, run - sign - 1);
    while (host.endsWith(u'-') || host.endsWith(u'_'))
        host.chop(1);
    host = withoutNextSentence(host);
    const bool isMention = start == sign || at(sign - 1) == u'.' || at(start - 1) == u'@';
    const qsizetype end = sign + 1 + host.size();
    // `git@example.com:acme/tool` is the address of a repository.
    const bool isRemotePath
        = at(end) == u':' && (at(end + 1).isLetterOrNumber() || at(end + 1) == u'/' || at(end + 1) == u'~');
    m_floor = m_position;
    if (isMention || isRemotePath || at(end) == u'@' || !hasKnownTopLevelDomain(host))
        return std::nullopt;
    return match(start, isHeadersAt(end) ? m_tails.end(start, end) : end, u"mailto:");
}

Scan::Result Scan::bareHost(qsizetype start, qsizetype end)
{
    while (start < end && (m_text[start] == u'-' || m_text[start] == u'_'))
        ++start;
    qsizetype hostEnd = end;
    while (hostEnd > start && (m_text[hostEnd - 1] == u'-' || m_text[hostEnd - 1] == u'_'))
        --hostEnd;
    QStringView host = m_text.sliced(start, hostEnd - start);
    if (!host.contains(u'.') || !canBeginHost(start))
        return std::nullopt;
    if (const qsizetype sign = followingAt(end); sign > end)
        return email(sign);
    host = withoutNextSentence(host);
    hostEnd = start + host.size();
    const bool hasRest = hostEnd == end;
    const qsizetype tail = hasRest ? portEnd(hostEnd) : hostEnd;
    const HostPath path = hasRest && at(tail) == u'/' ? HostPath::Present : HostPath::Absent;
    if (isCodeAt(tail) || !hasKnownTopLevelDomain(host) || !isMeantAsHost(host, path))
        return std::nullopt;
    const bool hasTail = hasRest && (at(tail) == u'/' || at(tail) == u'?' || at(tail) == u'#');
    return match(start, hasTail ? m_tails.end(start, tail) : tail, u"http://");
}

/// Passes over a URL of a scheme that gives no link.
void Scan::skipUrl(qsizetype start, qsizetype inside)
{
    m_position = m_floor = std::max(inside, m_tails.end(start, inside));
}

qsizetype Scan::runEnd(qsizetype start) const
{
    bool wasCjk = false;
    qsizetype i = start;
    while (i < m_text.size()) {
        const char32_t c = codePointAt(m_text, i);
        const bool isSingleDot
            = c == U'.' && i > start && i + 1 < m_text.size() && isLabelCharacter(codePointAt(m_text, i + 1));
        if (!isLabelCharacter(c) && !isSingleDot)
            break;
        const bool isWord = isWordCharacter(c);
        if (isWord && i > start && isCjk(c) != wasCjk && at(i - 1) != u'.')
            break;
        wasCjk = isWord ? isCjk(c) : wasCjk;
        i += unitCount(c);
    }
    return i;
}

/// `start` where there is no authority that could be meant.
qsizetype Scan::authorityEnd(qsizetype start) const
{
    qsizetype host = start;
    while (host < m_text.size() && isUserInfoCharacter(m_text[host]))
        ++host;
    host = at(host) == u'@' ? host + 1 : start;
    const qsizetype end = at(host) == u'[' ? addressLiteralEnd(host) : hostNameEnd(host);
    return end == host ? start : portEnd(end);
}

qsizetype Scan::hostNameEnd(qsizetype start) const
{
    qsizetype first = start;
    while (first < m_text.size() && isPicture(codePointAt(m_text, first)))
        first += unitCount(codePointAt(m_text, first));
    qsizetype end = runEnd(first);
    if (end == first)
        return start;
    if (startsWithAt(m_text, end, u"://")) {
        for (const QStringView scheme : { QStringView(u"https"), QStringView(u"http") }) {
            if (m_text.sliced(start, end - start).endsWith(scheme, Qt::CaseInsensitive))
                return end - scheme.size();
        }
    }
    if (at(end) == u'.' && at(end + 1) == u'/')
        return end + 1;
    if (QStringView(u"/:?#").contains(at(end)))
        return end;
    while (end > start && (m_text[end - 1] == u'-' || m_text[end - 1] == u'_'))
        --end;
    return start + withoutNextSentence(m_text.sliced(start, end - start)).size();
}

/// An IPv6 address in brackets, RFC 3986 section 3.2.2.
qsizetype Scan::addressLiteralEnd(qsizetype start) const
{
    qsizetype i = start + 1;
    while (isHexDigit(at(i).unicode()) || at(i) == u':' || at(i) == u'.')
        ++i;
    return at(i) == u']' && i > start + 2 ? i + 1 : start;
}

/// `hostEnd` where no port follows.
qsizetype Scan::portEnd(qsizetype hostEnd) const
{
    constexpr qsizetype longestPort = 5;
    if (at(hostEnd) != u':')
        return hostEnd;
    qsizetype i = hostEnd + 1;
    while (i - hostEnd <= longestPort && isAsciiDigit(at(i).unicode()))
        ++i;
    const bool isEmpty = i == hostEnd + 1;
    const bool isPort = isEmpty ? at(i) == u'/' && at(i + 1) != u'/' : !at(i).isLetterOrNumber();
    return isPort ? i : hostEnd;
}

/// Where the name of the address with its "@" at `sign` begins; `sign` where there is none.
qsizetype Scan::nameStart(qsizetype sign) const
{
    qsizetype i = sign;
    while (i > m_floor) {
        const QChar c = m_text[i - 1];
        const bool isWord = isWordCharacter(c.unicode());
        const bool touchesCjk = isWord && i < sign && isWordCharacter(m_text[i].unicode())
            && isCjk(c.unicode()) != isCjk(m_text[i].unicode());
        const bool isDoubleDot = c == u'.' && at(i) == u'.';
        if (touchesCjk || isDoubleDot || !(isWord || isNameMark(c.unicode())))
            break;
        // "o'brien@", but not the elided article of "dall'info@".
        const bool isElision = c == u'\'' && (!QStringView(u"oOdD").contains(at(i - 2)) || at(i - 3).isLetter());
        if (isElision)
            break;
        --i;
    }
    while (i < sign && !isWordCharacter(m_text[i].unicode()))
        ++i;
    return i;
}

/// The offset of the "@" when what goes on at `i` is still the name of an address ("example.com+tag@"), else `i`.
qsizetype Scan::followingAt(qsizetype i) const
{
    constexpr qsizetype longestName = 64; // RFC 5321 section 4.5.3.1.1
    if (!isNameMark(at(i).unicode()))
        return i;
    qsizetype sign = i;
    while (sign - i < longestName && (at(sign).isLetterOrNumber() || isNameMark(at(sign).unicode())))
        ++sign;
    return at(sign) == u'@' ? sign : i;
}

/// Behind these a name is part of something else: a path, a handle, a wildcard, a variable.
bool Scan::canBeginHost(qsizetype start) const
{
    const QChar before = at(start - 1);
    const QChar second = at(start - 2);
    if (before == u'.' || before == u'-' || before == u':')
        return before == u'.' ? second == u'.' : second != before;
    return !QStringView(u"/\\@#$%+&").contains(before);
}

/// A call, an index, an assignment, a Windows login.
bool Scan::isCodeAt(qsizetype i) const
{
    const QChar c = at(i);
    const QChar after = at(i + 1);
    if (c == u'(')
        return after == u')' || after == u'"' || after == u'\'';
    if (c == u'[')
        return after.isDigit();
    if (c == u' ')
        return after == u'=';
    return c == u'=' || (c == u'\\' && after.isLetterOrNumber() && after != u'n');
}

/// `?subject=` and the like.
bool Scan::isHeadersAt(qsizetype i) const
{
    if (at(i) != u'?')
        return false;
    constexpr qsizetype longestHeader = 16;
    const QStringView header = m_text.sliced(i + 1, std::min(longestHeader, m_text.size() - i - 1));
    const qsizetype equals = header.indexOf(u'=');
    return equals > 0 && std::ranges::all_of(header.first(equals), [](QChar c) { return c.isLetter() || c == u'-'; });
}

/// In HTML "&" is written "&amp;", also within links.
bool Scan::isMarkup()
{
    if (!m_isMarkup)
        m_isMarkup = m_text.contains(u"</") || m_text.contains(u"<br", Qt::CaseInsensitive)
            || m_text.contains(u"href=", Qt::CaseInsensitive);
    return *m_isMarkup;
}

Scan::Result Scan::match(qsizetype start, qsizetype end, QStringView scheme)
{
    m_position = m_floor = std::max(m_position, end);
    QString text = scheme.toString();
    text += m_text.sliced(start, end - start);
    if (text.contains(u"&amp;") && isMarkup())
        text.replace(QStringLiteral("&amp;"), QStringLiteral("&"));
    const std::optional<URL> url = URL::fromString(text);
    if (!url)
        return std::nullopt;
    return LinkDetector::Match { start, end - start, *url };
}

/// Every link has one of these; most texts have none.
bool canHaveLinks(QStringView text)
{
    return text.contains(u'.') || text.contains(u':') || text.contains(u'@');
}

} // namespace

LinkDetector::LinkDetector() = default;

std::vector<LinkDetector::Match> LinkDetector::matches(const QString &text) const
{
    std::vector<Match> found;
    if (!canHaveLinks(text))
        return found;
    Scan scan(text);
    while (std::optional<Match> match = scan.next())
        found.push_back(std::move(*match));
    return found;
}

std::optional<LinkDetector::Match> LinkDetector::firstMatch(const QString &text) const
{
    return canHaveLinks(text) ? Scan(text).next() : std::nullopt;
}

} // namespace mintaro
