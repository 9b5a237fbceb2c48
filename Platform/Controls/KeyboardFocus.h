// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

namespace platform {

/// Knows whether the control that has the keyboard shows it: it does once the keyboard is what the
/// user works with, and not for a mere click.
class KeyboardFocus final : public QObject {
    Q_OBJECT

public:
    /// Watches a control from now on.
    void watch(QWidget& control);

    bool isShownBy(const QObject* control) const { return control && shown_.data() == control; }

protected:
    bool eventFilter(QObject* control, QEvent* event) override;

private:
    void show(QWidget* control);

    QPointer<QWidget> shown_;
};

} // namespace platform
