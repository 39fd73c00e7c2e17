#pragma once

#include "App/AppState.h"
#include "Platform/Foundation/Bundle.h"

#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// The About tab: which Mintaro this is.
class AboutSettingsViewController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The settings have one")
    /// Both are a dash where the build does not know.
    Q_PROPERTY(QString appVersion READ appVersion CONSTANT)
    Q_PROPERTY(QString buildNumber READ buildNumber CONSTANT)
    /// The host of the maker's site; empty where the build has none.
    Q_PROPERTY(QString websiteHost READ websiteHost CONSTANT)

public:
    /// `appState` must outlive the object. `website`: of the maker.
    AboutSettingsViewController(AppState &appState, Bundle bundle, const QString &website);

    [[nodiscard]] QString appVersion() const;
    [[nodiscard]] QString buildNumber() const;
    [[nodiscard]] QString websiteHost() const;

    Q_INVOKABLE void openWebsite();

private:
    AppState &m_appState;
    const Bundle m_bundle;
    const std::optional<URL> m_website;
};

} // namespace mintaro
