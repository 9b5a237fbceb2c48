// SPDX-FileCopyrightText: 2026 the Quorvel developers
// SPDX-License-Identifier: MIT

#include "Platform/StatusContent/StatusItemPresentation.h"

// Here so that the class has one home for its virtual table.
#include "moc_StatusItemPresentation.cpp"
