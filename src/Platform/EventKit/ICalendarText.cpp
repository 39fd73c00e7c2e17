#include "Platform/EventKit/ICalendarText.h"

#include <QStringDecoder>

#include <array>

namespace mintaro {

namespace {

/// The parser's cost grows with the square of a line that is not folded.
constexpr qsizetype kMaximumLine = 256 * 1024;
constexpr int kMaximumParameters = 100;
constexpr int kMaximumDepth = 16;

/// Counts the parameters of a content line that may be folded over several physical ones.
class ParameterCounter
{
public:
    /// False where there are too many.
    bool take(QByteArrayView line)
    {
        const bool isContinuation = line.startsWith(' ') || line.startsWith('\t');
        if (!isContinuation)
            *this = ParameterCounter();
        for (qsizetype i = 0; i < line.size() && !m_inValue && m_count <= kMaximumParameters; ++i) {
            if (line[i] == '"')
                m_quoted = !m_quoted;
            else if (!m_quoted && line[i] == ':')
                m_inValue = true;
            else if (!m_quoted && line[i] == ';')
                ++m_count;
        }
        return m_count <= kMaximumParameters;
    }

private:
    int m_count = 0;
    bool m_quoted = false;
    bool m_inValue = false;
};

bool startsWithKeyword(QByteArrayView line, QByteArrayView keyword)
{
    return line.size() >= keyword.size() && qstrnicmp(line.data(), keyword.size(), keyword.data(), keyword.size()) == 0;
}

constexpr std::array<char16_t, 32> kWindows1252 { 0x20AC, 0x81, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6,
    0x2030, 0x0160, 0x2039, 0x0152, 0x8D, 0x017D, 0x8F, 0x90, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x9D, 0x017E, 0x0178 };

/// The length of the well-formed sequence at the front; 0 where there is none.
qsizetype sequenceLength(QByteArrayView bytes)
{
    const auto lead = static_cast<unsigned char>(bytes[0]);
    const qsizetype length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (length > bytes.size())
        return 0;
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString decoded = decoder(bytes.first(length));
    return decoder.hasError() || decoded.isEmpty() ? 0 : length;
}

QString decodeMixed(QByteArrayView bytes)
{
    QString text;
    while (!bytes.isEmpty()) {
        const qsizetype length = sequenceLength(bytes);
        if (length > 0) {
            text += QString::fromUtf8(bytes.first(length));
        } else {
            const auto byte = static_cast<unsigned char>(bytes[0]);
            text += QChar(byte >= 0x80 && byte < 0xA0 ? kWindows1252[byte - 0x80u] : byte);
        }
        bytes = bytes.sliced(std::max<qsizetype>(length, 1));
    }
    return text;
}

} // namespace

std::optional<QString> refusalOf(const QByteArray &text)
{
    ParameterCounter parameters;
    int depth = 0;
    int strayEnds = 0;
    for (qsizetype begin = 0; begin < text.size();) {
        qsizetype end = text.indexOf('\n', begin);
        if (end < 0)
            end = text.size();
        const QByteArrayView line = QByteArrayView(text).sliced(begin, end - begin);
        if (line.size() > kMaximumLine)
            return QStringLiteral("a line longer than 256 KiB");
        if (!parameters.take(line))
            return QStringLiteral("a property with more than 100 parameters");
        depth += startsWithKeyword(line, "BEGIN:") - startsWithKeyword(line, "END:");
        if (depth > kMaximumDepth)
            return QStringLiteral("components nested too deeply");
        // An END that ends nothing must not make room for more depth; the parser complains of each aloud.
        if (depth < 0) {
            depth = 0;
            if (++strayEnds > kMaximumDepth)
                return QStringLiteral("many an END without a BEGIN");
        }
        begin = end + 1;
    }
    return std::nullopt;
}

QString decodeText(const char *bytes)
{
    if (!bytes)
        return {};
    const QByteArrayView view(bytes);
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder(view);
    return decoder.hasError() ? decodeMixed(view) : text;
}

} // namespace mintaro
