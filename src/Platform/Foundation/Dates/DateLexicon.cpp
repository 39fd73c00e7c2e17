#include "Platform/Foundation/Dates/DateLexicon.h"

#include "Platform/Foundation/Dates/DateText.h"

namespace mintaro {

namespace {

QStringList writings(std::u16string_view list)
{
    return QString::fromUtf16(list.data(), static_cast<qsizetype>(list.size())).split(u'|', Qt::SkipEmptyParts);
}

} // namespace

std::size_t DateVocabulary::Hash::operator()(QStringView word) const
{
    // FNV-1a: the words are short.
    std::size_t hash = 0xcbf29ce484222325;
    for (const QChar character : word)
        hash = (hash ^ character.unicode()) * 0x100000001b3;
    return hash;
}

int DateVocabulary::numberOf(QStringView folded) const
{
    const auto found = m_numbers.find(folded);
    return found == m_numbers.end() ? 0 : found->second;
}

int DateVocabulary::add(QStringView folded)
{
    if (const int number = numberOf(folded))
        return number;
    m_words.push_back(folded.toString());
    m_numbers.emplace(m_words.back(), static_cast<int>(m_words.size()));
    return static_cast<int>(m_words.size());
}

DateLexicon::DateLexicon(const DateLanguage &language, DateVocabulary &vocabulary)
    : m_language(language)
{
    for (const WordRow &row : language.rows)
        add(row, vocabulary);
    int value = 0;
    for (const QString &number : writings(language.numbers))
        add({ WordKind::Number, value++, number.toStdU16String() }, vocabulary);
    value = 1;
    for (const QString &ordinal : writings(language.ordinals))
        add({ WordKind::Ordinal, value++, ordinal.toStdU16String() }, vocabulary);
}

void DateLexicon::add(const WordRow &row, DateVocabulary &vocabulary)
{
    for (const QString &writing : writings(row.writings)) {
        const DateTokens tokens = newDateTokens(writing, vocabulary);
        Entry entry { row.kind, static_cast<qint16>(row.value), static_cast<quint8>(row.traits), {} };
        for (auto token = tokens.cbegin() + 1; token != tokens.cend(); ++token)
            entry.rest.push_back(token->code);
        const int first = tokens.front().code;
        m_ofWords.resize(static_cast<std::size_t>(vocabulary.size()));
        auto &entries = first < 0 ? m_ofMarks[first] : m_ofWords[static_cast<std::size_t>(first)];
        entries.push_back(std::move(entry));
    }
}

std::span<const DateLexicon::Entry> DateLexicon::entries(int code) const
{
    if (code > 0)
        return static_cast<std::size_t>(code) < m_ofWords.size() ? m_ofWords[static_cast<std::size_t>(code)]
                                                                 : std::span<const Entry>();
    const auto found = code < 0 ? m_ofMarks.find(code) : m_ofMarks.end();
    return found == m_ofMarks.end() ? std::span<const Entry>() : found->second;
}

DateLexicons::DateLexicons()
    : english(englishDateLanguage(), vocabulary)
    , italian(italianDateLanguage(), vocabulary)
{
}

const DateLexicons &DateLexicons::shared()
{
    static const DateLexicons lexicons;
    return lexicons;
}

} // namespace mintaro
