// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/FocusMark.h"

#include <QPushButton>

namespace platform {

/// A button with a fill of its own. Space and Enter press it.
///
/// What is seen of it lies within its contents margins, which hold the focus mark.
class PushButton final : public QPushButton {
    Q_OBJECT

public:
    enum class Kind {
        plain,
        prominent, ///< what the form around it is for
    };

    explicit PushButton(const QString& text, Kind kind = Kind::plain, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    FocusMark focusMark_{*this};
    Kind kind_;
};

} // namespace platform
