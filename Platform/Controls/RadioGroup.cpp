// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Controls/RadioGroup.h"

#include "Platform/Controls/AccessibleRole.h"
#include "Platform/Controls/RadioButton.h"

#include <QVBoxLayout>

#include <algorithm>

namespace platform {

RadioGroup::RadioGroup(const QStringList& choices, QWidget* parent) : QWidget(parent) {
    setAccessibleRole(*this, QAccessible::Grouping);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    for (int i = 0; i < choices.size(); ++i) {
        auto* const button = buttons_.emplace_back(new RadioButton(choices[i], this));
        layout->addWidget(button);
        connect(button, &QRadioButton::toggled, this, [this, i](bool isChosen) {
            if (isChosen)
                Q_EMIT currentIndexChanged(i);
        });
    }
}

int RadioGroup::currentIndex() const {
    const auto chosen = std::ranges::find_if(buttons_, &QAbstractButton::isChecked);
    return chosen == buttons_.end() ? -1 : static_cast<int>(chosen - buttons_.begin());
}

void RadioGroup::setCurrentIndex(int index) {
    buttons_.at(static_cast<std::size_t>(index))->setChecked(true);
}

} // namespace platform
