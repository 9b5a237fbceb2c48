// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/AlertsSection.h"

#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Settings/FormFonts.h"

namespace quorvel {

using platform::localized;
using platform::MessageLine;
using platform::Reveal;
using Kind = platform::MessageLine::Kind;

namespace {

constexpr int messageInset = 10;
constexpr int emptyTextInset = 14;

/// The closest widget before `widget` that the keyboard reaches.
QWidget* stopBefore(QWidget& widget) {
    QWidget* before = widget.previousInFocusChain();
    while (!(before->focusPolicy() & Qt::TabFocus) && before != &widget)
        before = before->previousInFocusChain();
    return before;
}

} // namespace

AlertsSection::AlertsSection(AppModel& model, QWidget* parent)
    : FormSection(localized("Quorvel", "Alerts"), parent),
      model_(model),
      form_(new AlertForm(model)) {
    permission_ = addMessage(Kind::warning);
    deliveryError_ = addMessage(Kind::error);
    persistError_ = addMessage(Kind::error);
    addEmptyText();
    card().addRow(form_);
    followModel();
    refreshMessages();
    refreshRows();
}

AlertsSection::Message AlertsSection::addMessage(Kind kind) {
    auto* const notice = new Notice(kind);
    notice->setContentsMargins(FormCard::inset, messageInset, FormCard::inset, messageInset);
    auto* const reveal = new Reveal(notice);
    card().addRow(reveal);
    return {notice, reveal};
}

void AlertsSection::addEmptyText() {
    auto* const text = new MessageLine(Kind::secondary, FormFonts::caption);
    text->setText(
        localized("Quorvel", "No alerts yet. Add one below, or right-click a coin in the panel."));
    text->setContentsMargins(FormCard::inset, emptyTextInset, FormCard::inset, emptyTextInset);
    emptyText_ = new Reveal(text);
    card().addRow(emptyText_);
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
    connect(&model_, &AppModel::pendingAlertSymbolChanged, this, &AlertsSection::takePendingSymbol);
}

void AlertsSection::refreshMessages() {
    const NotificationCoordinator& notifications = model_.notifications();
    const auto show = [](const Message& message, const std::optional<QString>& text) {
        setMessage(*message.reveal, *message.notice, text);
    };
    const bool isOff = notifications.hasRequestedAuthorization() && !notifications.isAuthorized();
    show(permission_, isOff ? std::optional(localized(
                                  "Quorvel", "Notifications are off, so alerts can't be delivered. "
                                             "Allow Quorvel in System Settings → Notifications."))
                            : std::nullopt);
    show(deliveryError_, notifications.lastDeliveryError());
    show(persistError_, model_.alerts().lastPersistError());
}

void AlertsSection::refreshRows() {
    const auto& rules = model_.alerts().rules();
    // Rules keep their order, and new ones come last: what stands in between has been deleted.
    auto row = rows_.begin();
    for (const AlertRule& rule : rules) {
        while (row != rows_.end() && row->row->id() != rule.id) {
            row->reveal->dismiss();
            row = rows_.erase(row);
        }
        if (row == rows_.end())
            row = rows_.insert(row, makeRow(rule));
        else
            row->row->show(rule);
        ++row;
    }
    for (; row != rows_.end(); row = rows_.erase(row))
        row->reveal->dismiss();
    emptyText_->setRevealed(rules.empty());
}

AlertsSection::Row AlertsSection::makeRow(const AlertRule& rule) {
    auto* const row = new AlertRow(model_.alerts(), rule);
    auto* const reveal = new Reveal(row);
    card().insertRow(reveal, form_);
    QWidget& next = form_->firstControl();
    if (QWidget* const before = stopBefore(next); before != &row->remove())
        QWidget::setTabOrder(before, &row->control());
    QWidget::setTabOrder(&row->control(), &row->remove());
    reveal->setRevealed(true);
    return {row, reveal};
}

void AlertsSection::takePendingSymbol() {
    const auto pending = model_.pendingAlertSymbol();
    if (!pending)
        return;
    form_->select(pending);
    model_.setPendingAlertSymbol(std::nullopt);
    Q_EMIT pairTakenOver();
}

} // namespace quorvel
