// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Foundation/Clock.h"
#include "Platform/Popover/PopoverFrame.h"

#include <QPoint>
#include <QWidget>

#include <optional>

namespace platform {

/// A window that hangs on the status bar and holds one widget, as large as that widget prefers and
/// the screen allows. It closes when the user turns to another window or presses Escape.
///
/// An ordinary window rather than a pop-up menu's kind, which assistive technology does not see.
class Popover final : public QWidget {
    Q_OBJECT

public:
    /// For so long after the user turned away, a click on the status item counts as the one that
    /// closed the popover: pressing the mouse there takes the focus away, releasing it activates.
    static constexpr std::chrono::milliseconds dismissalGrace{300};

    /// @param clock must outlive the popover
    explicit Popover(const Clock& clock);
    ~Popover() override;

    /// Takes `content` over, in place of none.
    void setContent(QWidget* content);

    /// Shows the popover for a click at `anchor`, in global coordinates, and asks for the keyboard.
    void showBeside(QPoint anchor);

    /// The same for a status item whose place is known, in global coordinates.
    void showBeside(const QRect& item);

    /// Whether it closed because the user turned away, within the last `dismissalGrace`.
    bool wasJustDismissed() const;

    /// Where the user clicked, for a status item that was activated with the coordinates `reported`
    /// by its panel: not every panel reports true ones.
    static QPoint anchor(std::optional<QPoint> reported);

    void setVisible(bool isVisible) override;

Q_SIGNALS:
    /// It has been closed, by the user or by `hide`.
    void closed();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void showPlaced();
    void adoptCompositing();
    void place();
    void dismissUnlessActive();

    const Clock& clock_;
    QWidget* content_ = nullptr;
    PopoverFrame frame_;
    bool isComposited_ = true;
    bool isClosing_ = false;
    QPoint anchor_;
    std::optional<QRect> item_;                           ///< in place of `anchor_`
    std::optional<std::chrono::nanoseconds> dismissedAt_; ///< uptime
};

} // namespace platform
