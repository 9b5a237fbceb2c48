// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Tools/ExchangeSimulator/Stream/EndProbe.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace simulator {

EndProbe::EndProbe(qintptr descriptor) : descriptor_(::dup(static_cast<int>(descriptor))) {}

bool EndProbe::wasReset() const {
    // A peer's FIN leaves the connection half closed; a reset leaves nothing of it.
    tcp_info info{};
    socklen_t size = sizeof info;
    return ::getsockopt(descriptor_, IPPROTO_TCP, TCP_INFO, &info, &size) == 0 &&
           info.tcpi_state == TCP_CLOSE;
}

void EndProbe::shutDownWriting() {
    ::shutdown(descriptor_, SHUT_WR);
}

void EndProbe::resetOnClose() {
    const linger none{.l_onoff = 1, .l_linger = 0};
    ::setsockopt(descriptor_, SOL_SOCKET, SO_LINGER, &none, sizeof none);
}

void EndProbe::release() {
    if (const int descriptor = std::exchange(descriptor_, -1); descriptor >= 0)
        ::close(descriptor);
}

} // namespace simulator
