// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/FocusMark.h"

#include <QCheckBox>
#include <QVariantAnimation>

namespace platform {

/// A knob that is slid to one side or the other by a click or Space. It has no text: whoever places
/// it names it for assistive technology.
///
/// What is seen of it lies within its contents margins, which hold the focus mark.
class Switch final : public QCheckBox {
    Q_OBJECT

public:
    explicit Switch(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    void slide(bool isOn);

    FocusMark focusMark_{*this};
    QVariantAnimation sliding_;
    double position_ = 0; ///< of the knob: 0 off, 1 on
};

} // namespace platform
