#include "Platform/Desktop/StatusItem.h"

#include "Platform/Desktop/StatusNotifierItem.h"

#include <QDBusConnection>

#include <algorithm>
#include <utility>

namespace platform {

StatusItem::StatusItem(StatusItemIdentity identity, Clock& clock, const QDBusConnection& bus,
                       QObject* parent)
    : QObject(parent),
      clock_(clock),
      presentation_(std::make_unique<StatusNotifierItem>(std::move(identity), bus)) {
    connect(presentation_.get(), &StatusItemPresentation::activated, this, &StatusItem::activated);
    connect(presentation_.get(), &StatusItemPresentation::menuTriggered, this,
            &StatusItem::menuTriggered);
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
    presentation_->show(content_);
}

} // namespace platform
