#pragma once

#include <QString>

namespace mintaro {

/// The user's folders by the XDG Base Directory Specification. All are absolute paths.
struct BaseFolders
{
    QString home;
    QString configHome;
    QString dataHome;
    QString cacheHome;
    QString stateHome;
    /// Where vdirsyncer's configuration was moved to (VDIRSYNCER_CONFIG); mostly empty.
    QString vdirsyncerConfiguration;

    /// Reads the environment. A variable that holds no absolute path counts as unset, as the XDG specification asks.
    [[nodiscard]] static BaseFolders fromEnvironment();
    /// The path with a leading "~" and the variables HOME, XDG_CONFIG_HOME and XDG_DATA_HOME replaced, without needless
    /// slashes and dots.
    [[nodiscard]] QString expanded(QString path) const;
};

} // namespace mintaro
