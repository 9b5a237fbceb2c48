// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/StatusContent/StatusItemEvents.h"
#include "Platform/StatusContent/StatusItemIdentity.h"
#include "Platform/StatusContent/StatusItemPainter.h"
#include "Platform/StatusContent/StatusItemPresentation.h"

#include <QWidget>

#include <optional>

namespace platform {

/// A status item as a window of its own: draws the content, knows clicks, and has the item's menu
/// on the right button. Its name for assistive technology is the item's text.
class StatusItemView : public QWidget, public StatusItemPresentation {
    Q_OBJECT

public:
    /// @param identity must outlive the view
    /// @param events   must outlive the view
    /// @param inset    what stays free around the content
    StatusItemView(const StatusItemIdentity& identity, StatusItemEvents& events,
                   Qt::WindowFlags flags, QMargins inset);

    /// Takes the room that `content` needs.
    void setContent(const StatusItemContent& content) override;

protected:
    StatusItemEvents& events() { return events_; }
    bool hasContent() const { return painter_.has_value(); }

    /// What the content is painted in.
    virtual StatusItemColors colors() const = 0;

    /// Paints what the content lies on.
    virtual void paintGround(QPainter& painter) = 0;

    /// Takes this room, which is another than before.
    virtual void takeRoom(QSize size) = 0;

    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    const StatusItemIdentity& identity_;
    StatusItemEvents& events_;
    QMargins inset_;
    std::optional<StatusItemPainter> painter_;
};

} // namespace platform
