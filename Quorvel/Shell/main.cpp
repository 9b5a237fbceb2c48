#include "Platform/Foundation/SystemClock.h"
#include "Platform/Services/TerminationSignals.h"
#include "Quorvel/Shell/AppDelegate.h"

#include <QApplication>
#include <QStandardPaths>

using namespace quorvel;

namespace {

/// A place that goes with the session where there is one, else with the caches.
QString iconDirectory() {
    const QString runtime = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    const QString base =
        runtime.isEmpty() ? QStandardPaths::writableLocation(QStandardPaths::GenericCacheLocation)
                          : runtime;
    return base + QStringLiteral("/Quorvel");
}

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Quorvel"));
    QGuiApplication::setDesktopFileName(QStringLiteral("quorvel"));
    QGuiApplication::setQuitOnLastWindowClosed(false);

    platform::SystemClock clock;
    const platform::FileManager files = platform::FileManager::standard();
    platform::UserDefaults defaults(
        platform::UserDefaults::standardPath(QStringLiteral("Quorvel")));
    const platform::TerminationSignals signals;
    AppDelegate delegate({clock, files, defaults, iconDirectory()});
    QObject::connect(&signals, &platform::TerminationSignals::received, &delegate,
                     &AppDelegate::terminate);
    QObject::connect(&delegate, &AppDelegate::terminated, &application, &QCoreApplication::quit,
                     Qt::QueuedConnection);
    delegate.applicationDidFinishLaunching();
    return QApplication::exec();
}
