#pragma once

#include <QQuickWindow>
#include <QSize>

namespace mintaro {

/// A window as the desktop frames it, of one size, which its content fills. Lives on the main thread.
class TitledWindow : public QQuickWindow
{
    Q_OBJECT

public:
    explicit TitledWindow(const QSize &contentSize);

    /// Makes `item`, which stays the caller's, the content: resized to the window, and given the keyboard if it is a
    /// focus scope.
    void setContent(QQuickItem *item);
    /// Opens in the middle of the screen with the pointer, or comes before the other windows where it is open; takes
    /// the keyboard.
    void present();

Q_SIGNALS:
    /// The user closed it.
    void closed();

protected:
    void closeEvent(QCloseEvent *event) override;
};

} // namespace mintaro
