// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Quorvel/Model/AppModel.h"
#include "Quorvel/Settings/AlertForm.h"
#include "Quorvel/Settings/AlertRow.h"
#include "Quorvel/Settings/FormSection.h"
#include "Quorvel/Settings/Notice.h"

#include <vector>

namespace quorvel {

/// The alert rules, what is wrong with them, and the form for a new one. Takes over the pair that
/// the panel hands to the model.
class AlertsSection final : public FormSection {
    Q_OBJECT

public:
    /// @param model must outlive the section
    explicit AlertsSection(AppModel& model, QWidget* parent = nullptr);

    AlertForm& form() const { return *form_; }

Q_SIGNALS:
    /// A pair has been handed over: the user is about to add an alert for it.
    void pairTakenOver();

private:
    struct Message {
        Notice* notice = nullptr;
        platform::Reveal* reveal = nullptr;
    };
    struct Row {
        AlertRow* row;
        platform::Reveal* reveal;
    };

    Message addMessage(platform::MessageLine::Kind kind);
    void addEmptyText();
    void followModel();
    void refreshMessages();
    void refreshRows();
    Row makeRow(const AlertRule& rule);
    void takePendingSymbol();

    AppModel& model_;
    Message permission_;
    Message deliveryError_;
    Message persistError_;
    platform::Reveal* emptyText_ = nullptr;
    std::vector<Row> rows_;
    AlertForm* form_;
};

} // namespace quorvel
