// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Controls/PlainButton.h"
#include "Platform/Controls/Switch.h"
#include "Platform/Controls/TextLine.h"
#include "QuorvelKit/Alerts/AlertStore.h"

#include <QWidget>

namespace quorvel {

/// One alert rule: its switch, what it says, and the button that deletes it at once.
class AlertRow final : public QWidget {
    Q_OBJECT

public:
    static constexpr int preferredHeight = 48;

    /// @param alerts has the rule, and must outlive the row
    AlertRow(AlertStore& alerts, const AlertRule& rule, QWidget* parent = nullptr);

    const QUuid& id() const { return id_; }

    /// Shows what the rule is like now.
    void show(const AlertRule& rule);

    platform::Switch& control() const { return *control_; }
    platform::PlainButton& remove() const { return *remove_; }

private:
    void layOut();

    QUuid id_;
    platform::Switch* control_;
    platform::TextLine* text_;
    platform::TextLine* state_;
    platform::PlainButton* remove_;
};

} // namespace quorvel
