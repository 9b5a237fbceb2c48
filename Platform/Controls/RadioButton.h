// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/FocusMark.h"

#include <QRadioButton>

namespace platform {

/// One of several choices, of which the arrow keys and a click choose another.
class RadioButton final : public QRadioButton {
    Q_OBJECT

public:
    explicit RadioButton(const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    FocusMark focusMark_{*this};
};

} // namespace platform
