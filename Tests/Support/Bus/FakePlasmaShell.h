// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/DBus/DBusObject.h"

#include <QDBusConnection>
#include <QString>

namespace test {

/// Plasma's shell as far as it answers questions about its layout.
class FakePlasmaShell final : public platform::DBusObject {
    Q_OBJECT

public:
    /// @param bus    a connection of its own
    /// @param answer what it prints for any script that knows `widget`
    FakePlasmaShell(QDBusConnection bus, const QString& widget, QString answer);
    ~FakePlasmaShell() override;

    /// Another layout, written to `file` as the shell does: in place of the old one.
    void change(const QString& answer, const QString& file);

    int questionCount() const { return questionCount_; }

protected:
    QVariantMap properties() const override { return {}; }

private:
    QDBusConnection bus_;
    QString answer_;
    int questionCount_ = 0;
};

} // namespace test
