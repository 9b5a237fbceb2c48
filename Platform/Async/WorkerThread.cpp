// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/Async/WorkerThread.h"

#include "Platform/Async/ThreadHandOver.h"

namespace platform {

WorkerThread::WorkerThread(const QString& name) {
    thread_.setObjectName(name);
    thread_.start();
}

void WorkerThread::LoopThread::run() {
    exec();
    acquireFromOtherThread(&throughQt);
}

void WorkerThread::stop() {
    releaseToOtherThread(&throughQt);
    thread_.quit();
    thread_.wait();
    acquireFromOtherThread(&throughQt);
}

} // namespace platform
