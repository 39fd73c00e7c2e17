#pragma once

#include <QElapsedTimer>
#include <QPoint>
#include <QQuickWindow>
#include <QSize>

#include <memory>
#include <optional>

namespace mintaro {

class CardShadow;
class OutsideClickMonitor;

/// The window that hangs from the panel's item: a rounded card with a shadow around it. It takes the keyboard when it
/// opens and goes on Escape, when it loses the keyboard, and on a click anywhere else. The content is kept while the
/// window is hidden. Lives on the main thread.
class PopoverWindow : public QQuickWindow
{
    Q_OBJECT

public:
    static constexpr QSize kCardSize { 320, 480 };
    /// Of the card; the content draws its own background with it.
    static constexpr int kCornerRadius = 12;

    PopoverWindow();
    ~PopoverWindow() override;

    /// Makes `item`, which stays the caller's, the card: resized to kCardSize, and given the keyboard if it is a
    /// focus scope.
    void setContent(QQuickItem *item);

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
    void dressForDisplay();
    void hideForOutsideClick();
    void follow(bool isVisible);

    CardShadow *m_shadow;
    std::unique_ptr<OutsideClickMonitor> m_clicks;
    QElapsedTimer m_sinceOutsideClick;
};

} // namespace mintaro
