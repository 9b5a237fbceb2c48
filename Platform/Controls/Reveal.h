// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QVariantAnimation>
#include <QWidget>

namespace platform {

/// Holds a widget that is there at times only, in a layout from top to bottom: takes its height, or
/// none. What lies below moves from one to the other within 150 ms, or at once while unseen and
/// where the desktop asks for little motion. What is not revealed can be neither reached nor read.
class Reveal final : public QWidget {
    Q_OBJECT

public:
    /// Takes `content` over. Not revealed at first.
    explicit Reveal(QWidget* content, QWidget* parent = nullptr);

    bool isRevealed() const { return isRevealed_; }
    void setRevealed(bool isRevealed);

    /// Whether it is on the way from one to the other.
    bool isMoving() const { return motion_.state() == QAbstractAnimation::Running; }

    /// Conceals the content, then deletes it and itself.
    void dismiss();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    int contentHeight(int width) const;
    void setShare(double share);
    void finish();
    /// Gives the keyboard to what comes next where it is with the content.
    void passFocusOn();

    QWidget* content_;
    QVariantAnimation motion_;
    double share_ = 0; ///< of the content's height that is there
    bool isRevealed_ = false;
    bool isDismissed_ = false;
};

} // namespace platform
