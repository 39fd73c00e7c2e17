#pragma once

#include <QPoint>
#include <QQuickWindow>

namespace mintaro {

/// Our own place on the screen where no panel shows the item: a small window in the top right corner, above the others,
/// that never takes the keyboard. Lives on the main thread.
class PanelChip : public QQuickWindow
{
    Q_OBJECT

public:
    /// To the edges of the screen, in points.
    static constexpr int kGap = 4;

    PanelChip();

    /// Shows `item`, which stays the caller's and draws the chip's background too; the window follows its implicit
    /// size.
    void setContent(QQuickItem *item);

    /// Shows the chip. Elsewhere than on X11, where a program cannot place its windows, it costs a log line instead.
    void showChip();

Q_SIGNALS:
    /// The left button, at this point of the screen.
    void clicked(QPoint where);

protected:
    void mousePressEvent(QMouseEvent *event) override;

private:
    void place();
    void followScreen();

    QQuickItem *m_content = nullptr;
};

} // namespace mintaro
