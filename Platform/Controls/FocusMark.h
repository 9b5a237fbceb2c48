// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

class QWidget;

namespace platform {

/// Whether a control that has the keyboard shows it: it does once the keyboard is what the user
/// works with, and not for a mere click. A member of the control.
class FocusMark final : public QObject {
    Q_OBJECT

public:
    explicit FocusMark(QWidget& control);

    bool isShown() const { return isShown_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void show(bool isShown);

    QWidget& control_;
    bool isShown_ = false;
};

} // namespace platform
