// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/Reveal.h"

#include <QEvent>
#include <QStyle>

#include <algorithm>
#include <chrono>
#include <utility>

namespace platform {

namespace {

constexpr std::chrono::milliseconds movingTime{140};

} // namespace

Reveal::Reveal(QWidget* content, QWidget* parent) : QWidget(parent), content_(content) {
    content->setParent(this);
    motion_.setDuration(movingTime.count());
    motion_.setEasingCurve(QEasingCurve::OutCubic);
    connect(&motion_, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& value) { setShare(value.toDouble()); });
    connect(&motion_, &QVariantAnimation::finished, this, &Reveal::finish);
    setVisible(false);
}

void Reveal::setRevealed(bool isRevealed) {
    if (std::exchange(isRevealed_, isRevealed) == isRevealed)
        return;
    motion_.stop();
    const double target = isRevealed ? 1 : 0;
    const bool isSeen = parentWidget() && parentWidget()->isVisible();
    if (isRevealed)
        setVisible(true);
    else
        passFocusOn();
    content_->setEnabled(isRevealed);
    if (!isSeen || !style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this)) {
        setShare(target);
        finish();
        return;
    }
    motion_.setStartValue(share_);
    motion_.setEndValue(target);
    motion_.start();
}

void Reveal::passFocusOn() {
    const auto hasIt = [this] {
        const QWidget* const focus = window()->focusWidget();
        return focus && content_->isAncestorOf(focus);
    };
    const QWidget* const first = window()->focusWidget();
    while (hasIt() && focusNextChild() && window()->focusWidget() != first) {
    }
}

void Reveal::dismiss() {
    isDismissed_ = true;
    setRevealed(false);
}

void Reveal::setShare(double share) {
    share_ = share;
    updateGeometry();
}

void Reveal::finish() {
    setVisible(isRevealed_);
    if (isDismissed_)
        deleteLater();
}

int Reveal::contentHeight(int width) const {
    const int height = content_->hasHeightForWidth() ? content_->heightForWidth(width)
                                                     : content_->sizeHint().height();
    return std::max(height, content_->minimumSizeHint().height());
}

int Reveal::heightForWidth(int width) const {
    return qRound(share_ * contentHeight(width));
}

QSize Reveal::sizeHint() const {
    const QSize content = content_->sizeHint();
    return {content.width(), qRound(share_ * content.height())};
}

QSize Reveal::minimumSizeHint() const {
    return {content_->minimumSizeHint().width(), 0};
}

bool Reveal::event(QEvent* event) {
    // The content has come to want another size.
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        content_->resize(width(), contentHeight(width()));
    }
    return QWidget::event(event);
}

void Reveal::resizeEvent(QResizeEvent*) {
    content_->resize(width(), contentHeight(width()));
}

} // namespace platform
