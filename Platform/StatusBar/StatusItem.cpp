// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusBar/StatusItem.h"

#include "Platform/StatusBar/StatusItemPresentationChoice.h"
#include "Platform/StatusNotifier/StatusNotifierIcon.h"
#include "Platform/StatusNotifier/StatusNotifierItem.h"
#include "Platform/StatusNotifier/StatusNotifierWideImage.h"
#include "Platform/StatusWindows/DockItem.h"
#include "Platform/StatusWindows/StripItem.h"

#include <QDBusConnection>

#include <algorithm>
#include <utility>

namespace platform {

StatusItem::StatusItem(StatusItemIdentity identity, Clock& clock, const QDBusConnection& bus,
                       StatusItemOptions options, QObject* parent)
    : QObject(parent),
      identity_(std::move(identity)),
      clock_(clock),
      bus_(bus),
      options_(options),
      appearance_(bus, clock),
      desktop_(bus, tray_) {
    connect(&desktop_, &StatusItemDesktopObserver::changed, this, &StatusItem::chooseSoon);
    connect(&appearance_, &SystemAppearance::preferredChanged, this, [this] {
        if (presentation_ && shown_)
            presentation_->show(*shown_);
    });
    schedule(Urgency::immediate);
}

StatusItem::~StatusItem() = default;

void StatusItem::setImage(StatusItemImage image) {
    set(content_.image, std::move(image), Urgency::immediate);
}

void StatusItem::setTitle(AttributedTitle title, Urgency urgency) {
    set(content_.title, std::move(title), urgency);
}

void StatusItem::setToolTip(QString toolTip, Urgency urgency) {
    set(content_.toolTip, std::move(toolTip), urgency);
}

void StatusItem::setMenu(std::vector<MenuEntry> entries) {
    set(content_.menu, std::move(entries), Urgency::immediate);
}

template <typename Value>
void StatusItem::set(Value& field, Value value, Urgency urgency) {
    if (field == value) {
        // The same text may be waiting as a routine change when the user asks for it.
        if (urgency == Urgency::immediate && dueAt_)
            schedule(urgency);
        return;
    }
    field = std::move(value);
    schedule(urgency);
}

void StatusItem::schedule(Urgency urgency) {
    const auto now = clock_.uptime();
    auto due = now;
    if (urgency == Urgency::routine && shownAt_)
        due = std::max(now, *shownAt_ + routineInterval);
    if (dueAt_ && *dueAt_ <= due)
        return;
    dueAt_ = due;
    timer_ = clock_.startTimer(std::chrono::ceil<std::chrono::milliseconds>(due - now),
                               [this] { show(); });
}

void StatusItem::show() {
    dueAt_.reset();
    if (content_ == shown_)
        return;
    shown_ = content_;
    shownAt_ = clock_.uptime();
    if (presentation_)
        presentation_->show(content_);
}

void StatusItem::chooseSoon() {
    constexpr auto strip = StatusItemPresentationKind::strip;
    const auto kind = StatusItemPresentationChoice::of(options_.presentation, desktop_.desktop());
    // A panel that has gone may come back, and to be ready for another kind would help nobody.
    if (kind_ && kind != strip && !desktop_.desktop().hasWatcher && !desktop_.desktop().hasTray)
        return;
    if (kind != strip || kind_ == strip || options_.presentation == strip) {
        patience_.reset();
        present(kind);
    } else if (!patience_) {
        patience_ = clock_.startTimer(panelPatience, [this] { present(strip); });
    }
}

void StatusItem::present(StatusItemPresentationKind kind) {
    if (std::exchange(kind_, kind) == kind)
        return;
    // One goes before the other comes: both would be known by the same path on the bus.
    presentation_.reset();
    presentation_ = makePresentation(kind);
    connect(presentation_.get(), &StatusItemPresentation::activated, this, &StatusItem::activated);
    connect(presentation_.get(), &StatusItemPresentation::clicked, this, &StatusItem::clicked);
    connect(presentation_.get(), &StatusItemPresentation::menuTriggered, this,
            &StatusItem::menuTriggered);
    if (shown_)
        presentation_->show(*shown_);
}

std::unique_ptr<StatusItemPresentation>
StatusItem::makePresentation(StatusItemPresentationKind kind) {
    switch (kind) {
    case StatusItemPresentationKind::image:
        return std::make_unique<StatusNotifierItem>(
            identity_, std::make_unique<StatusNotifierWideImage>(appearance_), bus_);
    case StatusItemPresentationKind::dock:
        return std::make_unique<DockItem>(tray_, appearance_);
    case StatusItemPresentationKind::strip: {
        auto strip = std::make_unique<StripItem>(identity_, bus_, desktop_, options_.stripPosition);
        connect(strip.get(), &StripItem::moved, this, [this](StripPosition position) {
            options_.stripPosition = position;
            Q_EMIT stripMoved(position);
        });
        return strip;
    }
    case StatusItemPresentationKind::label:
        break;
    }
    return std::make_unique<StatusNotifierItem>(
        identity_,
        std::make_unique<StatusNotifierIcon>(identity_, StatusNotifierIcon::Title::asLabel), bus_);
}

std::optional<QRect> StatusItem::frame() const {
    return presentation_ ? presentation_->frame() : std::nullopt;
}

} // namespace platform
