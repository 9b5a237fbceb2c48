// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/StatusItemPainter.h"

#include <QWidget>

#include <optional>

namespace platform {

/// A status item as a window of its own: draws the content, knows clicks, and has the item's menu
/// on the right button. Its name for assistive technology is the item's text.
class StatusItemView : public QWidget {
    Q_OBJECT

public:
    /// @param inset what stays free around the content
    StatusItemView(Qt::WindowFlags flags, QMargins inset);

    /// Shows `content` in place of what was shown before, and takes the room that this needs.
    void setContent(const StatusItemContent& content);

Q_SIGNALS:
    /// The user clicked it with the left button.
    void clicked();

    /// The user chose the menu entry with this `id`.
    void menuTriggered(int id);

protected:
    /// What the content is painted in.
    virtual StatusItemColors colors() const = 0;

    /// Paints what the content lies on.
    virtual void paintGround(QPainter& painter) = 0;

    /// The room has changed from what it was.
    virtual void contentResized(QSize size);

    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QMargins inset_;
    std::optional<StatusItemContent> content_;
    std::optional<StatusItemPainter> painter_;
};

} // namespace platform
