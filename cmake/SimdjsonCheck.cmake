# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

# The JSON reader takes the list of token positions from simdjson's indexer, which is no part of what
# simdjson promises to keep. So only versions are taken that the reader's tests have run with, and of
# these only a build whose indexer does what the reader expects. Asked once for each version.
#
# To take another: widen the range, then run ctest -R JSON and ./dev bench, which compares with simdjson's
# own readers.
set(QUORVEL_SIMDJSON_FIRST 3.0.1)  # Debian 12
set(QUORVEL_SIMDJSON_BEYOND 3.1.0) # within 3.0 there are corrections only

find_package(simdjson REQUIRED)

if(NOT QUORVEL_SIMDJSON_CHECKED STREQUAL simdjson_VERSION)
    if(simdjson_VERSION VERSION_LESS QUORVEL_SIMDJSON_FIRST OR
       simdjson_VERSION VERSION_GREATER_EQUAL QUORVEL_SIMDJSON_BEYOND)
        message(FATAL_ERROR
            "simdjson ${simdjson_VERSION} in ${simdjson_DIR} has not been tried: the JSON reader uses its inner "
            "interface, and knows that of ${QUORVEL_SIMDJSON_FIRST} up to, but not including, "
            "${QUORVEL_SIMDJSON_BEYOND}.\n"
            "Install such a one (Debian 12: apt-get install libsimdjson-dev), or see "
            "cmake/SimdjsonCheck.cmake for how to take another version.")
    endif()
    try_run(QUORVEL_SIMDJSON_STATUS QUORVEL_SIMDJSON_COMPILED
        "${CMAKE_BINARY_DIR}/simdjson-check"
        SOURCES "${CMAKE_CURRENT_LIST_DIR}/SimdjsonCheck.cpp"
        LINK_LIBRARIES simdjson::simdjson
        COMPILE_OUTPUT_VARIABLE QUORVEL_SIMDJSON_OUTPUT
        CXX_STANDARD 23
        CXX_STANDARD_REQUIRED ON)
    if(NOT QUORVEL_SIMDJSON_COMPILED OR NOT QUORVEL_SIMDJSON_STATUS EQUAL 0)
        unset(QUORVEL_SIMDJSON_STATUS CACHE)
        unset(QUORVEL_SIMDJSON_COMPILED CACHE)
        message(FATAL_ERROR
            "The indexer of simdjson ${simdjson_VERSION} in ${simdjson_DIR} does not do what the JSON reader "
            "expects of it (cmake/SimdjsonCheck.cpp).\n${QUORVEL_SIMDJSON_OUTPUT}")
    endif()
    set(QUORVEL_SIMDJSON_CHECKED "${simdjson_VERSION}" CACHE INTERNAL "simdjson with the expected indexer")
endif()
