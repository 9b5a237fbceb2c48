// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/FocusMark.h"

#include <QComboBox>

namespace platform {

/// A field that shows what is chosen and opens a menu of all choices. Pickers are equally wide.
///
/// What is seen of it lies within its contents margins, which hold the focus mark. Whoever places
/// it names it for assistive technology.
class Picker final : public QComboBox {
    Q_OBJECT

public:
    static constexpr int preferredWidth = 172;
    static constexpr int preferredHeight = 28;

    explicit Picker(QWidget* parent = nullptr);

    /// The place that the chosen text has.
    QRect textArea() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    /// Whether its menu is.
    bool isOpen() const { return isOpen_; }

    void showPopup() override;

protected:
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    FocusMark focusMark_{*this};
    bool isOpen_ = false;
};

} // namespace platform
