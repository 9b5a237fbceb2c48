// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Desktop/ActiveWindowWatch.h"
#include "Platform/StatusContent/StripPosition.h"
#include "Platform/StatusWindows/StatusItemView.h"

#include <QScreen>

namespace platform {

/// The presentation for desktops whose panels show no text, or that have none: a slim window that
/// lies at an edge of a screen, above other windows but not above one that fills the screen. It
/// never has the keyboard, and can be dragged along the edges.
class StripWindow final : public StatusItemView {
    Q_OBJECT

public:
    /// What is handed in by reference must outlive the window. While there is no screen of that
    /// name it lies on the primary one.
    StripWindow(const StatusItemIdentity& identity, StatusItemEvents& events,
                StripPosition position, QString screen = {});

    void setContent(const StatusItemContent& content) override;
    std::optional<QRect> frame() const override;
    void setVisible(bool isVisible) override;

protected:
    StatusItemColors colors() const override;
    void paintGround(QPainter& painter) override;
    void takeRoom(QSize size) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    /// Takes the shape that the display can show. Compositors come and go, and not all tell.
    void adoptCompositing();
    void showUnlessCovered();
    void dimOverWindows();
    void presentToWindowManager();
    void followScreens();
    void followScreen(QScreen& screen);
    void place();
    void dragTo(QPoint pointer);
    QScreen& currentScreen() const;
    QRect room() const; ///< where on the screen it may be

    StripPosition position_;
    ActiveWindowWatch activeWindow_;
    QString screen_;                  ///< by name, where it was dragged to; empty: the primary one
    std::optional<QPoint> pressedAt_; ///< within the window
    bool isDragged_ = false;
    bool isPointedAt_ = false;
    bool isComposited_ = true;
};

} // namespace platform
