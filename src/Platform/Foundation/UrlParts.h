#pragma once

#include <QString>
#include <QStringView>

#include <optional>

namespace mintaro {

/// The parts of a URI reference as views into its text (RFC 3986 appendix B). Any text can be taken apart; whether the
/// parts are well formed is for URL to say.
struct UrlParts
{
    std::optional<QStringView> scheme;
    std::optional<QStringView> authority;
    QStringView path;
    std::optional<QStringView> query;
    std::optional<QStringView> fragment;

    [[nodiscard]] static UrlParts of(QStringView text);
};

/// The host and, where there is one, the port in an authority; brackets of an IP literal belong to the host.
struct HostAndPort
{
    QStringView host;
    std::optional<QStringView> port;

    [[nodiscard]] static HostAndPort of(QStringView authority);
};

/// The text with its escapes decoded as UTF-8.
[[nodiscard]] QString withoutEscapes(QStringView text);

} // namespace mintaro
