#pragma once

#include "Platform/AppKit/CardWindow.h"

#include <QPoint>

#include <optional>

namespace mintaro {

/// A small window for a task beside the user's others: it stays above them when it loses the keyboard, shows no title
/// (task lists do), and is moved by any part of it that does nothing else. Lives on the main thread.
class Panel : public CardWindow
{
    Q_OBJECT

public:
    explicit Panel(const QSize &contentSize);

    /// Opens in the middle of the screen with the pointer, and takes the keyboard.
    void showCentered();
    /// Opens in the middle of `owner`, which waits until it is closed, and takes the keyboard. It goes where its owner
    /// goes, and gives way to it nowhere.
    void showOver(QWindow &owner);

Q_SIGNALS:
    /// The user closed it by means of the desktop's.
    void closed();

protected:
    void closeEvent(QCloseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;

private:
    void showAround(QPoint center);
    void moveAround(QPoint center);

    /// Where the background was pressed, in the window's coordinates, until the window moves.
    std::optional<QPoint> m_pressed;
};

} // namespace mintaro
