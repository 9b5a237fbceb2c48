// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/Motion.h"

#include <QStyle>
#include <QWidget>

namespace platform {

Motion::Motion(QWidget& control) : QVariantAnimation(&control), control_(control) {}

Motion* Motion::of(const QWidget* control) {
    return control ? control->findChild<Motion*>({}, Qt::FindDirectChildrenOnly) : nullptr;
}

void Motion::jumpTo(double share) {
    stop();
    share_ = share;
    control_.update();
}

void Motion::moveTo(double share, std::chrono::milliseconds duration,
                    std::chrono::milliseconds rest) {
    stop();
    const bool isAnimated =
        control_.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &control_) > 0;
    if (!control_.isVisible() || !isAnimated) {
        jumpTo(share);
        return;
    }
    const auto whole = rest + duration;
    setDuration(static_cast<int>(whole.count()));
    setKeyValues({{0, share_}, {double(rest.count()) / double(whole.count()), share_}, {1, share}});
    start();
}

void Motion::updateCurrentValue(const QVariant& value) {
    share_ = value.toDouble();
    control_.update();
}

} // namespace platform
