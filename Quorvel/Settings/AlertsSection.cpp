// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/AlertsSection.h"

#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Settings/FormFonts.h"

namespace quorvel {

using platform::Label;
using platform::localized;

namespace {

constexpr int messageInset = 10;
constexpr int emptyTextInset = 14;

} // namespace

AlertsSection::AlertsSection(AppModel& model, QWidget* parent)
    : FormSection(localized("Quorvel", "Alerts"), parent),
      model_(model),
      permission_(addNotice(Label::Tone::warning)),
      deliveryError_(addNotice(Label::Tone::error)),
      persistError_(addNotice(Label::Tone::error)),
      form_(new AlertForm(model)) {
    addEmptyText();
    card().addRow(form_);
    followModel();
    refreshMessages();
    refreshRows();
}

Notice* AlertsSection::addNotice(Label::Tone tone) {
    auto* const notice = new Notice(tone);
    notice->setContentsMargins(FormCard::inset, messageInset, FormCard::inset, messageInset);
    card().addRow(notice);
    return notice;
}

void AlertsSection::addEmptyText() {
    auto* const text = new Label(Label::Tone::secondary, FormFonts::caption);
    text->setText(
        localized("Quorvel", "No alerts yet. Add one below, or right-click a coin in the panel."));
    text->setContentsMargins(FormCard::inset, emptyTextInset, FormCard::inset, emptyTextInset);
    emptyText_ = text;
    card().addRow(text);
}

void AlertsSection::followModel() {
    const NotificationCoordinator& notifications = model_.notifications();
    connect(&notifications, &NotificationCoordinator::isAuthorizedChanged, this,
            &AlertsSection::refreshMessages);
    connect(&notifications, &NotificationCoordinator::hasRequestedAuthorizationChanged, this,
            &AlertsSection::refreshMessages);
    connect(&notifications, &NotificationCoordinator::lastDeliveryErrorChanged, this,
            &AlertsSection::refreshMessages);
    connect(&model_.alerts(), &AlertStore::lastPersistErrorChanged, this,
            &AlertsSection::refreshMessages);
    connect(&model_.alerts(), &AlertStore::rulesChanged, this, &AlertsSection::refreshRows);
    connect(&model_.watchlist(), &WatchlistStore::itemsChanged, this, &AlertsSection::refreshRows);
    connect(&model_, &AppModel::pendingAlertSymbolChanged, this, &AlertsSection::takePendingSymbol);
}

void AlertsSection::refreshMessages() {
    const NotificationCoordinator& notifications = model_.notifications();
    const bool isOff = notifications.hasRequestedAuthorization() && !notifications.isAuthorized();
    permission_->setMessage(
        isOff ? std::optional(localized("Quorvel",
                                        "Notifications are off, so alerts can't be delivered. "
                                        "Allow Quorvel in System Settings → Notifications."))
              : std::nullopt);
    deliveryError_->setMessage(notifications.lastDeliveryError());
    persistError_->setMessage(model_.alerts().lastPersistError());
}

void AlertsSection::refreshRows() {
    const auto& rules = model_.alerts().rules();
    const auto inSight = model_.watchlist().symbols();
    const auto drop = [this](auto row) {
        // Its own button may be what deleted it.
        (*row)->hide();
        (*row)->deleteLater();
        return rows_.erase(row);
    };
    // Rules keep their order, and new ones come last: what stands in between has been deleted.
    auto row = rows_.begin();
    for (const AlertRule& rule : rules) {
        while (row != rows_.end() && (*row)->id() != rule.id)
            row = drop(row);
        if (row == rows_.end())
            row = rows_.insert(row, makeRow(rule, inSight));
        else
            (*row)->show(rule, inSight);
        ++row;
    }
    while (row != rows_.end())
        row = drop(row);
    emptyText_->setVisible(rules.empty());
}

AlertRow* AlertsSection::makeRow(const AlertRule& rule, std::span<const Symbol> inSight) {
    auto* const row = new AlertRow(model_.alerts(), rule, inSight);
    card().insertRow(row, form_);
    row->putInFocusOrder(form_->firstControl());
    return row;
}

void AlertsSection::takePendingSymbol() {
    const auto pending = model_.pendingAlertSymbol();
    if (!pending)
        return;
    form_->select(pending);
    form_->focusThreshold();
    model_.setPendingAlertSymbol(std::nullopt);
}

} // namespace quorvel
