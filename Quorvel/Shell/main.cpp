// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Async/TaskHandle.h"
#include "Platform/Foundation/SystemClock.h"
#include "Platform/Services/SingleInstance.h"
#include "Platform/Services/TerminationSignals.h"
#include "Quorvel/Shell/AppDelegate.h"
#include "QuorvelKit/Stores/FileWatchlistPersistence.h"

#include <QApplication>
#include <QDBusConnection>
#include <QFileInfo>
#include <QStandardPaths>

#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>

using namespace quorvel;
using platform::FileManager;
using platform::SingleInstance;

namespace {

/// A place that goes with the session where there is one, else with the caches.
QString iconDirectory() {
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    const QString base =
        runtime.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)
                          : runtime;
    return base + QStringLiteral("/Quorvel");
}

/// Where the files are that only one process may write.
QString dataDirectory(const FileManager& files) {
    try {
        return QFileInfo(FileWatchlistPersistence::standardLocation(files)).path();
    } catch (const platform::FileError&) {
        return files.temporaryDirectory();
    }
}

platform::Task<> claim(SingleInstance& instance, SingleInstance::Outcome& outcome) {
    outcome = co_await instance.claim();
    QCoreApplication::exit();
}

/// The exit status of a start that found another one; absent for the first.
std::optional<int> statusOfLaterStart(SingleInstance& instance) {
    auto outcome = SingleInstance::Outcome::unanswered;
    const platform::TaskHandle claiming = platform::startTask(claim(instance, outcome));
    QApplication::exec();
    switch (outcome) {
    case SingleInstance::Outcome::first:
        return std::nullopt;
    case SingleInstance::Outcome::handedOver:
        return EXIT_SUCCESS;
    case SingleInstance::Outcome::unanswered:
        break;
    }
    const auto process = instance.firstProcess();
    const std::string which = process ? " (process " + std::to_string(*process) + ")" : "";
    std::fprintf(stderr, "Quorvel is running already%s, but does not answer.\n", which.c_str());
    return EXIT_FAILURE;
}

int run(platform::Clock& clock, const FileManager& files, SingleInstance& instance) {
    platform::UserDefaults defaults(
        platform::UserDefaults::standardPath(QStringLiteral("Quorvel")));
    const platform::TerminationSignals signals;
    AppDelegate delegate({clock, files, defaults, iconDirectory()});
    QObject::connect(&signals, &platform::TerminationSignals::received, &delegate,
                     &AppDelegate::terminate);
    QObject::connect(&delegate, &AppDelegate::terminating, &instance,
                     &SingleInstance::stopListening);
    QObject::connect(&instance, &SingleInstance::called, &delegate, &AppDelegate::openPanel);
    QObject::connect(
        &delegate, &AppDelegate::terminated, QCoreApplication::instance(),
        [] { QCoreApplication::exit(EXIT_SUCCESS); }, Qt::QueuedConnection);
    delegate.applicationDidFinishLaunching();
    const int status = QApplication::exec();
    if (delegate.isRelaunching()) {
        instance.release();
        delegate.openNewInstance();
    }
    return status;
}

/// A program cannot place its windows on Wayland, so they go through XWayland where there is one.
void preferX11() {
    if (qEnvironmentVariableIsSet("WAYLAND_DISPLAY") && qEnvironmentVariableIsSet("DISPLAY") &&
        !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "xcb;wayland"); // the first that works
}

} // namespace

int main(int argc, char** argv) {
    preferX11();
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Quorvel"));
    QGuiApplication::setDesktopFileName(QStringLiteral("quorvel"));
    QGuiApplication::setQuitOnLastWindowClosed(false);

    platform::SystemClock clock;
    const FileManager files = FileManager::standard();
    SingleInstance instance({.interface = QStringLiteral("org.quorvel.Quorvel"),
                             .method = QStringLiteral("OpenPanel"),
                             .lockFile = QStringLiteral("quorvel.lock")},
                            dataDirectory(files), QDBusConnection::sessionBus(), clock);
    if (const auto status = statusOfLaterStart(instance))
        return *status;
    return run(clock, files, instance);
}
