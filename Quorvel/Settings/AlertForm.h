// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/TaskScope.h"
#include "Quorvel/Model/AppModel.h"
#include "QuorvelKit/MarketModel/Decimal.h"

#include <QWidget>

#include <optional>
#include <vector>

class QCheckBox;
class QComboBox;
class QGridLayout;
class QLineEdit;
class QPushButton;

namespace quorvel {

/// Where an alert rule is made. What is chosen and typed stays until it is changed here.
class AlertForm final : public QWidget {
    Q_OBJECT

public:
    /// @param model must outlive the form
    explicit AlertForm(AppModel& model, QWidget* parent = nullptr);

    /// The pair chosen; absent while none is.
    std::optional<Symbol> selectedSymbol() const;

    /// Chooses a pair of the watchlist; none where the watchlist does not have it.
    void select(const std::optional<Symbol>& symbol);

    /// Lets the user type the threshold at once.
    void focusThreshold();

    /// The first control that the keyboard reaches.
    QWidget& firstControl() const;

private:
    void makeControls();
    void layOut();
    void addLabelled(QGridLayout& grid, int column, const QString& label, QWidget* control);
    AlertConditionKind kind() const;
    std::optional<Decimal> threshold() const;
    void listCoins();
    void refresh();
    void add();

    AppModel& model_;
    QComboBox* coin_ = nullptr;
    QComboBox* condition_ = nullptr;
    QLineEdit* threshold_ = nullptr;
    QCheckBox* repeat_ = nullptr;
    QPushButton* add_ = nullptr;
    std::vector<Symbol> coins_; ///< as listed behind the item that means none
    platform::TaskScope requests_;
};

} // namespace quorvel
