// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>

namespace platform {

/// A place to type one line in, as wide as it is made.
class TextField : public QLineEdit {
    Q_OBJECT

public:
    static constexpr int preferredHeight = 28;

    explicit TextField(QWidget* parent = nullptr);

    /// What is to be typed: shown while there is no text, and the field's name for assistive
    /// technology.
    void setPrompt(const QString& prompt);

    QSize sizeHint() const override { return {0, preferredHeight}; }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace platform
