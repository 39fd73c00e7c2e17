#pragma once

#include "Platform/Foundation/URL.h"

#include <utility>
#include <vector>

namespace mintaro {

/// The parts of a URL (RFC 3986 section 3), taken apart and put together without any normalisation: what is not set
/// stays as it was written.
class URLComponents
{
public:
    /// Name and value, both decoded. A value is absent where the query had no "=" for the name.
    using QueryItem = std::pair<QString, std::optional<QString>>;

    /// Empty when the URL cannot be taken apart.
    [[nodiscard]] static std::optional<URLComponents> fromURL(const URL &url);

    void setScheme(const QString &scheme);
    /// `path` is given decoded and written with the escapes that a path needs.
    void setPath(const QString &path);
    [[nodiscard]] std::optional<QString> host() const;
    [[nodiscard]] std::vector<QueryItem> queryItems() const;
    void setQueryItems(const std::vector<QueryItem> &items);

    [[nodiscard]] std::optional<URL> url() const;

private:
    std::optional<QString> m_scheme;
    std::optional<QString> m_authority;
    QString m_path;
    std::optional<QString> m_query;
    std::optional<QString> m_fragment;
};

} // namespace mintaro
