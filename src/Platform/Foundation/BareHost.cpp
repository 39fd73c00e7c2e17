#include "Platform/Foundation/BareHost.h"

#include "Platform/Foundation/LinkCharacters.h"
#include "Platform/Foundation/PublicSuffix.h"

#include <QStringTokenizer>

#include <algorithm>
#include <array>

namespace mintaro {

namespace {

/// Top-level domains that are far more often the ending of a file's name.
constexpr std::array<QStringView, 9> fileEndings { u"cab", u"java", u"md", u"mobi", u"mov", u"py", u"rs", u"sh",
    u"zip" };
/// Those that are one only behind a name that files usually have.
constexpr std::array<QStringView, 19> rareFileEndings { u"ac", u"ai", u"am", u"as", u"bz", u"cc", u"gs", u"in", u"la",
    u"mk", u"ml", u"mo", u"pl", u"pm", u"ps", u"pt", u"pub", u"so", u"tf" };
constexpr std::array<QStringView, 29> fileNames { u"app", u"build", u"changelog", u"config", u"configure", u"document",
    u"hello", u"index", u"init", u"install", u"lib", u"license", u"logo", u"main", u"makefile", u"mod", u"model",
    u"module", u"notes", u"plugin", u"readme", u"run", u"script", u"server", u"setup", u"start", u"test", u"todo",
    u"utils" };
/// First labels of reversed names, as packages and D-Bus services have them.
constexpr std::array<QStringView, 8> packageRoots { u"com", u"edu", u"gov", u"io", u"java", u"javax", u"net", u"org" };
/// First labels of names in programs: "java.io", "self.name".
constexpr std::array<QStringView, 6> codeRoots { u"android", u"java", u"javax", u"kotlin", u"self", u"this" };
/// Italian contractions end in letters that are also country codes: "gent.ma", "sig.na", "dott.re".
constexpr std::array<QStringView, 13> contractedWords { u"amm", u"ass", u"avv", u"chiar", u"dir", u"dott", u"gent",
    u"ill", u"ing", u"preg", u"prof", u"rev", u"sig" };
constexpr std::array<QStringView, 6> contractionEndings { u"ma", u"mo", u"na", u"ne", u"re", u"to" };

template <std::size_t size>
bool isOneOf(const std::array<QStringView, size> &words, QStringView word)
{
    return std::ranges::any_of(words, [word](QStringView w) { return w.compare(word, Qt::CaseInsensitive) == 0; });
}

bool isNumber(QStringView label)
{
    return !label.isEmpty() && std::ranges::all_of(label, [](QChar c) { return isAsciiDigit(c.unicode()); });
}

bool isUppercase(QStringView text)
{
    return std::ranges::none_of(text, [](QChar c) { return c.isLower(); });
}

bool isCapitalised(QStringView label)
{
    return label.size() >= 2 && label[0].isUpper()
        && std::ranges::all_of(label.sliced(1), [](QChar c) { return c.isLower(); });
}

bool isValidLabel(QStringView label)
{
    constexpr qsizetype longestLabel = 63;
    return !label.isEmpty() && label.size() <= longestLabel && !label.startsWith(u'-') && !label.endsWith(u'-');
}

/// A host that has at least two labels, seen by its parts.
struct Labels
{
    explicit Labels(QStringView host)
        : name(host)
        , top(host.sliced(host.lastIndexOf(u'.') + 1))
        , rest(host.chopped(top.size() + 1))
        , first(host.first(host.indexOf(u'.')))
        , count(host.count(u'.') + 1)
    {
    }

    QStringView name;
    QStringView top;
    QStringView rest; ///< all in front of the top-level domain
    QStringView first;
    qsizetype count;
};

/// "1.4.dev", "v2.0.0-beta.is", "10.am".
bool isVersion(const Labels &labels)
{
    const QStringView number = labels.first.sliced(labels.first.startsWith(u'v', Qt::CaseInsensitive) ? 1 : 0);
    if (!isNumber(number))
        return false;
    if (labels.count == 2)
        return labels.top.size() == 2;
    for (const QStringView label : labels.rest.sliced(labels.first.size() + 1).tokenize(u'.')) {
        if (!isAsciiDigit(label[0].unicode()))
            return false;
    }
    return true;
}

bool isFile(const Labels &labels, HostPath path)
{
    const bool isUsualName = isOneOf(fileNames, labels.first);
    if (isOneOf(fileEndings, labels.top))
        return path == HostPath::Absent || isUsualName;
    if (labels.top.compare(u"app", Qt::CaseInsensitive) == 0)
        return std::ranges::any_of(labels.rest, [](QChar c) { return c.isUpper(); });
    if (path == HostPath::Present || !isOneOf(rareFileEndings, labels.top))
        return false;
    return isUsualName || (labels.top == u"so" && labels.rest.startsWith(u"lib"));
}

bool isPackage(const Labels &labels)
{
    const bool isCode = isOneOf(codeRoots, labels.first) && labels.top != u"com";
    return isCode || (labels.count > 2 && isOneOf(packageRoots, labels.first));
}

bool isAbbreviation(const Labels &labels)
{
    if (labels.count != 2)
        return false;
    const bool isShort = labels.rest.size() == 1 && labels.top.size() == 2; // "p.es", "c.so", "v.le"
    return isShort || (isOneOf(contractedWords, labels.rest) && isOneOf(contractionEndings, labels.top));
}

/// "at the end.Next week": no sentence begins with the two that people do write in this way.
bool isTwoSentences(const Labels &labels)
{
    return isCapitalised(labels.top) && labels.top != u"Com" && labels.top != u"Org";
}

/// "ASP.NET", "System.IO".
bool isProduct(const Labels &labels)
{
    const bool isWrittenApart = labels.top.size() == 2 && isUppercase(labels.top) && !isUppercase(labels.rest);
    return isWrittenApart || (labels.top == u"NET" && labels.rest.size() <= 3);
}

} // namespace

bool hasKnownTopLevelDomain(QStringView host)
{
    constexpr qsizetype longestHost = 253;
    if (host.size() > longestHost || !host.contains(u'.'))
        return false;
    for (const QStringView label : host.tokenize(u'.')) {
        if (!isValidLabel(label))
            return false;
    }
    const Labels labels(host);
    return !labels.rest.sliced(labels.rest.lastIndexOf(u'.') + 1).contains(u'_') && isPublicSuffix(labels.top);
}

QStringView withoutNextSentence(QStringView host)
{
    const qsizetype dot = host.lastIndexOf(u'.');
    if (dot < 0 || !isCapitalised(host.sliced(dot + 1)) || !hasKnownTopLevelDomain(host.first(dot)))
        return host;
    return host.first(dot);
}

bool isMeantAsHost(QStringView host, HostPath path)
{
    const Labels labels(host);
    if (labels.first.compare(u"www", Qt::CaseInsensitive) == 0)
        return true;
    if (isVersion(labels) || isFile(labels, path) || isProduct(labels))
        return false;
    if (path == HostPath::Present)
        return true;
    return !isPublicSuffix(host) && !isPackage(labels) && !isAbbreviation(labels) && !isTwoSentences(labels);
}

} // namespace mintaro
