// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QScrollBar>
#include <QTimer>
#include <QVariantAnimation>

namespace platform {

/// A vertical scroll bar that is a thin handle and nothing else, there while the content moves or
/// the pointer is near, and fades after that.
class OverlayScrollBar final : public QScrollBar {
    Q_OBJECT

public:
    /// What it needs beside the content.
    static constexpr int breadth = 12;

    explicit OverlayScrollBar(QWidget* parent = nullptr);

    QSize sizeHint() const override { return {breadth, breadth}; }

    /// The handle, in the bar's coordinates; empty where there is nothing to scroll.
    QRect handle() const;

protected:
    void sliderChange(SliderChange change) override;
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent*) override {}
    void paintEvent(QPaintEvent* event) override;

private:
    void show(bool isShown);

    QTimer rest_;
    QVariantAnimation fade_;
    double opacity_ = 0;
    int grip_ = -1; ///< where the handle is held, from its top; negative while it is not
};

} // namespace platform
