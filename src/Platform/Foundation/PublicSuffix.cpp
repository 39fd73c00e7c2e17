#include "Platform/Foundation/PublicSuffix.h"

#include <libpsl.h>

#include <QString>

#include <memory>

namespace mintaro {

namespace {

/// The newer of the distribution's list and the one built into the library.
const psl_ctx_t *suffixList()
{
    static const std::unique_ptr<psl_ctx_t, decltype(&psl_free)> list(psl_latest(nullptr), &psl_free);
    return list.get();
}

} // namespace

bool isPublicSuffix(QStringView name)
{
    constexpr qsizetype longestHost = 253;
    if (name.isEmpty() || name.size() > longestHost || !suffixList())
        return false;
    const QByteArray lowercase = name.toString().toLower().toUtf8();
    return psl_is_public_suffix2(suffixList(), lowercase.constData(), PSL_TYPE_ICANN | PSL_TYPE_NO_STAR_RULE) != 0;
}

} // namespace mintaro
