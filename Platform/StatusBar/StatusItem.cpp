// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusBar/StatusItem.h"

#include "Platform/StatusBar/StatusItemPresentationChoice.h"
#include "Platform/StatusWindows/DockWindow.h"
#include "Platform/StatusWindows/StripWindow.h"

#include <QDBusConnection>

#include <algorithm>
#include <utility>

namespace platform {

using Kind = StatusItemPresentationKind;

StatusItem::StatusItem(StatusItemIdentity identity, Clock& clock, const QDBusConnection& bus,
                       StatusItemOptions options, QObject* parent)
    : StatusItemEvents(parent),
      identity_(std::move(identity)),
      clock_(clock),
      bus_(bus),
      options_(std::move(options)),
      appearance_(bus, clock),
      desktop_(bus, tray_, clock) {
    connect(&desktop_, &StatusItemDesktopObserver::changed, this, [this] {
        chooseSoon();
        Q_EMIT desktopChanged();
    });
    connect(&appearance_, &SystemAppearance::preferredChanged, this, [this] {
        if (presentation_ && shown_)
            presentation_->setContent(*shown_);
    });
    connect(this, &StatusItemEvents::stripMoved, this,
            [this](StripPosition position, const QString& screen) {
                options_.stripPosition = position;
                options_.stripScreen = screen;
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

void StatusItem::setNotice(std::optional<QString> notice) {
    set(content_.notice, std::move(notice), Urgency::immediate);
}

void StatusItem::setWidgetHint(QString hint) {
    set(content_.widgetHint, std::move(hint), Urgency::immediate);
}

void StatusItem::setPreferredPresentation(std::optional<Kind> kind) {
    if (std::exchange(options_.presentation, kind) != kind)
        chooseSoon();
}

void StatusItem::setTextShownElsewhere(bool isShown) {
    if (std::exchange(isTextShownElsewhere_, isShown) != isShown)
        chooseSoon();
}

void StatusItem::setMenu(std::vector<MenuEntry> entries) {
    Q_ASSERT(!presentation_);
    identity_.menu = std::move(entries);
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
        presentation_->setContent(content_);
    if (icon_)
        icon_->setContent(content_);
}

void StatusItem::setListed(bool isListed) {
    if (std::exchange(isListed_, isListed) != isListed)
        chooseSoon();
}

StatusItemDesktop StatusItem::usableDesktop() const {
    StatusItemDesktop desktop = desktop_.desktop();
    desktop.hasWatcher = desktop.hasWatcher && isListed_;
    return desktop;
}

Kind StatusItem::fittingKind() const {
    return isTextShownElsewhere_
               ? Kind::icon
               : StatusItemPresentationChoice::of(options_.presentation, usableDesktop());
}

void StatusItem::chooseSoon() {
    constexpr auto strip = Kind::strip;
    if (!desktop_.isKnown())
        return;
    const bool hasPanel = desktop_.desktop().hasWatcher || desktop_.desktop().hasTray;
    if (!desktop_.desktop().hasWatcher)
        isListed_ = true; // which the next one has to show
    const auto kind = fittingKind();
    // A panel that has gone may come back, and to be ready for another kind would help nobody.
    if (manner_ && kind != strip && !hasPanel && !isTextShownElsewhere_)
        return;
    if (kind != strip || (manner_ && manner_->kind == strip) || options_.presentation == strip) {
        patience_.reset();
        present(kind);
    } else if (!patience_) {
        patience_ = clock_.startTimer(panelPatience, [this] { present(strip); });
    }
    showIconBesideStrip();
}

void StatusItem::present(Kind kind) {
    const Manner manner{.kind = kind,
                        .keepsEmptyLabel =
                            kind == Kind::label &&
                            StatusItemPresentationChoice::keepsEmptyLabel(desktop_.desktop()),
                        .isTextShownElsewhere = isTextShownElsewhere_};
    if (manner_ == manner)
        return;
    manner_ = manner;
    // One goes before the other comes: both would be known by the same path on the bus.
    presentation_.reset();
    icon_.reset();
    presentation_ = makePresentation(kind);
    if (shown_)
        presentation_->setContent(*shown_);
    showIconBesideStrip();
}

void StatusItem::showIconBesideStrip() {
    // Not registered in advance: a panel that comes up may make another presentation possible, and
    // is not to be shown two items.
    if (!manner_ || manner_->kind != Kind::strip || !desktop_.desktop().hasWatcher) {
        icon_.reset();
    } else if (!icon_) {
        icon_ = makeNotifierItem(StatusNotifierRendering::Style::icon);
        if (shown_)
            icon_->setContent(*shown_);
    }
}

std::unique_ptr<StatusItemPresentation> StatusItem::makePresentation(Kind kind) {
    using Style = StatusNotifierRendering::Style;
    switch (kind) {
    case Kind::label:
        return makeNotifierItem(Style::iconAndLabel);
    case Kind::image:
        return makeNotifierItem(Style::wideImage);
    case Kind::dock:
        return std::make_unique<DockWindow>(identity_, *this, tray_, appearance_);
    case Kind::icon:
        return makeNotifierItem(isTextShownElsewhere_ ? Style::spareIcon : Style::icon);
    case Kind::strip:
        break;
    }
    return std::make_unique<StripWindow>(identity_, *this, options_.stripPosition,
                                         options_.stripScreen);
}

std::unique_ptr<StatusNotifierItem>
StatusItem::makeNotifierItem(StatusNotifierRendering::Style style) {
    using EmptyLabel = StatusNotifierRendering::EmptyLabel;
    const StatusNotifierRendering rendering(
        style, manner_ && manner_->keepsEmptyLabel ? EmptyLabel::isKept : EmptyLabel::isLeftOut,
        identity_, appearance_);
    auto item = std::make_unique<StatusNotifierItem>(identity_, rendering, bus_, clock_, *this,
                                                     ++notifierItems_);
    // Which may end the item.
    connect(item.get(), &StatusNotifierItem::listedChanged, this, &StatusItem::setListed,
            Qt::QueuedConnection);
    return item;
}

std::optional<QRect> StatusItem::frame() const {
    return presentation_ ? presentation_->frame() : std::nullopt;
}

} // namespace platform
