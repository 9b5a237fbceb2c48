// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QVBoxLayout;

namespace quorvel {

/// The card that the rows of one section lie on, below each other with hairlines between those that
/// are there.
class FormCard final : public QWidget {
    Q_OBJECT

public:
    /// Between the card's edge and what stands in its rows, left and right.
    static constexpr int inset = 12;

    explicit FormCard(QWidget* parent = nullptr);

    /// Takes `row` over, as the last one.
    void addRow(QWidget* row);

    /// Takes `row` over and puts it above `next`, which is on the card.
    void insertRow(QWidget* row, QWidget* next);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QVBoxLayout* rows_;
};

} // namespace quorvel
