// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Platform/Async/Task.h"
#include "Platform/Foundation/Clock.h"
#include "Platform/Services/FileLock.h"

#include <QObject>
#include <QString>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

class QDBusConnection;

namespace platform {

/// Lets one process at a time work in a directory. A later start calls the first one and ends.
///
/// Two things say who is first: a lock on a file in the directory, which also holds between
/// sessions, and a name on the session bus that is made from the directory, under which the first
/// is called. The system frees both when the process dies. Where one of them cannot be had, the
/// other decides; without both, every start is the first.
///
/// Main thread.
class SingleInstance : public QObject {
    Q_OBJECT

public:
    /// How long a start tries to be the first, or to reach it.
    static constexpr std::chrono::seconds usualPatience{2};

    struct Identity {
        QString interface; ///< such as "org.example.Program"; the bus name and the path follow it
        QString method;    ///< what a later start calls, without arguments
        QString lockFile;  ///< the file's name
    };

    /// What a start has come to.
    enum class Outcome {
        first,      ///< this process is the first, and stays so until `release`
        handedOver, ///< the first has been called, and has answered
        unanswered, ///< there is a first, which did not answer in time
    };

    /// Touches nothing yet. @param directory must exist, else there is no lock; @param clock counts
    /// the patience, and outlives this object
    SingleInstance(Identity identity, const QString& directory, const QDBusConnection& sessionBus,
                   Clock& clock);
    ~SingleInstance() override;

    /// Becomes the first, or calls it. Takes until the patience has gone where the first hangs or
    /// cannot be reached from this session, and until it has ended where it is just doing that. To
    /// be awaited before anything in the directory is opened.
    Task<Outcome> claim(std::chrono::milliseconds patience = usualPatience);

    /// The process that is or was first, for people to read; absent where that is unknown.
    std::optional<std::int64_t> firstProcess() const { return lock_.writtenHolder(); }

    /// The bus name under which the first is called.
    const QString& serviceName() const { return serviceName_; }

    /// Gives up the name: this process is about to end, and a later start waits for that instead of
    /// calling it.
    void stopListening();

    /// Gives up the name and the lock.
    void release();

Q_SIGNALS:
    /// A later start has called the first.
    void called();

    /// To a start that found another one: that one can be called now, or its process has ended.
    void firstChanged(QPrivateSignal);

private:
    class Object;
    class FirstWatch;

    Task<bool> becomeFirst();
    Task<bool> startListening();
    Task<bool> callFirst(std::chrono::milliseconds limit);

    Identity identity_;
    FileLock lock_;
    QString serviceName_;
    std::unique_ptr<QDBusConnection> bus_;
    Clock& clock_;
    std::unique_ptr<Object> object_; ///< while the name is this process's
};

} // namespace platform
