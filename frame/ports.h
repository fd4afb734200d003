// Port numbering: device operations count ports from 0, document keys from 1.
#pragma once

#include "platform/include/ports.h"

// The number that the keys of a port carry.
constexpr int key_number(int port) {
    return port + 1;
}
