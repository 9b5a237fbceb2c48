// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/FocusMark.h"

#include <QBasicTimer>
#include <QWidget>

namespace platform {

/// Two halves, of which one takes a step down and the other a step up, within a range. The arrow
/// keys do the same; a half that is held down goes on stepping. The value itself is shown by
/// whoever places the stepper, who names it for assistive technology as well.
///
/// What is seen of it lies within its contents margins, which hold the focus mark.
class Stepper final : public QWidget {
    Q_OBJECT

public:
    Stepper(double minimum, double maximum, QWidget* parent = nullptr);

    static constexpr double step = 1;

    double minimum() const { return minimum_; }
    double maximum() const { return maximum_; }
    double value() const { return value_; }

    /// Takes the nearest value in range.
    void setValue(double value);

    /// The half that takes steps down, or up.
    QRect half(int direction) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

Q_SIGNALS:
    void valueChanged(double value);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// -1 for the half that steps down, 1 for the one that steps up, 0 for neither.
    int directionAt(QPoint position) const;
    bool canStep(int direction) const;
    void takeStep(int direction);
    void paintHalf(QPainter& painter, int direction) const;

    FocusMark focusMark_{*this};
    double minimum_;
    double maximum_;
    double value_;
    int hovered_ = 0;
    int pressed_ = 0;
    QBasicTimer repeat_;
};

} // namespace platform
