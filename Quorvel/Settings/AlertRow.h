// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/Label.h"
#include "QuorvelKit/Alerts/AlertStore.h"

#include <QWidget>

#include <span>

class QCheckBox;
class QPushButton;

namespace quorvel {

/// One alert rule: its switch, what it says, and the button that deletes it at once.
class AlertRow final : public QWidget {
    Q_OBJECT

public:
    static constexpr int preferredHeight = 48;

    /// @param alerts  has the rule, and must outlive the row
    /// @param inSight the pairs that the rule's must be told apart from
    AlertRow(AlertStore& alerts, const AlertRule& rule, std::span<const Symbol> inSight,
             QWidget* parent = nullptr);

    const QUuid& id() const { return id_; }

    /// Shows what the rule is like now.
    void show(const AlertRule& rule, std::span<const Symbol> inSight);

    /// Has the keyboard come to the row right before `next`.
    void putInFocusOrder(QWidget& next);

private:
    void layOut();

    QUuid id_;
    QCheckBox* control_;
    platform::Label* text_;
    platform::Label* state_;
    QPushButton* remove_;
};

} // namespace quorvel
