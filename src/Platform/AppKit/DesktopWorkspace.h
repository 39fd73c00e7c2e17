#pragma once

#include "Platform/AppKit/Workspace.h"

#include <QHash>

#include <memory>

namespace mintaro {

/// The freedesktop tools xdg-open and xdg-mime, called without a shell.
class DesktopWorkspace : public Workspace
{
public:
    /// `calendarConfiguration`: the folder that decides which calendars the program may see. The address of the
    /// calendars' privacy settings opens it, for here it is what grants access. The address of the reminders' program
    /// opens what the desktop has for tasks.
    explicit DesktopWorkspace(QString calendarConfiguration);

    bool open(const URL &url, const QString &activationToken = {}) override;
    /// Asks once for each scheme. False also where the tools are missing.
    [[nodiscard]] QCoro::Task<bool> hasHandler(QString scheme) override;

private:
    const QString m_calendarConfiguration;
    using Answers = QHash<QString, bool>;

    /// Shared with a question that is under way, which may outlive this object.
    std::shared_ptr<Answers> m_answers = std::make_shared<Answers>();
};

} // namespace mintaro
