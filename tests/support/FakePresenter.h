#pragma once

#include "Platform/UserNotifications/NotificationPresenter.h"

#include <QStringList>

#include <algorithm>
#include <stdexcept>

namespace mintaro {

/// A screen that keeps what it shows.
class FakePresenter final : public NotificationPresenter
{
public:
    bool isReachable = true;
    std::vector<PresentedNotification> onScreen;
    /// The title of each that ever came.
    QStringList titles;

    void requestAuthorization() override
    {
        if (!isReachable)
            throw std::runtime_error("nobody is there");
    }
    void present(const PresentedNotification &notification) override
    {
        withdraw(notification.identifier);
        onScreen.push_back(notification);
        titles.append(notification.title);
    }
    void withdraw(const QString &identifier) override
    {
        std::erase_if(onScreen, [&](const auto &each) { return each.identifier == identifier; });
    }
};

} // namespace mintaro
