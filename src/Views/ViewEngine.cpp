#include "Views/ViewEngine.h"

#include "Platform/Foundation/Logger.h"
#include "Views/Components/SymbolImageProvider.h"

#include <QQmlComponent>
#include <QQuickWindow>

// Written by the build for the module; static, so it has to be called.
extern void qml_register_types_Mintaro();

namespace mintaro {

ViewEngine::ViewEngine(AppState &appState, MenuBarLabel &label, const Appearance &appearance)
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

std::unique_ptr<QQuickItem> ViewEngine::make(const QString &view, const QVariantMap &properties)
{
    QQmlComponent component(&m_engine, QUrl(QStringLiteral("qrc:/Mintaro/%1.qml").arg(view)));
    // Asked for an object of a view with a fault, Qt 6.4 crashes.
    std::unique_ptr<QObject> object(component.isReady() ? component.createWithInitialProperties(properties) : nullptr);
    auto *item = qobject_cast<QQuickItem *>(object.get());
    if (!item) {
        Logger(QStringLiteral("Views")).error(component.errorString());
        return nullptr;
    }
    object.release();
    return std::unique_ptr<QQuickItem>(item);
}

} // namespace mintaro
