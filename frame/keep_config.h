// What restore leaves as the device has it.
#pragma once

#include <cstdint>

enum KeepConfig : std::uint32_t {
    KEEP_CONFIG_PASSWORD = 1, // the user accounts: section "password"
    KEEP_CONFIG_NETWORK = 2,  // the addresses: section "network settings"
};

// A mask of KEEP_CONFIG_* bits; other bits have no effect. Set once, by main.
extern std::uint32_t gKeepConfig;
