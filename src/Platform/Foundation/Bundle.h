#pragma once

#include <QHash>
#include <QString>

#include <optional>

namespace mintaro {

/// What a program says of itself.
class Bundle
{
public:
    explicit Bundle(QHash<QString, QString> infoDictionary)
        : m_infoDictionary(std::move(infoDictionary))
    {
    }
    /// This program. "CFBundleShortVersionString" is its version; "CFBundleVersion" counts the changes that led to this
    /// build, and is absent where it was built from an archive without their history.
    [[nodiscard]] static const Bundle &mainBundle();

    [[nodiscard]] std::optional<QString> objectForInfoDictionaryKey(const QString &key) const;
    /// Empty where it has none.
    [[nodiscard]] QString version() const
    {
        return objectForInfoDictionaryKey(QStringLiteral("CFBundleShortVersionString")).value_or(QString());
    }

private:
    QHash<QString, QString> m_infoDictionary;
};

} // namespace mintaro
