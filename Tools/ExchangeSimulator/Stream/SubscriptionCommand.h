// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QStringList>

namespace simulator {

/// Carries out one command frame of a client on its list of streams and gives the answer to send.
/// Text that is no command, or a wrong one, changes nothing and is answered with an error.
QByteArray carryOutCommand(const QByteArray& text, QStringList& streams,
                           const QStringList& refused);

} // namespace simulator
