// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tests/Support/Bus/FakePlasmaShell.h"

#include <QSaveFile>

#include <utility>

namespace test {

namespace {

const auto shellPath = QStringLiteral("/PlasmaShell");
const auto shellName = QStringLiteral("org.kde.plasmashell");

} // namespace

FakePlasmaShell::FakePlasmaShell(QDBusConnection bus, const QString& widget, QString answer)
    : DBusObject(QStringLiteral("org.kde.PlasmaShell"), nullptr),
      bus_(std::move(bus)),
      answer_(std::move(answer)) {
    addMethod("evaluateScript", "s", "s", [this, widget](const QVariantList& arguments) {
        ++questionCount_;
        return QVariantList{arguments[0].toString().contains(widget) ? answer_ + u'\n' : QString()};
    });
    bus_.registerVirtualObject(shellPath, this);
    bus_.registerService(shellName);
}

FakePlasmaShell::~FakePlasmaShell() {
    bus_.unregisterService(shellName);
    bus_.unregisterObject(shellPath);
}

void FakePlasmaShell::change(const QString& answer, const QString& file) {
    answer_ = answer;
    QSaveFile layout(file);
    if (!layout.open(QIODevice::WriteOnly) || layout.write(answer.toUtf8()) < 0 || !layout.commit())
        qFatal("Cannot write the layout");
}

} // namespace test
