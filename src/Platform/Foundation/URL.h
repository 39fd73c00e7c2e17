#pragma once

#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace mintaro {

/// A URL as it was written. Unlike QUrl it changes nothing: case, escapes and empty parts stay.
class URL
{
public:
    URL() = default;
    /// Empty when the text is no RFC 3986 URI reference (spaces, controls, a broken escape, ...). Characters outside
    /// ASCII are allowed (RFC 3987).
    [[nodiscard]] static std::optional<URL> fromString(const QString &text);

    [[nodiscard]] const QString &absoluteString() const { return m_text; }
    /// The path's parts with escapes decoded; "/" comes first where the path is absolute. Empty parts are left out.
    [[nodiscard]] QStringList pathComponents() const;
    /// For handing to Qt; empty and invalid where QUrl refuses it.
    [[nodiscard]] QUrl toQUrl() const;

    friend bool operator==(const URL &, const URL &) = default;

private:
    explicit URL(QString text)
        : m_text(std::move(text))
    {
    }
    QString m_text;
};

} // namespace mintaro
