#include "Platform/EventKit/ICalComponent.h"

#include "Platform/EventKit/ContentLines.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace mintaro {

namespace {

/// More than any text that people write; a view could not show it either.
constexpr qsizetype kMaximumLine = 256 * 1024;
constexpr int kMaximumParameters = 100;
constexpr std::size_t kMaximumDepth = 16;

/// Where a byte stands outside of quotes, the size of the text where it does not.
qsizetype findUnquoted(QByteArrayView text, qsizetype from, char wanted)
{
    bool isQuoted = false;
    for (qsizetype i = from; i < text.size(); ++i) {
        if (text[i] == '"')
            isQuoted = !isQuoted;
        else if (text[i] == wanted && !isQuoted)
            return i;
    }
    return text.size();
}

/// Calls `visit` with each parameter that is not empty, for as long as it answers true.
template <typename Visit>
void visitParameters(QByteArrayView parameters, Visit &&visit)
{
    for (qsizetype begin = 0; begin < parameters.size();) {
        const qsizetype end = findUnquoted(parameters, begin, ';');
        if (end > begin && !visit(parameters.sliced(begin, end - begin)))
            return;
        begin = end + 1;
    }
}

template <std::size_t size>
bool isOneOf(QByteArrayView name, const std::array<QByteArrayView, size> &names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

bool isTimed(QByteArrayView name)
{
    return isOneOf<6>(name, { "DTSTART", "DTEND", "DUE", "RECURRENCE-ID", "EXDATE", "RDATE" });
}

/// The components that stand side by side in a calendar.
bool isEntry(QByteArrayView name)
{
    return isOneOf<5>(name, { "VEVENT", "VTODO", "VJOURNAL", "VFREEBUSY", "VTIMEZONE" });
}

/// Whether a component of one name in one of the other means that the end of the other is missing.
bool endsOther(QByteArrayView begun, QByteArrayView open)
{
    if (isEntry(open))
        return isEntry(begun) || begun == "VCALENDAR";
    return isOneOf<3>(open, { "VALARM", "STANDARD", "DAYLIGHT" })
        && (begun == open || isEntry(begun) || begun == "VCALENDAR");
}

/// The bytes turned into capitals where they stand: they belong to a document that nobody else sees yet.
QByteArrayView inCapitals(QByteArrayView name)
{
    auto *bytes = const_cast<char *>(name.data());
    std::transform(bytes, bytes + name.size(), bytes, [](unsigned char byte) { return std::toupper(byte); });
    return name;
}

QString excerpt(QByteArrayView line)
{
    QString text = QString::fromLatin1(line.first(std::min<qsizetype>(line.size(), 40)));
    std::replace_if(
        text.begin(), text.end(), [](QChar unit) { return unit < u' ' || unit == QChar(0x7f); }, QChar(u'?'));
    return text;
}

/// Zone names with colons in them should stand in quotes and often do not: the value begins where a day does.
qsizetype colonBeforeTime(QByteArrayView line, qsizetype first)
{
    const auto isBlank = [](char byte) { return byte == ' ' || byte == '\t'; };
    const auto isPart = [](char byte) { return (byte >= '0' && byte <= '9') || byte == '-'; };
    for (qsizetype colon = first; colon >= 0 && colon < line.size(); colon = line.indexOf(':', colon + 1)) {
        const auto value = std::find_if_not(line.begin() + colon + 1, line.end(), isBlank);
        if (line.end() - value >= 8 && std::all_of(value, value + 8, isPart))
            return colon;
    }
    return first;
}

/// Empty where the line is no property.
std::optional<ICalProperty> parseProperty(QByteArrayView line)
{
    const auto isNameEnd = [](char byte) { return byte == ':' || byte == ';'; };
    const qsizetype nameEnd = std::find_if(line.begin(), line.end(), isNameEnd) - line.begin();
    qsizetype colon = findUnquoted(line, nameEnd, ':');
    if (colon == line.size())
        colon = line.indexOf(':', nameEnd);
    QByteArrayView name = withoutBlanks(line.first(nameEnd));
    name = name.sliced(name.lastIndexOf('.') + 1);
    const auto isPart = [](unsigned char byte) { return std::isalnum(byte) != 0 || byte == '-' || byte == '_'; };
    if (colon < 0 || name.isEmpty() || !std::all_of(name.begin(), name.end(), isPart))
        return std::nullopt;
    inCapitals(name);
    if (isTimed(name))
        colon = colonBeforeTime(line, colon);
    return ICalProperty { name, line.sliced(nameEnd, colon - nameEnd), line.sliced(colon + 1) };
}

class DocumentBuilder
{
public:
    explicit DocumentBuilder(const QByteArray &text)
        : m_lines(text)
    {
        m_open.push_back(&m_document.root);
    }

    ICalDocument build()
    {
        while (const auto line = m_lines.next()) {
            m_span = line->span;
            if (m_open.size() > kMaximumDepth) {
                complain(QStringLiteral("components nested too deeply, read up to there"));
                break;
            }
            take(*line);
            m_span.begin = m_span.end;
        }
        if (m_document.root.components.empty())
            m_document.complaints = Complaints({ QStringLiteral("no iCalendar object") });
        else if (m_open.size() > 1)
            complain(QStringLiteral("cut off at the end"));
        while (m_open.size() > 1)
            closeDamaged();
        m_document.text = m_lines.buffer();
        m_document.complaints = Complaints(m_lines.complaints() + m_document.complaints.all());
        return std::move(m_document);
    }

private:
    void take(const ContentLines::Line &line)
    {
        if (line.text.size() > kMaximumLine)
            return lose(QStringLiteral("a line longer than 256 KiB"));
        const auto property = parseProperty(line.text);
        if (!property)
            lose(QStringLiteral("a line that is no property: \"%1\"").arg(excerpt(line.text)));
        else if (property->parameters.count(';') > kMaximumParameters)
            lose(QStringLiteral("a property with more than 100 parameters"));
        else if (property->name == "BEGIN")
            begin(inCapitals(withoutBlanks(property->value)));
        else if (property->name == "END")
            end(inCapitals(withoutBlanks(property->value)));
        else
            add(*property, line);
    }

    void add(const ICalProperty &property, const ContentLines::Line &line)
    {
        if (m_open.size() == 1)
            return complain(QStringLiteral("text outside of a calendar"));
        // What follows shows whether the line was whole; half a time is worse than none.
        if (line.isCut)
            return;
        if (line.wasBroken) {
            complain(QStringLiteral("a line break within %1").arg(QString::fromLatin1(property.name)));
            m_open.back()->isDamaged = true;
        }
        m_open.back()->properties.push_back(property);
        m_open.back()->properties.back().source = m_span;
    }

    void begin(QByteArrayView name)
    {
        const auto isEnded = [name](const ICalComponent *open) { return endsOther(name, open->name); };
        while (std::any_of(m_open.begin(), m_open.end(), isEnded)) {
            complain(QStringLiteral("%1 without an end").arg(QString::fromLatin1(m_open.back()->name)));
            closeDamaged();
        }
        ICalComponent &component = m_open.back()->components.emplace_back();
        component.name = name;
        component.head = m_span;
        m_open.push_back(&component);
    }

    void end(QByteArrayView name)
    {
        const auto isBegun = [name](const ICalComponent *open) { return open->name == name; };
        if (m_open.size() == 1 || std::none_of(m_open.begin() + 1, m_open.end(), isBegun))
            return complain(QStringLiteral("an END without a BEGIN"));
        while (m_open.back()->name != name) {
            complain(QStringLiteral("%1 without an end").arg(QString::fromLatin1(m_open.back()->name)));
            closeDamaged();
        }
        m_open.back()->tail = m_span;
        m_open.pop_back();
    }

    void closeDamaged()
    {
        m_open.back()->isDamaged = true;
        m_open.back()->tail = { m_span.begin, m_span.begin };
        m_open.pop_back();
    }

    void lose(const QString &what)
    {
        m_open.back()->isDamaged = true;
        complain(what);
    }

    void complain(const QString &text) { m_document.complaints.add(text); }

    ContentLines m_lines;
    /// Of the present line.
    TextSpan m_span;
    ICalDocument m_document;
    /// The root and the components that have no end yet. None of them moves: only the last one gets new components.
    std::vector<ICalComponent *> m_open;
};

} // namespace

QByteArrayView withoutBlanks(QByteArrayView text)
{
    const auto isBlank = [](char byte) { return byte == ' ' || byte == '\t'; };
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

std::optional<QByteArrayView> ICalProperty::parameter(QByteArrayView wanted) const
{
    std::optional<QByteArrayView> found;
    visitParameters(parameters, [&](QByteArrayView each) {
        const qsizetype sign = std::max<qsizetype>(each.indexOf('='), 0);
        if (withoutBlanks(each.first(sign)).compare(wanted, Qt::CaseInsensitive) != 0)
            return true;
        const QByteArrayView text = withoutBlanks(each.sliced(sign + 1));
        const bool isQuoted = text.size() >= 2 && text.front() == '"' && text.back() == '"';
        found = isQuoted ? text.sliced(1, text.size() - 2) : text;
        return false;
    });
    return found;
}

std::vector<QByteArrayView> ICalProperty::parameterList() const
{
    std::vector<QByteArrayView> list;
    visitParameters(parameters, [&list](QByteArrayView each) {
        list.push_back(each);
        return true;
    });
    return list;
}

const ICalProperty *ICalComponent::property(QByteArrayView wanted) const
{
    const auto found
        = std::find_if(properties.begin(), properties.end(), [&](const auto &each) { return each.name == wanted; });
    return found == properties.end() ? nullptr : &*found;
}

ICalDocument parseICalendar(const QByteArray &text)
{
    return DocumentBuilder(text).build();
}

} // namespace mintaro
