#pragma once

#include "Platform/AppKit/CardWindow.h"

namespace mintaro {

/// A small window in the corner of the screen that tells something and leaves the keyboard where it is. Lives on the
/// main thread.
class NotificationWindow : public CardWindow
{
    Q_OBJECT

public:
    explicit NotificationWindow(const QSize &contentSize);

    /// How much of the screen's height it takes, with the gap to the next one.
    [[nodiscard]] int stackingHeight() const;
    /// Shows it in the top right corner of the primary screen, so far below the edge, or moves it there. Hides it
    /// where there is no room for it.
    void showBelow(int distance);

Q_SIGNALS:
    /// The user closed it by means of the desktop's.
    void closed();

protected:
    void closeEvent(QCloseEvent *event) override;
};

} // namespace mintaro
