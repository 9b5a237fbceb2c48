// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/SettingsWindow.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/OverlayScrollBar.h"
#include "Quorvel/Settings/AlertsSection.h"
#include "Quorvel/Settings/AppearanceSection.h"
#include "Quorvel/Settings/GeneralSection.h"
#include "Quorvel/Settings/MenuBarSection.h"

#include <QPainter>
#include <QScrollArea>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace quorvel {

using platform::OverlayScrollBar;

namespace {

constexpr int sideInset = 20;
constexpr int topInset = 16;
constexpr int bottomInset = 20;
constexpr int sectionSpacing = 20;
constexpr int scrollStep = 40;

} // namespace

SettingsWindow::SettingsWindow(AppModel& model, std::function<void()> onRelaunch, QWidget* parent)
    : QWidget(parent), model_(model) {
    setFixedWidth(contentWidth);
    setMinimumHeight(minimumContentHeight);
    setMaximumHeight(maximumContentHeight);
    makeScrollArea(makeForm(std::move(onRelaunch)));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scrollArea_);
    connect(scrollArea_->verticalScrollBar(), &QScrollBar::rangeChanged, this,
            [this](int, int maximum) { keepEnd(maximum); });
    connect(alerts_, &AlertsSection::pairTakenOver, this, &SettingsWindow::openAlertForm);
}

void SettingsWindow::makeScrollArea(QWidget* form) {
    scrollArea_ = new QScrollArea(this);
    scrollArea_->setFrameShape(QFrame::NoFrame);
    scrollArea_->setFocusPolicy(Qt::NoFocus);
    scrollArea_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // At all times, so that the cards keep their width.
    scrollArea_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    scrollArea_->setVerticalScrollBar(new OverlayScrollBar);
    scrollArea_->verticalScrollBar()->setSingleStep(scrollStep);
    scrollArea_->setWidgetResizable(true);
    scrollArea_->setWidget(form);
    // A scroll area gives itself and its widget a background of their own.
    scrollArea_->viewport()->setAutoFillBackground(false);
    form->setAutoFillBackground(false);
}

QWidget* SettingsWindow::makeForm(std::function<void()> onRelaunch) {
    auto* const form = new QWidget;
    auto* const sections = new QVBoxLayout(form);
    sections->setContentsMargins(sideInset, topInset, sideInset - OverlayScrollBar::breadth,
                                 bottomInset);
    sections->setSpacing(sectionSpacing);
    sections->addWidget(new MenuBarSection(model_.settings()));
    sections->addWidget(new AppearanceSection(model_.settings()));
    alerts_ = new AlertsSection(model_);
    sections->addWidget(alerts_);
    sections->addWidget(new GeneralSection(model_, std::move(onRelaunch)));
    sections->addStretch();
    return form;
}

void SettingsWindow::keepEnd(int maximum) {
    // What comes into being at the end is to be seen.
    QScrollBar& bar = *scrollArea_->verticalScrollBar();
    const int before = std::exchange(lastMaximum_, maximum);
    if (before > 0 && bar.value() == before)
        bar.setValue(maximum);
}

void SettingsWindow::openAlertForm() {
    if (!isVisible()) {
        opensAlertForm_ = true;
        return;
    }
    opensAlertForm_ = false;
    scrollArea_->ensureWidgetVisible(&alerts_->form(), 0, bottomInset);
    alerts_->form().focusThreshold();
}

void SettingsWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    // Nothing has its place yet.
    if (opensAlertForm_)
        QTimer::singleShot(0, this, &SettingsWindow::openAlertForm);
}

void SettingsWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), platform::SystemColors::of(palette()).formBackground);
}

} // namespace quorvel
