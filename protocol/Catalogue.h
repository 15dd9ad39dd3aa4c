#pragma once

#include <UBXMessage.h>

/// What the parser asks of the message catalogue.
namespace ubx
{

bool isCatalogued(UBXClassId id);

/// Whether the first row of this class/id is the last one before the end marker.
bool isLastOfCatalogue(UBXClassId id);

} // namespace ubx
