# SPDX-FileCopyrightText: 2026 the Quorvel developers
# SPDX-License-Identifier: MIT

# The tables of translations, one for each module and language: <Module>/Resources/<language>.ts.
#
#   quorvel_string_tables(TARGET MODULE)    compiles those of MODULE, whose CMakeLists.txt calls it,
#                                           into TARGET as :/Localization/<Module>.<language>.qm

set(QUORVEL_LANGUAGES zh-Hans)

# Beside Qt's other programs first: what PATH calls lrelease may be another Qt's. The package that
# brings Qt's own CMake module for this brings Designer and Assistant as well.
find_program(QUORVEL_LRELEASE NAMES lrelease lrelease6 lrelease-qt6
    HINTS "${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS}" REQUIRED)

function(quorvel_string_tables target module)
    set(tables "")
    foreach(language IN LISTS QUORVEL_LANGUAGES)
        set(source "${CMAKE_CURRENT_SOURCE_DIR}/Resources/${language}.ts")
        set(table "${CMAKE_CURRENT_BINARY_DIR}/Resources/${module}.${language}.qm")
        add_custom_command(OUTPUT "${table}"
            COMMAND "${QUORVEL_LRELEASE}" -silent "${source}" -qm "${table}"
            DEPENDS "${source}"
            COMMENT "Compiling the texts of ${module} in ${language}"
            VERBATIM)
        list(APPEND tables "${table}")
    endforeach()
    # Qt links a static library's resources into everything that links the library, so nobody has to
    # name them in code.
    qt_add_resources(${target} "${module}Tables"
        PREFIX /Localization
        BASE "${CMAKE_CURRENT_BINARY_DIR}/Resources"
        FILES ${tables})
endfunction()
