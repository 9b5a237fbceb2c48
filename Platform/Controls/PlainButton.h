// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Appearance/SymbolImage.h"

#include <QAbstractButton>

#include <optional>

namespace platform {

/// A button that is only its text or symbol until the pointer or the keyboard reaches it. Space and
/// Enter press it.
class PlainButton : public QAbstractButton {
    Q_OBJECT

public:
    /// Between the edge and what stands in it.
    static constexpr int horizontalPadding = 5;
    static constexpr int preferredHeight = 24;

    explicit PlainButton(const QString& text, QWidget* parent = nullptr);

    /// A symbol behind the text, or alone. @param size its width and height
    void setSymbol(SymbolImage symbol, int size);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    /// The colour of text and symbol as things are now.
    virtual QColor foreground() const;

    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<SymbolImage> symbol_;
    int symbolSize_ = 0;
};

} // namespace platform
