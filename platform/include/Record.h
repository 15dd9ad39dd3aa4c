#pragma once

#include <string>

#include "PlatformExport.h"

/// A record of a module's inventory: a type code, and the text that it holds.
class UBXPLATFORM_API Record
{
public:
    Record(int type, std::string data);

    /// @return 0 when there is no such record.
    int GetRecordType() const;

    /// @return the text; normally empty when there is no such record.
    std::string GetRecordData() const;

private:
    int type_;
    std::string data_;
};
