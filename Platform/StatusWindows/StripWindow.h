// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusWindows/StatusItemView.h"
#include "Platform/StatusWindows/StripPosition.h"

#include <QPointer>
#include <QScreen>

namespace platform {

/// The slim window of a `StripItem`: lies at an edge of a screen, above other windows, never has
/// the keyboard, and can be dragged along the edges.
class StripWindow final : public StatusItemView {
    Q_OBJECT

public:
    explicit StripWindow(StripPosition position);

    /// Takes the shape that the display can show. Compositors come and go, and not all tell.
    void adoptCompositing();

    void setVisible(bool isVisible) override;

Q_SIGNALS:
    /// The user dragged it there.
    void moved(StripPosition position);

protected:
    StatusItemColors colors() const override;
    void paintGround(QPainter& painter) override;
    void contentResized(QSize size) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void presentToWindowManager();
    void followScreens();
    void followScreen(QScreen& screen);
    void place();
    void dragTo(QPoint pointer);
    QScreen& currentScreen() const;
    QRect room() const; ///< where on the screen it may be

    StripPosition position_;
    QPointer<QScreen> screen_;        ///< where it was dragged to; none: the primary one
    std::optional<QPoint> pressedAt_; ///< within the window
    bool isDragged_ = false;
    bool isComposited_ = true;
};

} // namespace platform
