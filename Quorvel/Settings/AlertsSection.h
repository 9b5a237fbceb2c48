// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/AppModel.h"
#include "Quorvel/Settings/AlertForm.h"
#include "Quorvel/Settings/AlertRow.h"
#include "Quorvel/Settings/FormSection.h"
#include "Quorvel/Settings/Notice.h"

#include <span>
#include <vector>

namespace quorvel {

/// The alert rules, what is wrong with them, and the form for a new one. Takes over the pair that
/// the panel hands to the model.
class AlertsSection final : public FormSection {
    Q_OBJECT

public:
    /// @param model must outlive the section
    explicit AlertsSection(AppModel& model, QWidget* parent = nullptr);

    /// The form for a new alert.
    const QWidget& form() const { return *form_; }

private:
    Notice* addNotice(platform::Label::Tone tone);
    void addEmptyText();
    void followModel();
    void refreshMessages();
    void refreshRows();
    AlertRow* makeRow(const AlertRule& rule, std::span<const Symbol> inSight);
    void takePendingSymbol();

    AppModel& model_;
    Notice* permission_;
    Notice* deliveryError_;
    Notice* persistError_;
    QWidget* emptyText_ = nullptr;
    std::vector<AlertRow*> rows_;
    AlertForm* form_;
};

} // namespace quorvel
