// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QThread>

namespace platform {

/// A thread with an event loop. Runs from construction to destruction, which waits for it to end.
class WorkerThread {
public:
    /// `name` is what debuggers and process viewers show.
    explicit WorkerThread(const QString& name);
    WorkerThread(const WorkerThread&) = delete;
    WorkerThread& operator=(const WorkerThread&) = delete;
    ~WorkerThread() { stop(); }

    QThread& thread() { return thread_; }

    /// Ends the event loop and waits for the thread; whatever lives in its mailboxes is destroyed
    /// on it. Doing it again does nothing.
    void stop();

private:
    /// Knows of all that was done before it was told to quit when it tells of its end.
    class LoopThread final : public QThread {
    protected:
        void run() override;
    };

    LoopThread thread_;
};

} // namespace platform
