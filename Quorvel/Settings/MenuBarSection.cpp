// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/MenuBarSection.h"

#include "Platform/Controls/MessageLine.h"
#include "Platform/Controls/Reveal.h"
#include "Platform/Controls/Stepper.h"
#include "Platform/Controls/Switch.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Settings/Choices.h"
#include "Quorvel/Settings/FormFonts.h"
#include "Quorvel/Settings/FormRow.h"

#include <cmath>

namespace quorvel {

using platform::localized;
using platform::MessageLine;
using platform::Reveal;
using platform::Stepper;

namespace {

MessageLine* makeHint(const QString& text) {
    auto* const hint = new MessageLine(MessageLine::Kind::secondary, FormFonts::caption);
    hint->setText(text);
    return hint;
}

} // namespace

MenuBarSection::MenuBarSection(SettingsStore& settings, QWidget* parent)
    : FormSection(localized("Quorvel", "Menu Bar"), parent), settings_(settings) {
    addDisplay();
    addRotation();
    addSideBySide();
    addContent();
    addSwitch(localized("Quorvel", "Show icon"), &DisplaySettings::showsIcon);
    addSwitch(localized("Quorvel", "Show up/down arrow"), &DisplaySettings::showsDirectionArrow);
    connect(&settings, &SettingsStore::displayChanged, this, &MenuBarSection::refresh);
    refresh();
}

void MenuBarSection::addDisplay() {
    const Choices<StatusBarDisplayMode> modes = {
        {StatusBarDisplayMode::rotating, localized("Quorvel", "Rotate one")},
        {StatusBarDisplayMode::sideBySide, localized("Quorvel", "Side by side")},
        {StatusBarDisplayMode::fixed, localized("Quorvel", "Fixed one")},
    };
    auto* const picker = makePicker(modes);
    auto* const row = new FormRow(localized("Quorvel", "Display"), picker);
    fixedHint_ = row->addHint(makeHint(
        localized("Quorvel", "Shows the first pinned coin, or the first in your watchlist")));
    card().addRow(row);
    bindDisplay(*picker, modes, settings_, &DisplaySettings::mode);
}

void MenuBarSection::addRotation() {
    rotation_ = new Stepper(DisplaySettings::minimumRotationInterval.count(),
                            DisplaySettings::maximumRotationInterval.count());
    rotationRow_ = new FormRow({}, rotation_);
    rotationReveal_ = new Reveal(rotationRow_);
    card().addRow(rotationReveal_);
    connect(rotation_, &Stepper::valueChanged, this, [this](double seconds) {
        DisplaySettings display = settings_.display();
        display.setRotationInterval(platform::TimeInterval(seconds));
        if (display != settings_.display())
            settings_.setDisplay(display);
    });
}

void MenuBarSection::addSideBySide() {
    limit_ = new Stepper(DisplaySettings::minimumSideBySideLimit,
                         DisplaySettings::maximumSideBySideLimit);
    limitRow_ = new FormRow({}, limit_);
    limitRow_->addHint(makeHint(localized("Quorvel", "Right-click a coin in the panel to pin it")))
        ->setRevealed(true);
    limitReveal_ = new Reveal(limitRow_);
    card().addRow(limitReveal_);
    connect(limit_, &Stepper::valueChanged, this, [this](double limit) {
        DisplaySettings display = settings_.display();
        display.setSideBySideLimit(static_cast<std::int64_t>(limit));
        if (display != settings_.display())
            settings_.setDisplay(display);
    });
}

void MenuBarSection::addContent() {
    const Choices<StatusBarContent> contents = {
        {StatusBarContent::both, localized("Quorvel", "Price and change")},
        {StatusBarContent::priceOnly, localized("Quorvel", "Price only")},
        {StatusBarContent::changeOnly, localized("Quorvel", "Change only")},
    };
    auto* const picker = makePicker(contents);
    card().addRow(new FormRow(localized("Quorvel", "Content"), picker));
    bindDisplay(*picker, contents, settings_, &DisplaySettings::content);
}

void MenuBarSection::addSwitch(const QString& label, bool DisplaySettings::* field) {
    auto* const control = new platform::Switch;
    card().addRow(new FormRow(label, control));
    const auto show = [this, control, field] { control->setChecked(settings_.display().*field); };
    show();
    connect(&settings_, &SettingsStore::displayChanged, control, show);
    connect(control, &QAbstractButton::toggled, this, [this, field](bool isOn) {
        DisplaySettings display = settings_.display();
        display.*field = isOn;
        if (display != settings_.display())
            settings_.setDisplay(display);
    });
}

void MenuBarSection::refresh() {
    const DisplaySettings& display = settings_.display();
    const double seconds = display.rotationInterval().count();
    const std::int64_t limit = display.sideBySideLimit();
    rotation_->setValue(seconds);
    rotationRow_->setLabel(localized("Quorvel", "Rotation interval: %1s")
                               .arg(QString::number(static_cast<int>(std::trunc(seconds)))));
    limit_->setValue(static_cast<double>(limit));
    limitRow_->setLabel(localized("Quorvel", "Show up to %1").arg(QString::number(limit)));
    rotationReveal_->setRevealed(display.mode == StatusBarDisplayMode::rotating);
    fixedHint_->setRevealed(display.mode == StatusBarDisplayMode::fixed);
    limitReveal_->setRevealed(display.mode == StatusBarDisplayMode::sideBySide);
}

} // namespace quorvel
