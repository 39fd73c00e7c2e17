#include "Platform/Foundation/Color.h"

namespace mintaro {

std::optional<Color> Color::fromHex(QStringView text)
{
    text = text.trimmed();
    if (!text.startsWith(u'#'))
        return std::nullopt;
    QString digits;
    for (const QChar digit : text.mid(1))
        digits.append(QString(text.size() == 4 ? 2 : 1, digit));
    if (digits.size() != 6 && digits.size() != 8)
        return std::nullopt;
    bool ok = false;
    const quint32 written = digits.toUInt(&ok, 16);
    if (!ok)
        return std::nullopt;
    const quint32 value = digits.size() == 8 ? written >> 8 : written;
    return Color { static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 8),
        static_cast<std::uint8_t>(value) };
}

QString Color::hex() const
{
    const quint32 value = (quint32 { red } << 16) | (quint32 { green } << 8) | blue;
    return u'#' + QString::number(value, 16).rightJustified(6, u'0');
}

} // namespace mintaro
