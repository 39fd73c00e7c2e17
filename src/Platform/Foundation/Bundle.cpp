#include "Platform/Foundation/Bundle.h"

namespace mintaro {

const Bundle &Bundle::mainBundle()
{
    static const Bundle bundle { {
        { QStringLiteral("CFBundleShortVersionString"), QStringLiteral(MINTARO_VERSION) },
        { QStringLiteral("CFBundleVersion"), QStringLiteral(MINTARO_BUILD) },
    } };
    return bundle;
}

std::optional<QString> Bundle::objectForInfoDictionaryKey(const QString &key) const
{
    const QString value = m_infoDictionary.value(key);
    return value.isEmpty() ? std::nullopt : std::optional(value);
}

} // namespace mintaro
