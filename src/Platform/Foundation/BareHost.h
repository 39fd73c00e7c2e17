#pragma once

#include <QStringView>

namespace mintaro {

enum class HostPath { Absent, Present };

/// Whether the labels could be those of a host in the DNS and the last one is a known top-level domain.
[[nodiscard]] bool hasKnownTopLevelDomain(QStringView host);

/// Where a sentence begins right behind the host's full stop ("example.com.Next week"), its first word is cut off.
[[nodiscard]] QStringView withoutNextSentence(QStringView host);

/// Whether a name with a known top-level domain that stands in text without a scheme is meant as a host, rather than as
/// a file ("setup.py"), a version, an abbreviation, a package or two sentences without a space between them.
[[nodiscard]] bool isMeantAsHost(QStringView host, HostPath path);

} // namespace mintaro
