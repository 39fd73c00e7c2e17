#include "Views/ViewEngine.h"

#include "Services/FaviconService.h"
#include "Views/Components/SymbolImageProvider.h"
#include "Views/EventEditor/EventEditorViewController.h"
#include "Views/Notifications/NotificationViewController.h"
#include "Views/Settings/SettingsViewController.h"
#include "Views/WorldClock/TimezonePickerViewController.h"

#include <QQmlComponent>
#include <QQuickWindow>

// Written by the build for the module; static, so it has to be called.
extern void qml_register_types_Mintaro();

namespace mintaro {

ViewEngine::ViewEngine(AppState &appState, MenuBarLabel &label, const Appearance &appearance, FaviconService *favicons)
    : m_appState(appState)
    , m_label(label)
    , m_theme(appearance, appState.defaults())
{
    qml_register_types_Mintaro();
    // The same shapes of letters on every backend.
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    m_engine.addImportPath(QStringLiteral("qrc:/"));
    m_engine.addImageProvider(QStringLiteral("symbol"), new SymbolImageProvider);
    m_engine.setProperty("themeController", QVariant::fromValue(&m_theme));
    m_engine.setProperty("faviconService", QVariant::fromValue(favicons));
}

std::unique_ptr<QQuickItem> ViewEngine::makeMainPopoverView()
{
    return make(
        QStringLiteral("Main/MainPopoverView"), { { QStringLiteral("appState"), QVariant::fromValue(&m_appState) } });
}

std::unique_ptr<QQuickItem> ViewEngine::makeMenuBarLabel()
{
    return make(QStringLiteral("Main/MenuBarLabel"), { { QStringLiteral("label"), QVariant::fromValue(&m_label) } });
}

std::unique_ptr<QQuickItem> ViewEngine::makeEventEditorView(EventEditorViewController &controller)
{
    return make(QStringLiteral("EventEditor/EventEditorView"),
        { { QStringLiteral("controller"), QVariant::fromValue(&controller) } });
}

std::unique_ptr<QQuickItem> ViewEngine::makeNotificationView(NotificationViewController &controller)
{
    return make(QStringLiteral("Notifications/NotificationView"),
        { { QStringLiteral("controller"), QVariant::fromValue(&controller) } });
}

std::unique_ptr<QQuickItem> ViewEngine::makeSettingsView(SettingsViewController &controller)
{
    return make(QStringLiteral("Settings/SettingsView"),
        { { QStringLiteral("controller"), QVariant::fromValue(&controller) } });
}

std::unique_ptr<QQuickItem> ViewEngine::makeTimezonePickerView(TimezonePickerViewController &controller)
{
    return make(QStringLiteral("WorldClock/TimezonePickerView"),
        { { QStringLiteral("controller"), QVariant::fromValue(&controller) } });
}

std::unique_ptr<QQuickItem> ViewEngine::make(const QString &view, const QVariantMap &properties)
{
    QQmlComponent component(&m_engine, QUrl(QStringLiteral("qrc:/Mintaro/%1.qml").arg(view)));
    if (!component.isReady())
        qFatal("%s", qUtf8Printable(component.errorString()));
    std::unique_ptr<QObject> object(component.createWithInitialProperties(properties));
    auto *item = qobject_cast<QQuickItem *>(object.get());
    if (!item)
        qFatal("%s is no item: %s", qUtf8Printable(view), qUtf8Printable(component.errorString()));
    object.release();
    return std::unique_ptr<QQuickItem>(item);
}

} // namespace mintaro
