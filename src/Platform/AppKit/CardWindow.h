#pragma once

#include "Platform/AppKit/CardShadow.h"

#include <QQuickWindow>
#include <QRect>
#include <QSize>

namespace mintaro {

/// A window without a frame of its own: a rounded card with a soft shadow around it, which the content fills. Where
/// nobody blends windows it is cut to the card. Lives on the main thread.
class CardWindow : public QQuickWindow
{
    Q_OBJECT

public:
    /// Of the card; the content draws its own background with it.
    static constexpr int kCornerRadius = 12;
    /// What the window has around the card.
    static constexpr int kShadowMargin = CardShadow::kMargin;

    /// Makes `item`, which stays the caller's, the card: resized to it, and given the keyboard if it is a focus scope.
    void setContent(QQuickItem *item);

protected:
    CardWindow(const QSize &cardSize, Qt::WindowFlags flags);

    /// In the window's coordinates.
    [[nodiscard]] const QRect &card() const { return m_card; }
    /// Moves the window so that the top left corner of the card comes to that point of the screen.
    void setCardPosition(QPoint position);
    /// To be called before each showing: a compositor may have come or gone.
    void dressForDisplay();

private:
    const QRect m_card;
    CardShadow *m_shadow;
};

} // namespace mintaro
