// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/SettingsWindow.h"

#include "Platform/Appearance/SystemColors.h"
#include "Platform/Controls/ControlStyle.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Settings/AlertsSection.h"
#include "Quorvel/Settings/AppearanceSection.h"
#include "Quorvel/Settings/GeneralSection.h"
#include "Quorvel/Settings/MenuBarSection.h"
#include "Quorvel/Settings/Notice.h"

#include <QApplication>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

#include <utility>

namespace quorvel {

namespace {

constexpr int sideInset = 20;
constexpr int topInset = 16;
constexpr int bottomInset = 20;
constexpr int sectionSpacing = 20;
constexpr int scrollStep = 40;

} // namespace

SettingsWindow::SettingsWindow(AppModel& model, QWidget* parent) : QWidget(parent), model_(model) {
    setFixedWidth(contentWidth);
    setMinimumHeight(minimumContentHeight);
    setMaximumHeight(maximumContentHeight);
    makeScrollArea(makeForm());
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(scrollArea_);
    connect(scrollArea_->verticalScrollBar(), &QScrollBar::rangeChanged, this,
            [this](int, int maximum) { keepEnd(maximum); });
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* focus) { followFocus(focus); });
}

SettingsWindow::~SettingsWindow() {
    // A window that goes while it is shown loses the focus last of all.
    disconnect(qApp, nullptr, this, nullptr);
}

void SettingsWindow::makeScrollArea(QWidget* form) {
    scrollArea_ = new QScrollArea(this);
    scrollArea_->setFrameShape(QFrame::NoFrame);
    scrollArea_->setFocusPolicy(Qt::NoFocus);
    scrollArea_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // At all times, so that the cards keep their width.
    scrollArea_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    scrollArea_->verticalScrollBar()->setSingleStep(scrollStep);
    scrollArea_->verticalScrollBar()->setAccessibleName(
        platform::localized("Quorvel", "Quorvel Settings"));
    scrollArea_->setWidgetResizable(true);
    scrollArea_->setWidget(form);
    // A scroll area gives itself and its widget a background of their own.
    scrollArea_->viewport()->setAutoFillBackground(false);
    form->setAutoFillBackground(false);
}

QWidget* SettingsWindow::makeForm() {
    auto* const form = new QWidget;
    // The scroll bar stands beside the sections, at one side or the other.
    constexpr int besideBar = sideInset - platform::ControlStyle::scrollBarBreadth;
    auto* const line = new QHBoxLayout(form);
    line->setContentsMargins(besideBar, topInset, besideBar, bottomInset);
    line->setSpacing(0);
    line->addSpacing(sideInset - besideBar);
    auto* const sections = new QVBoxLayout;
    line->addLayout(sections);
    sections->setSpacing(sectionSpacing);
    sections->addWidget(makeUnsavedNotice());
    sections->addWidget(new MenuBarSection(model_.settings(), model_.presentation()));
    sections->addWidget(new AppearanceSection(model_.settings()));
    alerts_ = new AlertsSection(model_);
    sections->addWidget(alerts_);
    sections->addWidget(new GeneralSection(model_));
    sections->addStretch();
    return form;
}

QWidget* SettingsWindow::makeUnsavedNotice() {
    auto* const notice = new Notice(platform::Label::Tone::error);
    const SettingsStore& settings = model_.settings();
    const auto show = [&settings, notice] {
        notice->setMessage(
            settings.isSaved()
                ? std::nullopt
                : std::optional(platform::localized(
                      "Quorvel", "Settings can't be saved. They hold until Quorvel quits.")));
    };
    show();
    connect(&settings, &SettingsStore::isSavedChanged, notice, show);
    return notice;
}

void SettingsWindow::keepEnd(int maximum) {
    // What comes into being at the end is to be seen.
    QScrollBar& bar = *scrollArea_->verticalScrollBar();
    const int before = std::exchange(lastMaximum_, maximum);
    if (before > 0 && bar.value() == before)
        bar.setValue(maximum);
}

void SettingsWindow::followFocus(QWidget* focus) {
    // A pair handed over gives the form the keyboard, which it gets once the window is shown. What
    // was clicked is in sight, and must not move away under the pointer.
    if (focus && alerts_->form().isAncestorOf(focus) &&
        QGuiApplication::mouseButtons() == Qt::NoButton)
        scrollArea_->ensureWidgetVisible(focus, 0, bottomInset);
}

void SettingsWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), platform::SystemColors::of(palette()).formBackground);
}

} // namespace quorvel
