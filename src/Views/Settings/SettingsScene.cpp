#include "Views/Settings/SettingsScene.h"

#include "Views/Settings/AboutIcon.h"

#include <QIcon>

namespace mintaro {

namespace {

constexpr int kIconSize = 64;

/// Ends the object's life when the event that is being handled has been.
template <typename T>
void releaseLater(QObject &context, std::unique_ptr<T> object)
{
    QMetaObject::invokeMethod(
        &context, [kept = std::shared_ptr<T>(std::move(object))]() mutable { kept.reset(); }, Qt::QueuedConnection);
}

} // namespace

SettingsScene::Settings::Settings(const SettingsDependencies &dependencies, ViewEngine &views)
    : controller(dependencies)
    , view(views.makeSettingsView(controller))
    , window(view->size().toSize())
{
    window.setTitle(qtTrId("settings.title"));
    window.setIcon(QIcon(QPixmap::fromImage(AboutIcon::image(kIconSize))));
    window.setContent(view.get());
}

SettingsScene::Picker::Picker(const Environment &environment, ViewEngine &views)
    : controller(environment)
    , view(views.makeTimezonePickerView(controller))
    , panel(view->size().toSize())
{
    panel.setTitle(qtTrId("Add Timezone"));
    panel.setContent(view.get());
}

SettingsScene::SettingsScene(const SettingsDependencies &dependencies, ViewEngine &views)
    : m_dependencies(dependencies)
    , m_views(views)
{
}

SettingsScene::~SettingsScene() = default;

void SettingsScene::open()
{
    if (!m_settings) {
        m_settings = std::make_unique<Settings>(m_dependencies, m_views);
        connect(&m_settings->window, &TitledWindow::closed, this, &SettingsScene::close);
        connect(&m_settings->controller, &SettingsViewController::closeRequested, this, &SettingsScene::close);
        connect(m_settings->controller.worldClock(), &WorldClockSettingsViewController::isShowingPickerChanged, this,
            &SettingsScene::onShowingPickerChanged);
    }
    m_settings->window.present();
    if (m_picker)
        m_picker->panel.requestActivate();
}

void SettingsScene::close()
{
    if (!m_settings)
        return;
    m_settings->window.hide();
    m_settings->controller.worldClock()->setShowingPicker(false);
    releaseLater(*this, std::move(m_settings));
}

void SettingsScene::onShowingPickerChanged()
{
    if (m_settings->controller.worldClock()->isShowingPicker())
        showPicker();
    else
        closePicker();
}

void SettingsScene::showPicker()
{
    WorldClockSettingsViewController *const worldClock = m_settings->controller.worldClock();
    const auto dismiss = [worldClock] { worldClock->setShowingPicker(false); };
    m_picker = std::make_unique<Picker>(m_dependencies.appState.environment(), m_views);
    connect(&m_picker->controller, &TimezonePickerViewController::selected, worldClock,
        &WorldClockSettingsViewController::add);
    connect(&m_picker->controller, &TimezonePickerViewController::dismissed, worldClock, dismiss);
    connect(&m_picker->panel, &Panel::closed, worldClock, dismiss);
    m_picker->panel.showOver(m_settings->window);
}

void SettingsScene::closePicker()
{
    m_picker->panel.hide();
    releaseLater(*this, std::move(m_picker));
    if (m_settings->window.isVisible())
        m_settings->window.requestActivate();
}

} // namespace mintaro
