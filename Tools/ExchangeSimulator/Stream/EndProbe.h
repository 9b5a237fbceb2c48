// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

namespace simulator {

/// Tells how a peer ended a TCP connection, which the socket class does not: it reports a reset as
/// an ordinary end and has closed its descriptor by then. Keeps a descriptor of its own, so the
/// connection goes down only once the probe is released too.
class EndProbe {
public:
    explicit EndProbe(qintptr descriptor);
    ~EndProbe() { release(); }
    Q_DISABLE_COPY_MOVE(EndProbe)

    /// Whether the connection was reset. Only meaningful once it has ended, and before `release`.
    bool wasReset() const;

    /// Sends the end of our bytes; the peer may go on sending.
    void shutDownWriting();

    /// Makes the coming close a reset.
    void resetOnClose();

    void release();

private:
    int descriptor_;
};

} // namespace simulator
