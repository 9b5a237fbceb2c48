# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

"""A desktop without a user: what a display, a session and a panel are made of, the simulated
exchange, and the program between them. The demo shows it, and the end-to-end tests look at it.

Everything is a process of its own, and what is shown is read from outside: from the bus, from the
display, and from the accessibility tree.
"""
