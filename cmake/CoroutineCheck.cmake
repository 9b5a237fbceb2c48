# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

# Some compilers end the life of a temporary inside a co_await expression twice. Nothing warns of it,
# and what it breaks shows up far away, so such a compiler is refused before it builds anything.
if(NOT DEFINED QUORVEL_COROUTINES_SOUND)
    try_run(QUORVEL_COROUTINES_STATUS QUORVEL_COROUTINES_COMPILED
        "${CMAKE_BINARY_DIR}/coroutine-check"
        SOURCES "${CMAKE_CURRENT_LIST_DIR}/CoroutineCheck.cpp"
        CXX_STANDARD 23
        CXX_STANDARD_REQUIRED ON)
    if(QUORVEL_COROUTINES_COMPILED AND QUORVEL_COROUTINES_STATUS EQUAL 0)
        set(QUORVEL_COROUTINES_SOUND TRUE CACHE INTERNAL "co_await destroys each object once")
    else()
        message(FATAL_ERROR
            "${CMAKE_CXX_COMPILER} miscompiles coroutines or does not know C++23: objects in a co_await "
            "expression are not destroyed exactly once.\n"
            "Install clang 19 (Debian: apt-get install clang-19 lld-19) and configure with a preset, "
            "or with -DCMAKE_CXX_COMPILER=clang++-19.")
    endif()
endif()
