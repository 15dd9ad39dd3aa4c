#pragma once

#include <cstdint>

/// A PCIe base address register that was found for a module.
struct PcieBar
{
    std::uint32_t number;
    std::uint32_t sizeBytes;
};

static_assert(sizeof(PcieBar) == 8, "the module-resources service hands out descriptors of 8 bytes");
