#pragma once

#include "Platform/EventKit/Folders/StoreConfiguration.h"

#include <vector>

namespace mintaro {

/// The calendars of khal's configuration ($XDG_CONFIG_HOME/khal/config): path, type (calendar, discover), readonly,
/// color and addresses of each. A configuration that cannot be read names none.
[[nodiscard]] std::vector<ConfiguredFolder> khalFolders(const BaseFolders &baseFolders);

/// The file system storages for .ics files of vdirsyncer's configuration, each a root.
[[nodiscard]] std::vector<ConfiguredFolder> vdirsyncerFolders(const BaseFolders &baseFolders);

/// Where both look for their configuration, whether it is there or not.
[[nodiscard]] QStringList peerFiles(const BaseFolders &baseFolders);

} // namespace mintaro
