// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QWidget>

#include <vector>

namespace platform {

class RadioButton;

/// Choices below each other of which one holds. Named for assistive technology by whoever places
/// it.
class RadioGroup final : public QWidget {
    Q_OBJECT

public:
    explicit RadioGroup(const QStringList& choices, QWidget* parent = nullptr);

    /// The choice that holds; -1 while none has been made.
    int currentIndex() const;
    void setCurrentIndex(int index);

Q_SIGNALS:
    void currentIndexChanged(int index);

private:
    std::vector<RadioButton*> buttons_;
};

} // namespace platform
