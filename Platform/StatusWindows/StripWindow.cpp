// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusWindows/StripWindow.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Desktop/Compositing.h"
#include "Platform/Desktop/X11.h"

#include <QApplication>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace platform {

namespace {

constexpr QMargins contentInset(10, 2, 10, 2);

/// Between the strip and the edges.
constexpr int distance = 4;

/// How opaque it is over a window's title bar: legible, and so is what lies beneath.
constexpr double dimmed = 0.6;

/// Whether the display's window manager leaves a small dock where it puts itself, in the size it
/// gives itself. True where there is none to ask.
bool leavesDocksInPlace() {
    if (!x11::connection())
        return true;
    // i3 and its kin give a dock a whole edge of the screen. What follows it on Wayland lays it out
    // like any window; those compositors have the name of the library that they stand on.
    const QByteArray name = x11::windowManager();
    return name != "i3" && name != "wlroots wm";
}

Qt::WindowFlags stripFlags() {
    const Qt::WindowFlags flags = Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                                  Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint;
    return leavesDocksInPlace() ? flags : flags | Qt::BypassWindowManagerHint;
}

} // namespace

StripWindow::StripWindow(const StatusItemIdentity& identity, StatusItemEvents& events,
                         StripPosition position, QString screen)
    : StatusItemView(identity, events, stripFlags(), contentInset),
      position_(position),
      screen_(std::move(screen)) {
    setAttribute(Qt::WA_TranslucentBackground);
    // Not every window manager puts windows that fill the screen above docks.
    connect(&activeWindow_, &ActiveWindowWatch::changed, this, [this] {
        showUnlessCovered();
        dimOverWindows();
    });
    followScreens();
}

void StripWindow::setContent(const StatusItemContent& content) {
    adoptCompositing();
    StatusItemView::setContent(content);
    showUnlessCovered();
}

void StripWindow::showUnlessCovered() {
    if (hasContent())
        setVisible(!activeWindow_.fills(geometry().center()));
}

void StripWindow::dimOverWindows() {
    const bool isOver = activeWindow_.isMaximized(geometry().center());
    setWindowOpacity(isOver && !isPointedAt_ ? dimmed : 1);
}

void StripWindow::enterEvent(QEnterEvent* event) {
    isPointedAt_ = true;
    dimOverWindows();
    StatusItemView::enterEvent(event);
}

void StripWindow::leaveEvent(QEvent* event) {
    isPointedAt_ = false;
    dimOverWindows();
    StatusItemView::leaveEvent(event);
}

std::optional<QRect> StripWindow::frame() const {
    return isVisible() ? std::optional(geometry()) : std::nullopt;
}

void StripWindow::setVisible(bool isVisible) {
    // Window managers forget about windows that are hidden.
    if (isVisible && !this->isVisible() && x11::connection())
        presentToWindowManager();
    StatusItemView::setVisible(isVisible);
}

void StripWindow::presentToWindowManager() {
    const auto window = static_cast<quint32>(winId());
    // Window managers leave a dock where it puts itself, on every desktop, above ordinary windows
    // and below those that fill the screen.
    x11::setProperty(window, "_NET_WM_WINDOW_TYPE", "ATOM",
                     {x11::atom("_NET_WM_WINDOW_TYPE_DOCK")});
    // Which of a dock is not understood by all of them.
    x11::keepOutOfLists(window);
    constexpr quint32 allDesktops = 0xffff'ffff;
    x11::setProperty(window, "_NET_WM_DESKTOP", "CARDINAL", {allDesktops});
    // The toolkit offers to take the keyboard when asked, which it would refuse afterwards.
    auto protocols = x11::property(window, "WM_PROTOCOLS");
    std::erase(protocols, x11::atom("WM_TAKE_FOCUS"));
    x11::setProperty(window, "WM_PROTOCOLS", "ATOM", protocols);
}

void StripWindow::adoptCompositing() {
    if (std::exchange(isComposited_, isDisplayComposited()) == isComposited_)
        return;
    // A window is of one kind for life.
    const bool wasVisible = isVisible();
    hide();
    if (windowHandle())
        destroy();
    setAttribute(Qt::WA_TranslucentBackground, isComposited_);
    setVisible(wasVisible);
    dimOverWindows();
}

void StripWindow::followScreens() {
    for (QScreen* const screen : QGuiApplication::screens())
        followScreen(*screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen* screen) {
        followScreen(*screen);
        place();
    });
    connect(qGuiApp, &QGuiApplication::primaryScreenChanged, this, &StripWindow::place);
    // The screen is still among the others while this is told.
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &StripWindow::place,
            Qt::QueuedConnection);
}

void StripWindow::followScreen(QScreen& screen) {
    connect(&screen, &QScreen::geometryChanged, this, &StripWindow::place);
    connect(&screen, &QScreen::availableGeometryChanged, this, &StripWindow::place);
}

QScreen& StripWindow::currentScreen() const {
    const auto screens = QGuiApplication::screens();
    const auto found = std::ranges::find(screens, screen_, &QScreen::name);
    return found == screens.end() ? *QGuiApplication::primaryScreen() : **found;
}

QRect StripWindow::room() const {
    constexpr QMargins margin(distance, distance, distance, distance);
    return currentScreen().availableGeometry() - margin;
}

void StripWindow::place() {
    move(position_.corner(size(), room()));
}

void StripWindow::takeRoom(QSize size) {
    setFixedSize(size);
    place();
}

StatusItemColors StripWindow::colors() const {
    return {SystemColors::of(palette()).label, appearanceOf(palette())};
}

void StripWindow::paintGround(QPainter& painter) {
    const auto colors = SystemColors::of(palette());
    const double radius = isComposited_ ? height() / 2.0 : 0;
    const double hairline = 1 / devicePixelRatioF();
    const double inset = hairline / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.background);
    painter.drawRoundedRect(rect(), radius, radius);
    painter.setPen(QPen(colors.separator, hairline));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
}

void StripWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        pressedAt_ = event->position().toPoint();
}

void StripWindow::mouseMoveEvent(QMouseEvent* event) {
    if (!pressedAt_)
        return;
    const QPoint way = event->position().toPoint() - *pressedAt_;
    isDragged_ = isDragged_ || way.manhattanLength() >= QApplication::startDragDistance();
    if (isDragged_)
        dragTo(event->globalPosition().toPoint());
}

void StripWindow::dragTo(QPoint pointer) {
    if (const QScreen* const below = QGuiApplication::screenAt(pointer))
        screen_ = below->name();
    position_ = StripPosition::nearest(QRect(pointer - *pressedAt_, size()), room());
    place();
}

void StripWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    pressedAt_.reset();
    if (std::exchange(isDragged_, false))
        Q_EMIT events().stripMoved(position_, currentScreen().name());
    else
        StatusItemView::mouseReleaseEvent(event);
}

} // namespace platform
