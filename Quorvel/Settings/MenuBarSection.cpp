// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Quorvel/Settings/MenuBarSection.h"

#include "Platform/Controls/ControlStyle.h"
#include "Platform/Foundation/StringTable.h"
#include "Quorvel/Choices/Choices.h"
#include "Quorvel/Choices/PresentationBox.h"
#include "Quorvel/Settings/FormFonts.h"
#include "Quorvel/Settings/FormRow.h"

#include <QCheckBox>
#include <QSpinBox>

namespace quorvel {

using platform::localized;

namespace {

platform::Label* makeHint(const QString& text) {
    using platform::Label;
    auto* const hint = new Label(Label::Tone::secondary, FormFonts::caption);
    hint->setText(text);
    return hint;
}

QSpinBox* makeSpinBox(std::int64_t minimum, std::int64_t maximum) {
    auto* const box = new QSpinBox;
    box->setRange(static_cast<int>(minimum), static_cast<int>(maximum));
    return box;
}

int wholeSeconds(const DisplaySettings& display) {
    return static_cast<int>(display.rotationInterval().count());
}

} // namespace

MenuBarSection::MenuBarSection(SettingsStore& settings, PresentationChoice& presentation,
                               QWidget* parent)
    : FormSection(localized("Quorvel", "Menu Bar"), parent),
      settings_(settings),
      presentation_(presentation) {
    addPresentation();
    addDisplay();
    addRotation();
    addSideBySide();
    addContent();
    addSwitch(localized("Quorvel", "Show icon"), &DisplaySettings::showsIcon);
    addSwitch(localized("Quorvel", "Show up/down arrow"), &DisplaySettings::showsDirectionArrow);
    connect(&settings, &SettingsStore::displayChanged, this, &MenuBarSection::refresh);
    refresh();
}

void MenuBarSection::addPresentation() {
    auto* const hint = makeHint({});
    auto* const row =
        new FormRow(localized("Quorvel", "Show prices in"), makePresentationBox(presentation_));
    const auto explain = [this, hint] {
        hint->setText(presentationPurpose(presentation_.preferred()));
    };
    explain();
    connect(&presentation_, &PresentationChoice::preferredChanged, hint, explain);
    row->addHint(hint);
    card().addRow(row);
}

void MenuBarSection::addDisplay() {
    const Choices<StatusBarDisplayMode> modes = {
        {StatusBarDisplayMode::rotating, localized("Quorvel", "Rotate one")},
        {StatusBarDisplayMode::sideBySide, localized("Quorvel", "Side by side")},
        {StatusBarDisplayMode::fixed, localized("Quorvel", "Fixed one")},
    };
    auto* const row = new FormRow(localized("Quorvel", "Display"),
                                  makeComboBox(modes, settings_, &DisplaySettings::mode));
    fixedHint_ = makeHint(
        localized("Quorvel", "Shows the first pinned coin, or the first in your watchlist"));
    row->addHint(fixedHint_);
    card().addRow(row);
}

void MenuBarSection::addRotation() {
    rotation_ =
        makeSpinBox(static_cast<std::int64_t>(DisplaySettings::minimumRotationInterval.count()),
                    static_cast<std::int64_t>(DisplaySettings::maximumRotationInterval.count()));
    rotationRow_ = new FormRow({}, rotation_);
    card().addRow(rotationRow_);
    connect(rotation_, &QSpinBox::valueChanged, this, [this](int seconds) {
        // A step changes the interval by one, and leaves what it has beyond whole seconds.
        DisplaySettings display = settings_.display();
        const int steps = seconds - wholeSeconds(display);
        if (steps == 0)
            return;
        display.setRotationInterval(display.rotationInterval() + platform::TimeInterval(steps));
        settings_.setDisplay(display);
    });
}

void MenuBarSection::addSideBySide() {
    limit_ = makeSpinBox(DisplaySettings::minimumSideBySideLimit,
                         DisplaySettings::maximumSideBySideLimit);
    limitRow_ = new FormRow({}, limit_);
    limitRow_->addHint(makeHint(localized("Quorvel", "Right-click a coin in the panel to pin it")));
    card().addRow(limitRow_);
    connect(limit_, &QSpinBox::valueChanged, this, [this](int limit) {
        DisplaySettings display = settings_.display();
        display.setSideBySideLimit(limit);
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
    card().addRow(new FormRow(localized("Quorvel", "Content"),
                              makeComboBox(contents, settings_, &DisplaySettings::content)));
}

void MenuBarSection::addSwitch(const QString& label, bool DisplaySettings::* field) {
    auto* const control = new QCheckBox;
    platform::ControlStyle::makeSwitch(*control);
    card().addRow(new FormRow(label, control));
    const auto show = [this, control, field] { control->setChecked(settings_.display().*field); };
    show();
    connect(&settings_, &SettingsStore::displayChanged, control, show);
    connect(control, &QCheckBox::toggled, this,
            [this, field](bool isOn) { setField(settings_, field, isOn); });
}

void MenuBarSection::refresh() {
    const DisplaySettings& display = settings_.display();
    const int seconds = wholeSeconds(display);
    const auto limit = static_cast<int>(display.sideBySideLimit());
    rotation_->setValue(seconds);
    rotationRow_->setLabel(
        localized("Quorvel", "Rotation interval: %1s").arg(QString::number(seconds)));
    limit_->setValue(limit);
    limitRow_->setLabel(localized("Quorvel", "Show up to %1").arg(QString::number(limit)));
    rotationRow_->setVisible(display.mode == StatusBarDisplayMode::rotating);
    fixedHint_->setVisible(display.mode == StatusBarDisplayMode::fixed);
    limitRow_->setVisible(display.mode == StatusBarDisplayMode::sideBySide);
}

} // namespace quorvel
