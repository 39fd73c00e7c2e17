#pragma once

#include "Platform/AppKit/CardWindow.h"

#include <QElapsedTimer>
#include <QPoint>

#include <memory>
#include <optional>

namespace mintaro {

class OutsideClickMonitor;

/// The window that hangs from the panel's item. It takes the keyboard when it opens and goes on Escape, when it loses
/// the keyboard, and on a click anywhere else. The content is kept while the window is hidden. Lives on the main
/// thread.
class PopoverWindow : public CardWindow
{
    Q_OBJECT

public:
    static constexpr QSize kCardSize { 320, 480 };

    PopoverWindow();
    ~PopoverWindow() override;

    /// Opens at a point of the screen, else in the top right corner; moves there if it is open.
    void showAt(std::optional<QPoint> anchor);
    void hidePopover();
    /// Hides or shows. A call directly after an outside click hid the popover does nothing: it is that very click,
    /// which the panel passed on.
    void toggleAt(std::optional<QPoint> anchor);

Q_SIGNALS:
    void opened();
    void closed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    [[nodiscard]] QRect cardGeometry() const;
    void place(std::optional<QPoint> anchor);
    void hideForOutsideClick();
    void followKeyboard();
    void follow(bool isVisible);

    std::unique_ptr<OutsideClickMonitor> m_clicks;
    QElapsedTimer m_sinceOutsideClick;
    QElapsedTimer m_sinceShown;
};

} // namespace mintaro
