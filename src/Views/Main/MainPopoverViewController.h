#pragma once

#include "App/AppState.h"

#include <QtQml/qqmlregistration.h>

namespace mintaro {

/// What the popover asks and tells the user.
class MainPopoverViewController : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(mintaro::AppState *appState READ appState WRITE setAppState REQUIRED)
    Q_PROPERTY(QString deleteMessage READ deleteMessage NOTIFY deleteMessageChanged)

public:
    using QObject::QObject;

    [[nodiscard]] AppState *appState() const { return m_appState; }
    void setAppState(AppState *appState);
    /// Empty where no event is pending.
    [[nodiscard]] QString deleteMessage() const;

    /// The question was answered: deletes the pending event, as far as `span`, a value of EKSpan, says.
    Q_INVOKABLE void deletePending(int span);
    /// The question went without an answer.
    Q_INVOKABLE void cancelDelete();
    Q_INVOKABLE void dismissError();

Q_SIGNALS:
    void deleteMessageChanged();

private:
    AppState *m_appState = nullptr;
};

} // namespace mintaro
