// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Popover/Popover.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Desktop/Compositing.h"
#include "Platform/Desktop/DevicePixels.h"
#include "Platform/Desktop/X11.h"
#include "Platform/Popover/PopoverPlacement.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace platform {

namespace {

QScreen* screenOf(QPoint point) {
    QScreen* const screen = QGuiApplication::screenAt(point);
    return screen ? screen : QGuiApplication::primaryScreen();
}

ScreenArea areaOf(const QScreen& screen) {
    return {screen.geometry(), screen.availableGeometry()};
}

/// Whether the program knows where the pointer is when it is not over one of its windows.
bool isPointerKnown() {
    return !qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
}

bool isPlausible(QPoint point) {
    const QScreen* const screen = QGuiApplication::screenAt(point);
    return screen && PopoverPlacement::isAtEdge(point, areaOf(*screen));
}

} // namespace

Popover::Popover(const Clock& clock)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::NoDropShadowWindowHint),
      clock_(clock) {
    setAttribute(Qt::WA_TranslucentBackground);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(PopoverFrame::margins(isComposited_));
    layout->setSizeConstraint(QLayout::SetNoConstraint);
}

Popover::~Popover() = default;

void Popover::setContent(QWidget* content) {
    Q_ASSERT(!content_);
    content_ = content;
    layout()->addWidget(content);
}

QPoint Popover::anchor(std::optional<QPoint> reported) {
    // The pointer is on what was clicked, unless the click was a key press.
    const QPoint pointer = QCursor::pos();
    if (isPointerKnown() && isPlausible(pointer))
        return pointer;
    if (reported && !reported->isNull()) {
        const auto point = fromDevicePixels(*reported);
        if (point && isPlausible(*point))
            return *point;
    }
    return PopoverPlacement::panelCorner(areaOf(*screenOf(pointer)));
}

void Popover::showBeside(QPoint anchor) {
    anchor_ = anchor;
    item_.reset();
    showPlaced();
}

void Popover::showBeside(const QRect& item) {
    anchor_ = item.center();
    item_ = item;
    showPlaced();
}

void Popover::showPlaced() {
    dismissedAt_.reset();
    adoptCompositing();
    layout()->activate();
    place();
    if (!isVisible() && x11::connection())
        x11::keepOutOfLists(static_cast<quint32>(winId()));
    show();
    raise();
    activateWindow();
}

void Popover::adoptCompositing() {
    if (std::exchange(isComposited_, isDisplayComposited()) == isComposited_)
        return;
    // A window is of one kind for life.
    if (windowHandle())
        destroy();
    setAttribute(Qt::WA_TranslucentBackground, isComposited_);
    layout()->setContentsMargins(PopoverFrame::margins(isComposited_));
}

void Popover::place() {
    const ScreenArea screen = areaOf(*screenOf(anchor_));
    const QMargins margins = PopoverFrame::margins(isComposited_);
    const QSize room =
        screen.available.size() - 2 * QSize(PopoverPlacement::gap, PopoverPlacement::gap);
    const QSize card = (sizeHint().shrunkBy(margins)).boundedTo(room);
    const QPoint corner = item_ ? PopoverPlacement::position(*item_, card, screen)
                                : PopoverPlacement::position(anchor_, card, screen);
    setGeometry(QRect(corner, card).marginsAdded(margins));
}

bool Popover::wasJustDismissed() const {
    return dismissedAt_ && clock_.uptime() - *dismissedAt_ < dismissalGrace;
}

void Popover::setVisible(bool isVisible) {
    isClosing_ = !isVisible;
    QWidget::setVisible(isVisible);
}

void Popover::dismissUnlessActive() {
    // Its own menus and dialogs take the activation without the user turning away.
    if (!isVisible() || isClosing_ || isActiveWindow() || QApplication::activePopupWidget() ||
        QApplication::activeModalWidget())
        return;
    dismissedAt_ = clock_.uptime();
    hide();
}

bool Popover::event(QEvent* event) {
    const bool isHandled = QWidget::event(event);
    if (event->type() == QEvent::ActivationChange)
        dismissUnlessActive();
    else if (event->type() == QEvent::LayoutRequest && isVisible())
        place();
    return isHandled;
}

void Popover::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Cancel))
        hide();
    else
        QWidget::keyPressEvent(event);
}

void Popover::mousePressEvent(QMouseEvent* event) {
    // The shadow is not part of the popover in the user's eyes.
    if (!rect().marginsRemoved(PopoverFrame::margins(isComposited_)).contains(event->pos()))
        hide();
}

void Popover::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    frame_.paint(painter, rect(), event->rect(), SystemColors::of(palette()), isComposited_);
}

void Popover::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    Q_EMIT closed();
}

} // namespace platform
