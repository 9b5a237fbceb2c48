#include "Platform/StatusBar/StatusItemPresentation.h"

// Here so that the class has one home for its virtual table.
#include "moc_StatusItemPresentation.cpp"
