// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/FocusMark.h"

#include <QCheckBox>

namespace platform {

/// A box with a text that is ticked and cleared by a click or Space.
class CheckBox final : public QCheckBox {
    Q_OBJECT

public:
    explicit CheckBox(const QString& text, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;

private:
    FocusMark focusMark_{*this};
};

} // namespace platform
