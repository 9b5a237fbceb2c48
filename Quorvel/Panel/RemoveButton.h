// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/PlainButton.h"

namespace quorvel {

/// The button at the end of a row. In its place at all times, but only seen while the row is below
/// the pointer or the button has the keyboard.
class RemoveButton final : public platform::PlainButton {
    Q_OBJECT

public:
    explicit RemoveButton(QWidget* row);

    void setRevealed(bool isRevealed);

    QSize sizeHint() const override { return {side, side}; }

    static constexpr int side = 20;

protected:
    QColor foreground() const override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool isRevealed_ = false;
};

} // namespace quorvel
